#!/usr/bin/env bash
# program.sh PROGRAM HOST: what the program, built for this web site, makes of its arguments, of a
# parent that ignores the ends of its children, and of the death of its display.
set -euo pipefail
scripts=$(dirname "${BASH_SOURCE[0]}")/../../scripts
source "$scripts/stage.sh"
source "$scripts/hand.sh"
program=$1
manual="http://$2/KVManual.html"
if [[ $2 == *.example ]]; then manual="file://$(realpath "$scripts/../web")/KVManual.html"; fi

open_stage
export HOME=$stage_folder XDG_DATA_HOME=$stage_folder/data XDG_DATA_DIRS=$stage_folder/data
export BROWSER=$stage_folder/browser
printf '#!/bin/sh\necho "$1" >~/part; mv ~/part ~/page\n' >"$BROWSER"
chmod +x "$BROWSER"
"$program" --version | grep -q '^Kestrava [0-9]'

stores_the_list() {
  settings=$XDG_CONFIG_HOME/Kestrava/Kestrava.conf
  mkdir -p "$(dirname "$settings")"
  printf '[Preferences]\nLastListFile=before' >"$settings"
  (trap '' CHLD; exec "$program" -session 1_2 2>"$stage_folder/errors") &
  "$1"
  : >"$settings"
  kill -KILL "${stage_processes[-1]}"
  unset "stage_processes[-1]"
  wait $! || true
  grep LastListFile=before "$settings"
}
ask_for_help() {
  wait_for 20 "the window" find_window Kestrava
  take_window Kestrava
  xdotool key F1
  wait_for 20 "the manual" grep -qsFx "$manual" ~/page
  # A message that told of a missing browser would stand above the window and take the key.
  xdotool key F2
  wait_for 20 "the about box" find_window "About Kestrava"
}

see_the_window() { wait_for 20 "the window" grep -qs 'set_title("Kestrava")' "$stage_folder/errors"; }

# Also without a display.
for arguments in "-session 1_2 --unknown" "-reverse -platform=xcb x" "--style a -b"; do
  code=0
  "$program" $arguments || code=$?
  ((code == 2))
done
start_display
stores_the_list ask_for_help
start_compositor
WAYLAND_DEBUG=1 stores_the_list see_the_window
