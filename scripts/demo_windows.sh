#!/usr/bin/env bash
# Shows the program for Windows at work under Wine, on a virtual display, in a network of its own: it
# is worked by key and mouse, checks machines, saves its list and prints it. All of it twice, at the
# usual and at half again as many points per inch. Leaves pictures in build/demo.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/stage.sh
source scripts/hand.sh
source scripts/wine_stage.sh

take_own_network "$PWD/scripts/demo_windows.sh" "${1-}"
open_stage
start_machines
start_display
start_wine

output=$PWD/build/demo
mkdir -p "$output"
list=$stage_folder/demo.kvl
list_machines >"$list"

# As in hand.sh, but of a window with the frame that Wine has drawn around it.
frame=3
place() {
  local X Y WIDTH HEIGHT
  eval "$(xdotool getwindowgeometry --shell "$main_window")"
  xdotool mousemove --window "$main_window" 0 0
  eval "$(xdotool getmouselocation --shell)"
  local width=$((WIDTH - 2 * frame))
  x=$((X + frame + $1 * width / 11190))
  y=$((Y + HEIGHT - frame - (5445 - $2) * width / 11190))
}

# picture NAME LEFT TOP WIDTH HEIGHT: of a part of the screen.
picture() { scrot -o -a "$2,$3,$4,$5" "$output/windows-$1-$dots.png"; }
# picture_of WINDOW NAME
picture_of() {
  local X Y WIDTH HEIGHT
  eval "$(xdotool getwindowgeometry --shell "$1")"
  xdotool mousemove --window "$1" 0 0
  eval "$(xdotool getmouselocation --shell)"
  xdotool mousemove 0 0
  picture "$2" "$X" "$Y" "$WIDTH" "$HEIGHT"
}

# The corner of the screen at the icon.
corner() {
  local width=$((370 * dots / 96)) height=$((160 * dots / 96))
  sleep 0.5
  picture "$1" $((1280 - width)) $((1024 - height)) "$width" "$height"
}
taskbar_windows() { xdotool search --onlyvisible --class explorer | wc -l; }
balloon_shows() { (($(taskbar_windows) > bars)); }

# The job, with `dots` points per inch.
work() {
  echo "Starting Kestrava with $dots points per inch, where it loads its last list."
  in_wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dots" /f
  wineserver --kill
  wineserver --wait
  wineserver --persistent
  start_program "$list"

  click 10500 320  # "Add New Connection"
  wait_for 20 "the dialog" find_window "Add New Connection"
  picture_of "$window" dialog
  add_machine "This Machine" 127.0.0.1

  echo "Pressing \"Check Now !\"."
  click 10500 5100
  wait_for 60 "the end of the check" lamps_are "$expected_lamps"
  picture_of "$main_window" window
  echo "The lamps, from the top: $(lamps)."

  echo "Saving the list with \"Save Connection List\"."
  saved=$output/windows-checked-$dots.kvl
  save_list "$saved" "$(wine_name "$saved")"
  echo
  cat "$saved"
  echo

  # Wine's taskbar has the icon at its right end.
  xdotool mousemove 1270 1014 click 3
  wait_for 10 "the icon's menu" visible_windows_are 2
  corner menu
  xdotool key Escape
  wait_for 10 "the end of the menu" visible_windows_are 1

  # Without a network the check is over before the window is hidden.
  if [[ $network == true ]]; then
    echo "Sending the window to the tray in the midst of a check."
    take_main_window
    bars=$(taskbar_windows)
    click 10500 5100
    xdotool key alt+f Up Up Return  # "Send to Tray"
    wait_for 5 "the hidden window" is_gone Kestrava
    wait_for 30 "the balloon" balloon_shows
    corner balloon
  fi
  end_session
}

for dots in 96 144; do work; done
echo "Kestrava ended as at the end of a session. The pictures are ${output#"$PWD"/}/windows-*.png."
