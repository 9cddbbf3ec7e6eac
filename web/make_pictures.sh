#!/usr/bin/env bash
# Makes the manual's pictures from the real program, at work on a virtual display in a network of its
# own. Takes the program's path, build/kestrava if none is given.
set -euo pipefail
program=$(realpath -m "${1:-$(dirname "${BASH_SOURCE[0]}")/../build/kestrava}")
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/packages.sh
source scripts/stage.sh
source scripts/hand.sh

if [[ "${2-}" != --inside ]]; then
  install_missing "${run_packages[@]}" "${stage_packages[@]}"
  if [[ ! -x $program ]]; then
    echo "There is no program at $program: ./run.sh builds it." >&2
    exit 1
  fi
  become_on_own_network "$PWD/web/make_pictures.sh" "$program" --inside
  echo "The pictures need a machine that allows network namespaces." >&2
  exit 1
fi
ip link set lo up
add_network_cards
mkdir -p web/KVManual

open_stage
start_network
start_remote_desktop_server
mail_address=192.0.2.10
ip address add "$mail_address/24" dev near
start_display -wr
"$program" &
kestrava=$!
stage_processes+=("$kestrava")

# picture NAME LEFT TOP WIDTH HEIGHT: keeps a part of the screen.
picture() {
  scrot -o -a "$2,$3,$4,$5" "web/KVManual/$1.png"
  echo "web/KVManual/$1.png"
}
# picture_of NAME: keeps the window that was taken last, without a trace of the mouse.
picture_of() {
  local X Y WIDTH HEIGHT
  xdotool mousemove 0 0
  sleep 1
  eval "$(xdotool getwindowgeometry --shell "$window")"
  picture "$1" "$X" "$Y" "$WIDTH" "$HEIGHT"
}
# The corner of the screen where the icon stands.
picture_of_corner() { picture "$1" $((1280 - $2)) $((1024 - $3)) "$2" "$3"; }
leave() {
  xdotool key Escape
  wait_for 5 "the end of \"$1\"" is_gone "$1"
  take_main_window
}

take_window Kestrava
main_window=$window
machines=("Mail server" "$mail_address" "Terminal server" "$far_address" "Backup" "$silent_address"
  "Printer" "192.0.2.x" "Old laptop" 192.0.2.5)
for ((i = 0; i < ${#machines[@]}; i += 2)); do
  click 10500 320  # "Add New Connection"
  add_machine "${machines[i]}" "${machines[i + 1]}"
done

# From the first row's name to the last row's "Checking" cell, which turns to "Disabled".
click 1000 400
xdotool key ctrl+End Left Return
click 10500 5100  # "Check Now !"
wait_for 60 "the end of the check" lamps_are "green green red red"

click 10500 320
take_window "Add New Connection"
type_machine "Camera" 192.0.2.12
picture_of add
xdotool key Return
wait_for 5 "the end of the dialog" is_gone "Add New Connection"
take_main_window
window=$main_window
picture_of window

click 1000 400
xdotool key Right Return
take_window "Connection Address"
picture_of change
leave "Connection Address"

click 10500 830  # "Remove Connection(s)"
take_window "Remove Connections"
xdotool key Home Down Down space Down Down space
picture_of remove
leave "Remove Connections"

xdotool key alt+c Up Return  # "Preferences"
take_window "Kestrava Preferences"
picture_of preferences
leave "Kestrava Preferences"

# Into the tray in the midst of a check, so that a balloon tells of what fails.
click 10500 5100
xdotool key alt+f Up Up Return  # "Send to Tray"
wait_for 5 "the hidden window" is_gone Kestrava
wait_for 30 "the balloon" visible_windows_are 2
sleep 0.5
picture_of_corner balloon 340 130
wait_for 10 "the end of the balloon" visible_windows_are 1
xdotool mousemove 1256 1000 click 3
wait_for 5 "the icon's menu" visible_windows_are 2
xdotool key Down
sleep 0.5
picture_of_corner tray 340 130
xdotool key Down Return  # "Exit"
wait "$kestrava"
