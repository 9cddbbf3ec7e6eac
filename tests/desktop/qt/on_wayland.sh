#!/usr/bin/env bash
# on_wayland.sh COMMAND...: runs the command on a Wayland compositor of its own, without a screen.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../../scripts/stage.sh"

open_stage
start_compositor
# Up to 6.4 Qt may free a frame's callback in two threads at once when a window is hidden at the
# moment of its frame (https://codereview.qt-project.org/c/qt/qtwayland/+/445585). The library for
# compositors ends the program then: such a run says nothing and is made again.
for ((attempt = 1; ; ++attempt)); do
  status=0
  "$@" 2>"$stage_folder/errors" || status=$?
  cat "$stage_folder/errors" >&2
  ((status != 0 && attempt < 3)) || exit "$status"
  grep -q "wl_proxy_unref: Assertion" "$stage_folder/errors" || exit "$status"
done
