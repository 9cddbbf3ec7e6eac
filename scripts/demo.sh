#!/usr/bin/env bash
# Shows Kestrava at work: its real window on a virtual display, worked by key and mouse, checks
# machines of a network of its own. Leaves a picture of the window in build/demo.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/stage.sh

if [[ "${1-}" != --inside ]]; then
  become_on_own_network "$PWD/scripts/demo.sh" --inside
  echo "This machine allows no network namespaces: only what needs no other machine is shown."
  network=false
elif ! ip link set lo up || ! add_network_cards; then
  echo "This machine has no virtual network cards: only what needs no other machine is shown."
  network=false
else
  echo "In a network of its own: a machine that answers only Remote Desktop, and a silent one."
  network=true
fi

open_stage
if [[ $network == true ]]; then
  start_network
  start_remote_desktop_server
  machines=("This Machine" 127.0.0.1 "Remote Desktop" "$far_address" "Silent" "$silent_address")
  expected_lamps="green green red"
else
  machines=("This Machine" 127.0.0.1 "No Machine" 0.0.0.0)
  expected_lamps="green red"
fi

output=$PWD/build/demo
mkdir -p "$output"
start_display
echo "Starting Kestrava on the virtual display $DISPLAY."
build/kestrava &
kestrava=$!
stage_processes+=("$kestrava")

# find_window TITLE: sets `window` once a window of this title shows.
find_window() {
  window=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1)
  [[ -n "$window" ]]
}
has_focus() { [[ "$(xdotool getwindowfocus 2>/dev/null)" == "$1" ]]; }
# There is no window manager on the display, so a window that comes up is given the focus here.
take_window() {
  wait_for 20 "the window \"$1\"" find_window "$1"
  xdotool windowfocus "$window"
  wait_for 5 "the focus of \"$1\"" has_focus "$window"
}
is_gone() { ! find_window "$1"; }

# place LEFT TOP: turns a place in the main window's inner area, in twips, into pixels of the screen
# in `x` and `y`. The area is 11190 by 5445 twips and fills the window below its menu bar.
place() {
  local X Y WIDTH HEIGHT
  eval "$(xdotool getwindowgeometry --shell "$main_window")"
  x=$((X + $1 * WIDTH / 11190))
  y=$((Y + HEIGHT - (5445 - $2) * WIDTH / 11190))
}
click() {
  place "$1" "$2"
  xdotool mousemove "$x" "$y" click 1
}

# The colours that stand in the lamps' column, from top to bottom, read from the screen.
lamps() {
  local top
  place 130 30
  top=$y
  place 130 5300
  scrot -o -a "$x,$top,1,$((y - top))" "$stage_folder/lamps.ppm"
  tail -c $((3 * (y - top))) "$stage_folder/lamps.ppm" | od -An -v -tx1 -w3 | uniq |
    sed -n 's/ 00 ff 00/green/p; s/ ff 00 00/red/p' | paste -sd ' '
}
lamps_are() { [[ "$(lamps)" == "$1" ]]; }

add_machine() {
  echo "Adding \"$1\", $2."
  take_window "Add New Connection"
  xdotool key ctrl+a type --delay 10 "$1"
  xdotool key Tab type --delay 10 "$2"
  xdotool key Return
  wait_for 5 "the end of the dialog" is_gone "Add New Connection"
  xdotool windowfocus "$main_window"
  wait_for 5 "the focus of the main window" has_focus "$main_window"
}

take_window Kestrava
main_window=$window
for ((i = 0; i < ${#machines[@]}; i += 2)); do
  if ((i == 0)); then
    click 10500 320  # "Add New Connection"
  else
    xdotool key alt+c Return  # "Create New Connection" in the menu
  fi
  add_machine "${machines[i]}" "${machines[i + 1]}"
done

echo "Pressing \"Check Now !\"."
click 10500 5100
wait_for 60 "the end of the check" lamps_are "$expected_lamps"
echo "The lamps, from the top: $(lamps)."

place 0 0
xdotool mousemove 0 0
eval "$(xdotool getwindowgeometry --shell "$main_window")"
scrot -o -a "$X,$Y,$WIDTH,$HEIGHT" "$output/window.png"
echo "The window's picture is in ${output#"$PWD"/}/window.png."

xdotool key alt+f x
wait "$kestrava"
echo "Kestrava ended by its own menu."
