# shellcheck shell=bash disable=SC2154
# The program's windows on the stage's display, worked by key and mouse. Sourced by the scripts
# after stage.sh; needs bash. The script sets `main_window` once that window shows.

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
visible_windows() { xdotool search --onlyvisible --class kestrava; }
visible_windows_are() { (($(visible_windows | wc -l) == $1)); }
find_message() {
  window=$(xdotool search --onlyvisible --name '^Kestrava$' 2>/dev/null | grep -vx "$main_window")
  [[ -n "$window" ]]
}
no_message() { ! find_message; }
# Presses OK in the message box that comes up.
confirm_message() {
  wait_for 20 "the message" find_message
  xdotool windowfocus "$window"
  wait_for 5 "the focus of the message" has_focus "$window"
  xdotool key Return
  wait_for 5 "the end of the message" no_message
}

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

# Fills the dialog that asks for a new connection.
type_machine() {
  xdotool key ctrl+a type --delay 10 "$1"
  xdotool key Tab type --delay 10 "$2"
}
take_main_window() {
  xdotool windowfocus "$main_window"
  wait_for 5 "the focus of the main window" has_focus "$main_window"
}
add_machine() {
  echo "Adding \"$1\", $2."
  take_window "Add New Connection"
  type_machine "$1" "$2"
  xdotool key Return
  wait_for 5 "the end of the dialog" is_gone "Add New Connection"
  take_main_window
}

# save_list FILE [NAME]: saves the program's list with "Save Connection List" as this file, which is
# typed as the name.
save_list() {
  rm -f "$1"
  xdotool key alt+f s
  take_window "Save As"
  xdotool key ctrl+a type --delay 10 "${2-$1}"
  xdotool key Return
  wait_for 10 "the saved list" test -s "$1"
  confirm_message
  take_main_window
}
