#!/usr/bin/env bash
# Lets the program for Linux and the one for Windows, under Wine, save what the other has saved: the
# bytes stay, whatever the names are made of. Both are built already.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/packages.sh
source scripts/stage.sh
source scripts/hand.sh
source scripts/wine_stage.sh
install_missing "${run_packages[@]}" "${stage_packages[@]}" "${wine_packages[@]}"

open_stage
start_display
start_wine

on_linux() {
  mkdir -p "$XDG_CONFIG_HOME/Kestrava"
  printf '[Preferences]\nAutoLoadList=1\nLastListFile=%s\n' "$1" >"$XDG_CONFIG_HOME/Kestrava/Kestrava.conf"
  build/kestrava &
  local kestrava=$!
  stage_processes+=("$kestrava")
  take_window Kestrava
  main_window=$window
  save_list "$2"
  kill -TERM "$kestrava"
  wait "$kestrava"
}
on_windows() {
  start_program "$1"
  save_list "$2" "$(wine_name "$2")"
  end_session
}

# ASCII, UTF-8, Windows-1252, the bytes that this leaves out, a cut character of UTF-8, and all others.
list=$stage_folder/list.kvl
{
  printf 'ZR_Kestrava_ConnectionList\r\n'
  printf '%b,127.0.0.1,Unchecked,Enabled,Unchecked\r\n' 'Zurich' 'Z\xc3\xbcrich \xe6\x9d\xb1\xe4\xba\xac' \
    'Z\xfcrich \x80' '\x81\x8d\x8f\x90\x9d' 'cut \xe6\x9d' '\x01\x02\x7f\xa0\xff' ' "quoted"; ' ''
} >"$list"
on_linux "$list" "$stage_folder/linux.kvl"
on_windows "$stage_folder/linux.kvl" "$stage_folder/linux-windows.kvl"
on_windows "$list" "$stage_folder/windows.kvl"
on_linux "$stage_folder/windows.kvl" "$stage_folder/windows-linux.kvl"
for saved in linux linux-windows windows windows-linux; do cmp "$list" "$stage_folder/$saved.kvl"; done
echo "A list has the same bytes, whoever saves it."
