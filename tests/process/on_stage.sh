#!/usr/bin/env bash
# on_stage.sh COMMAND...: runs the command as a desktop of its own: a network that nothing leaves, a
# virtual display with a window manager, a session bus, and a user's folders.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/stage.sh"
if [[ "$1" != --inside ]]; then
  become_on_own_network "$0" --inside "$@"
  exit 77 # this machine allows no network of one's own, so the test is skipped
fi
ip link set lo up
ip route add 192.0.2.3 dev lo # a machine that is silent
# The sockets of displays bear their number alone, and it is given out once in each network.
mkdir -p /tmp/.X11-unix
mount -t tmpfs none /tmp/.X11-unix
open_stage
start_display
export PYTHONDONTWRITEBYTECODE=1 HOME=$stage_folder
export DBUS_SESSION_BUS_ADDRESS=unix:path=$stage_folder/bus
unset "${!XDG_DATA@}" BROWSER LC_ALL
dbus-daemon --nofork --config-file="$(dirname "$0")/bus.conf" \
  --address="$DBUS_SESSION_BUS_ADDRESS" 2>"$stage_folder/bus.log" &
export BUS=$!
stage_processes+=("$BUS")
# A window that is on its way to the icons' place lies above whatever is clicked meanwhile.
sed 's/<animateIconify>yes/<animateIconify>no/' /etc/xdg/openbox/rc.xml >"$stage_folder/openbox.xml"
openbox --config-file "$stage_folder/openbox.xml" >"$stage_folder/openbox.log" 2>&1 &
stage_processes+=($!)
wait_for 20 "the bus" test -S "$stage_folder/bus"
wait_for 20 "the window manager" xdotool get_num_desktops >/dev/null 2>&1
"${@:2}"
