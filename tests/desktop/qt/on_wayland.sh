#!/usr/bin/env bash
# on_wayland.sh COMMAND...: runs the command on a Wayland compositor of its own, without a screen.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../../scripts/stage.sh"

open_stage
start_compositor
# What the library for compositors keeps until the end is none of ours.
echo "leak:libwayland-client" >"$stage_folder/suppressions"
export LSAN_OPTIONS=suppressions=$stage_folder/suppressions:print_suppressions=0
"$@"
