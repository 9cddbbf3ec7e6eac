#!/usr/bin/env bash
# on_wayland.sh COMMAND...: runs the command on a Wayland compositor of its own, without a screen.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../../scripts/stage.sh"

open_stage
start_compositor
# With Qt 6.4 the library for compositors may end a program by this assertion, where a window is
# hidden. Others have traced it to Qt, which frees something in two threads at once, and mended it
# there (https://codereview.qt-project.org/c/qt/qtwayland/+/445585). Such a run is made again.
for ((attempt = 1; ; ++attempt)); do
  status=0
  "$@" 2>"$stage_folder/errors" || status=$?
  cat "$stage_folder/errors" >&2
  ((status != 0 && attempt < 3)) || exit "$status"
  grep -q "wl_proxy_unref: Assertion" "$stage_folder/errors" || exit "$status"
done
