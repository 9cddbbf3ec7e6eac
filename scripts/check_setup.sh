#!/usr/bin/env bash
# Installs the program for Windows under Wine, logs in so that it starts, and uninstalls it: what is
# the user's stays, and nothing else does. build-windows has the program already.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/packages.sh
source scripts/stage.sh
source scripts/wine_stage.sh
install_missing "${windows_packages[@]}" "${wine_packages[@]}"

cmake --build --preset windows --target setup
setup=$(echo build-windows/kestrava-*-setup.exe)

open_stage
unset DISPLAY WAYLAND_DISPLAY
start_wine
users=$WINEPREFIX/drive_c/users/$(id -un)
installed=$users/AppData/Local/Programs/Kestrava
shortcut="$users/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Kestrava.lnk"

fail() {
  echo "$*" >&2
  exit 1
}
refused() {
  if in_wine "$@"; then fail "Not refused while the program runs: $*"; fi
}
# Every file and every setting of the user, but for what Wine notes for itself.
world() {
  find "$WINEPREFIX/drive_c" -path '*/Temp/*' -prune -o -print | sort
  wine reg export 'HKCU\Software' "$stage_folder/user.reg" /y \
    >>"$stage_folder/wine.log" 2>&1 </dev/null
  iconv -f UTF-16 -t UTF-8 "$stage_folder/user.reg" |
    sed '/^\[HKEY_CURRENT_USER\\Software\\Wine/,/^\r*$/d'
}
uninstalled() { [[ ! -e $installed/uninstall.exe ]]; }
# It works as a copy of itself, which goes on when it has returned.
uninstall() {
  in_wine "$installed/uninstall.exe" /S
  wait_for 30 "the end of the uninstaller" uninstalled
}

# Windows has both from the start.
in_wine reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall' /f
mkdir -p "$users/AppData/Local/Programs"
world >"$stage_folder/before"

echo "Installing, and logging in."
in_wine "$setup" /S /LOGIN
[[ -e $shortcut ]] || fail "There is no entry in the Start menu."
cmp build-windows/kestrava.exe "$installed/kestrava.exe"
diff -r web "$installed/web" --exclude make_pictures.sh
diff -r resources/Lists "$installed/Lists"
in_wine wineboot
wait_for 30 "the program at log-in" program_runs
in_wine reg query 'HKCU\Software\Kestrava\Preferences' /v Tray

echo "Neither goes while the program runs."
refused "$setup" /S
refused "$installed/uninstall.exe" /S "_?=$(winepath --windows "$installed" 2>/dev/null)"
cmp build-windows/kestrava.exe "$installed/kestrava.exe"
in_wine wineboot --end-session --shutdown
wait_for 30 "the end of the program" program_is_gone

echo "Uninstalling leaves the user's lists and preferences."
printf 'x' >>"$installed/Lists/office.kvl"
cp resources/Lists/office.kvl "$installed/Lists/mine.kvl"
# Once more over what is there, as for a newer version.
in_wine "$setup" /S
uninstall
left=$(cd "$installed" && find . -type f | sort | paste -sd ' ')
[[ $left == "./Lists/mine.kvl ./Lists/office.kvl" ]] || fail "Left are: $left"
[[ $(tail -c 1 "$installed/Lists/office.kvl") == x ]] || fail "A list is another one."
in_wine reg query 'HKCU\Software\Kestrava\Preferences' /v Tray

echo "And nothing else is left."
rm -r "$installed"
in_wine reg delete 'HKCU\Software\Kestrava' /f
in_wine "$setup" /S
[[ -e $shortcut ]] || fail "It was not installed once more."
uninstall
wait_for 30 "the end of its folder" test ! -e "$installed"
world | diff "$stage_folder/before" -
echo "The setup program is whole: $setup"
