#!/usr/bin/env bash
# Shows Kestrava at work: its real window on a virtual display, worked by key and mouse, checks
# machines of a network of its own, saves its list and prints it. Leaves pictures in build/demo.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/stage.sh
source scripts/hand.sh

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
  others=("Remote Desktop,$far_address" "Silent,$silent_address")
  expected_lamps="green red green"
else
  others=("No Machine,0.0.0.0")
  expected_lamps="red green"
fi

output=$PWD/build/demo
mkdir -p "$output"
start_display
list=$stage_folder/demo.kvl
{
  printf 'ZR_Kestrava_ConnectionList\r\n'
  printf '%s,Unchecked,Enabled,Unchecked\r\n' "${others[@]}"
} >"$list"
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
