# shellcheck shell=bash
# A stage of its own for a run of the program: a network that nothing leaves, with machines on it,
# and a virtual display. Sourced by the scripts; needs bash.

# Where Debian keeps servers; an ordinary user's path leaves it out.
PATH+=:/usr/sbin

# Makes a fresh folder, `stage_folder`. It and every process of `stage_processes` go with the script.
open_stage() {
  stage_folder=$(mktemp -d)
  stage_processes=()
  trap clear_stage EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM
}

clear_stage() {
  local process
  # One that was stopped hears of its end when it goes on.
  for process in "${stage_processes[@]}"; do
    kill "$process" 2>/dev/null || true
    kill -CONT "$process" 2>/dev/null || true
  done
  for process in "${stage_processes[@]}"; do wait "$process" 2>/dev/null || true; done
  rm -rf "$stage_folder"
}

# wait_for SECONDS WHAT COMMAND...: repeats the command until it succeeds.
wait_for() {
  local tenths=$(($1 * 10)) what=$2
  shift 2
  until "$@"; do
    if ((tenths-- <= 0)); then
      echo "Waited in vain for $what." >&2
      return 1
    fi
    sleep 0.1
  done
}

# Becomes the given command in a network of its own, as root or by way of a user namespace. Returns
# where the machine allows neither.
become_on_own_network() {
  local namespaces=(--net --mount)
  if ! unshare "${namespaces[@]}" true 2>/dev/null; then
    namespaces=(--user --map-root-user "${namespaces[@]}")
  fi
  if unshare "${namespaces[@]}" true 2>/dev/null; then
    exec unshare "${namespaces[@]}" "$@"
  fi
}

# Joins a second machine's network card to one of this network. Fails where the system has no
# virtual network cards.
add_network_cards() { ip link add near type veth peer name far 2>/dev/null; }

# Puts two machines beside this one, with addresses kept for documentation (RFC 5737): a silent one,
# whose packets go to a network card that doesn't exist, and one that answers no echo, a namespace
# of the process `far_machine`.
far_address=192.0.2.2
silent_address=192.0.2.3
start_network() {
  unshare --net sleep infinity &
  far_machine=$!
  stage_processes+=("$far_machine")
  wait_for 5 "a second network" is_elsewhere "$far_machine"
  ip link set far netns "$far_machine"
  ip address add 192.0.2.1/24 dev near
  ip link set near up
  ip neighbour add "$silent_address" lladdr 02:00:00:00:00:03 dev near nud permanent
  on_far_machine ip link set lo up
  on_far_machine ip address add "$far_address/24" dev far
  on_far_machine ip link set far up
  on_far_machine bash -c 'echo 1 > /proc/sys/net/ipv4/icmp_echo_ignore_all'
}

is_elsewhere() { [[ "$(readlink "/proc/$1/ns/net")" != "$(readlink /proc/self/ns/net)" ]]; }
on_far_machine() { nsenter --net="/proc/$far_machine/ns/net" "$@"; }

# Starts a real Remote Desktop server on the machine that answers no echo.
start_remote_desktop_server() {
  # A server that runs on this machine already would keep another from starting.
  if [[ -e /run/xrdp ]]; then mount -t tmpfs tmpfs /run/xrdp; fi
  cat >"$stage_folder/xrdp.ini" <<INI
[Globals]
ini_version=1
port=3389
fork=false
security_layer=rdp

[Logging]
LogFile=$stage_folder/xrdp.log
EnableSyslog=false

[Xvnc]
name=Xvnc
lib=libvnc.so
INI
  nsenter --net="/proc/$far_machine/ns/net" \
    xrdp --nodaemon --config "$stage_folder/xrdp.ini" >/dev/null 2>&1 &
  stage_processes+=($!)
  wait_for 10 "the Remote Desktop server" grep -qs "listening to port 3389" "$stage_folder/xrdp.log"
}

# take_own_network SCRIPT ARGUMENT: becomes the script with the argument --inside, in a network of its
# own, unless that is the argument already. Sets `network`: whether the machine allows that.
take_own_network() {
  network=false
  if [[ "$2" != --inside ]]; then
    become_on_own_network "$1" --inside
    echo "This machine allows no network namespaces: only what needs no other machine is shown."
  elif ! ip link set lo up || ! add_network_cards; then
    echo "This machine has no virtual network cards: only what needs no other machine is shown."
  else
    echo "In a network of its own: a machine that answers only Remote Desktop, and a silent one."
    network=true
  fi
}

# Starts the machines that a demo checks before this one, as far as there is a network for them.
start_machines() {
  if [[ $network == true ]]; then
    start_network
    start_remote_desktop_server
    machines=("Remote Desktop,$far_address" "Silent,$silent_address")
    expected_lamps="green red green"
  else
    machines=("No Machine,0.0.0.0")
    expected_lamps="red green"
  fi
}
list_machines() {
  printf 'ZR_Kestrava_ConnectionList\r\n'
  printf '%s,Unchecked,Enabled,Unchecked\r\n' "${machines[@]}"
}

# Starts a virtual display, with further options of Xvfb if any are given, and points the programs
# that follow at it, and at nothing else of the user's desktop.
start_display() {
  mkfifo "$stage_folder/display"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset -r "$@" \
    3>"$stage_folder/display" >/dev/null 2>"$stage_folder/Xvfb.log" &
  stage_processes+=($!)
  local number
  read -r -t 30 number <"$stage_folder/display"
  export DISPLAY=":$number" QT_QPA_PLATFORM=xcb
  export XDG_CONFIG_HOME="$stage_folder/config" XDG_RUNTIME_DIR="$stage_folder/runtime"
  export DBUS_SESSION_BUS_ADDRESS="unix:path=$stage_folder/no-bus"
  mkdir -m 700 "$XDG_CONFIG_HOME" "$XDG_RUNTIME_DIR"
  unset WAYLAND_DISPLAY
}

# The same with a Wayland compositor that has neither a screen nor a seat.
start_compositor() {
  export XDG_RUNTIME_DIR=$stage_folder WAYLAND_DISPLAY=compositor QT_QPA_PLATFORM=wayland
  # The toolkit's usual way of input would ask the compositor's seat.
  export QT_IM_MODULE=compose
  unset DISPLAY
  weston --backend=headless-backend.so --socket="$WAYLAND_DISPLAY" --no-config \
    >"$stage_folder/weston.log" 2>&1 &
  stage_processes+=($!)
  wait_for 20 "the compositor" test -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY"
}
