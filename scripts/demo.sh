#!/usr/bin/env bash
# Shows Kestrava at work: its real window on a virtual display, worked by key and mouse, checks
# machines of a network of its own, saves its list and prints it. Leaves pictures in build/demo.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/stage.sh
source scripts/hand.sh

take_own_network "$PWD/scripts/demo.sh" "${1-}"
open_stage
start_machines

output=$PWD/build/demo
mkdir -p "$output"
start_display
list=$stage_folder/demo.kvl
list_machines >"$list"
mkdir "$XDG_CONFIG_HOME/Kestrava"
cat >"$XDG_CONFIG_HOME/Kestrava/Kestrava.conf" <<SETTINGS
[Preferences]
AutoLoadList=1
LastListFile=$list
SETTINGS
echo "Starting Kestrava on the virtual display $DISPLAY, where it loads its last list."
build/kestrava &
kestrava=$!
stage_processes+=("$kestrava")

take_window Kestrava
main_window=$window
click 10500 320  # "Add New Connection"
add_machine "This Machine" 127.0.0.1

echo "Pressing \"Check Now !\"."
click 10500 5100
wait_for 60 "the end of the check" lamps_are "$expected_lamps"
xdotool mousemove 0 0
eval "$(xdotool getwindowgeometry --shell "$main_window")"
scrot -o -a "$X,$Y,$WIDTH,$HEIGHT" "$output/window.png"
echo "The lamps, from the top: $(lamps)."

echo "Saving the list with \"Save Connection List\"."
saved=$output/checked.kvl
save_list "$saved"
echo
cat "$saved"
echo

echo "Sending the window to the tray in the midst of a check."
click 10500 5100
xdotool key alt+f Up Up Return  # "Send to Tray"
wait_for 5 "the hidden window" is_gone Kestrava
# The icon's own window and the balloon.
wait_for 30 "the balloon" visible_windows_are 2
sleep 0.5
scrot -o -a 940,894,340,130 "$output/balloon.png"
echo "The pictures of the window and of the balloon are in ${output#"$PWD"/}."

kill -TERM "$kestrava"
wait "$kestrava"
echo "Kestrava ended as at the end of a desktop session."
