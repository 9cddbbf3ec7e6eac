# shellcheck shell=bash disable=SC2034,SC2154
# Windows for a run of the program: Wine, in a prefix of the stage's own. Sourced by the scripts
# after stage.sh, and used when the stage is open; needs bash.

# Starts Wine, which draws on the display where there is one and nothing anywhere else.
start_wine() {
  export WINEPREFIX=$stage_folder/wine
  # A crash ends the program, nothing is added to the user's own menus, and no other toolkit is wanted.
  export WINEDLLOVERRIDES='winedbg.exe=;winemenubuilder.exe=;mscoree=;mshtml=' WINEDEBUG=-all
  # Its services keep whatever pipe they are given: a caller of the script would wait for its end.
  wine wineboot --init >"$stage_folder/wine.log" 2>&1 </dev/null
  trap clear_wine EXIT
  if [[ -z "${DISPLAY-}" ]]; then in_wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f; fi
  # As for someone who has been there before.
  wineserver --wait
  wineserver --persistent
  in_wine cmd /c exit
}

clear_wine() {
  wineserver --kill || true
  wineserver --wait || true
  clear_stage
}

# in_wine PROGRAM ARGUMENT...: runs a program for Windows. What it prints goes to the log.
in_wine() { wine "$@" >>"$stage_folder/wine.log" 2>&1 </dev/null; }

# Whether the program runs in this prefix: Wine 8 has no list of tasks to ask.
program_runs() {
  local process
  for process in $(pgrep -f '^[^ ]*[\\/]kestrava\.exe'); do
    if grep -qzFx "WINEPREFIX=$WINEPREFIX" "/proc/$process/environ" 2>/dev/null; then return; fi
  done
  return 1
}
program_is_gone() { ! program_runs; }

# The name of a file of this system, there.
wine_name() { echo "Z:${1//\//\\}"; }

# Starts the program for Windows on a desktop of Wine's own, with a taskbar, where it loads the list.
# Needs hand.sh.
start_program() {
  local preferences='HKCU\Software\Kestrava\Preferences'
  in_wine reg add "$preferences" /v AutoLoadList /d 1 /f
  in_wine reg add "$preferences" /v LastListFile /d "$(wine_name "$1")" /f
  in_wine explorer /desktop=kestrava,1280x1024 build-windows/kestrava.exe &
  take_window Kestrava
  main_window=$window
}

# Each desktop has its own session.
end_session() {
  in_wine explorer /desktop=kestrava wineboot --end-session
  wait_for 30 "the end of the program" program_is_gone
}
