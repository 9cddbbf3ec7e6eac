#!/usr/bin/env bash
# Runs a program for Windows under Wine, without a picture, in a prefix of the build folder's own.
set -euo pipefail
export WINEPREFIX=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/wine
# A crash ends the program: nobody is there to answer a debugger.
export WINEDLLOVERRIDES='winedbg.exe=;mscoree=;mshtml=' WINEDEBUG=-all
unset DISPLAY WAYLAND_DISPLAY

mkdir -p "$WINEPREFIX"
# The first call makes the prefix, alone. The services that it leaves keep whatever pipe they were given.
(
  flock 9
  if [[ ! -e $WINEPREFIX/made ]]; then
    wine wineboot --init 9>&-
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f 9>&-
    # Only then has the desktop that driver, too, without which it has no place for a click.
    wineserver --kill 9>&-
    wineserver --wait 9>&-
    touch "$WINEPREFIX/made"
  fi
) 9>"$WINEPREFIX.lock" >"$WINEPREFIX.log" 2>&1 </dev/null
# The services start apart, so that they don't keep the caller's pipes.
wineserver -p10 >/dev/null 2>&1 </dev/null || true
wine cmd /c exit >/dev/null 2>&1 </dev/null
exec wine "$@"
