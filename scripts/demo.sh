#!/usr/bin/env bash
# Shows Kestrava at work: its real window on a virtual display, worked by key and mouse, checks
# machines of a network of its own. Leaves a picture of the window in build/demo.
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
