#!/usr/bin/env bash
# on_wayland.sh COMMAND...: runs the command on a Wayland compositor of its own, without a screen.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/stage.sh"

open_stage
export XDG_RUNTIME_DIR=$stage_folder WAYLAND_DISPLAY=compositor QT_QPA_PLATFORM=wayland
# The toolkit's usual way of input would ask the compositor's seat, which there is none of.
export QT_IM_MODULE=compose
unset DISPLAY
weston --backend=headless-backend.so --socket="$WAYLAND_DISPLAY" --no-config \
  >"$stage_folder/weston.log" 2>&1 &
stage_processes+=($!)
wait_for 20 "the compositor" test -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY"
# What the library for compositors keeps until the end is none of ours.
echo "leak:libwayland-client" >"$stage_folder/suppressions"
export LSAN_OPTIONS=suppressions=$stage_folder/suppressions:print_suppressions=0
"$@"
