#!/usr/bin/env bash
# Runs the real program through so many probes (100000) of machines that answer, are silent, refuse
# or misbehave, in a network of its own, and prints its memory, descriptors and threads at the start
# and at the end. Fails if any of them grew. Every pass ends in the tray, with a balloon of what
# failed, and a click on that balloon brings the window back.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/packages.sh
source scripts/stage.sh
source scripts/hand.sh

if [[ "${1-}" != --inside ]]; then
  install_missing "${build_packages[@]}" "${run_packages[@]}" "${stage_packages[@]}" \
    "${test_packages[@]}"
  cmake --preset release -DBUILD_TESTING=OFF -DKESTRAVA_BUILD_BENCH=OFF
  cmake --build --preset release
  become_on_own_network "$PWD/bench/soak.sh" --inside "$@"
  echo "This machine allows no network namespaces, and nothing is probed outside of one." >&2
  exit 1
fi
probes=${2:-100000}
rows=2500
warm_up_passes=3
# A leak of the least block that memory is given out in, 32 bytes, at each of 100000 probes is six
# times this.
most_kibibytes=512

open_stage
ip link set lo up
add_network_cards
start_network
echo "$(id -g) $(id -g)" >/proc/sys/net/ipv4/ping_group_range

# add_machine_like NAME END WORDS PAUSE: one more address of the machine that answers no echo, whose
# open port behaves so (tests/support/peer.py).
others=()
add_machine_like() {
  local address=192.0.2.$((10 + ${#others[@]}))
  on_far_machine ip address add "$address/24" dev far
  nsenter --net="/proc/$far_machine/ns/net" tests/support/peer.py "${@:2}" "$address" \
    >"$stage_folder/peer" &
  stage_processes+=($!)
  wait_for 5 "the peer \"$1\"" grep -qs ready "$stage_folder/peer"
  : >"$stage_folder/peer"
  others+=("$1,$address")
}
confirm=030000130ed000001234000201080001000000
add_machine_like "Remote Desktop" stays "$confirm" 0
add_machine_like "Another protocol" stays 5353482d322e302d780d0a 0
add_machine_like "Trickling" stays "$confirm" 0.4
add_machine_like "Flooding" floods "$confirm" 0
add_machine_like "Says nothing" stays "" 0
add_machine_like "Closing" closes "" 0
add_machine_like "Closing half-way" closes "${confirm:0:18}" 0
add_machine_like "Resetting" resets "" 0
others+=("Refusing,$far_address" "Silent,$silent_address")
# A router that knows no way on.
ip route add 198.51.100.0/24 via "$far_address"
on_far_machine ip route add unreachable 198.51.100.0/24
on_far_machine bash -c 'cd /proc/sys/net/ipv4; echo 1 >ip_forward; echo 0 >icmp_ratelimit'
others+=("Out of reach,198.51.100.1")

start_display
list=$stage_folder/soak.kvl
{
  printf 'ZR_Kestrava_ConnectionList\r\n'
  printf '%s,Unchecked,Enabled,Unchecked\r\n' "${others[@]}"
  for ((row = ${#others[@]}; row < rows; row++)); do
    printf 'Machine %d,127.0.%d.%d,Unchecked,Enabled,Unchecked\r\n' \
      $row $((row / 250)) $((row % 250 + 1))
  done
} >"$list"
mkdir "$XDG_CONFIG_HOME/Kestrava"
printf '[Preferences]\nAutoLoadList=1\nLastListFile=%s\nInterval=1000\n' "$list" \
  >"$XDG_CONFIG_HOME/Kestrava/Kestrava.conf"
build/kestrava &
kestrava=$!
stage_processes+=("$kestrava")

# Echo requests that were sent from this network.
echoes() {
  awk '$1 == "Icmp:" {for (i = 2; i <= NF; i++) if ($i == "OutEchos") place = i; count = $place}
    END {print count}' /proc/net/snmp
}
find_balloon() {
  balloon=$(visible_windows | grep -vxf "$stage_folder/known_windows")
  [[ -n "$balloon" ]]
}
# One pass from the button to the balloon, and back to the window.
pass() {
  local before
  before=$(echoes)
  take_window Kestrava
  main_window=$window
  click 10500 5100  # "Check Now !"
  xdotool key alt+f Up Up Return  # "Send to Tray"
  wait_for 5 "the hidden window" is_gone Kestrava
  visible_windows >"$stage_folder/known_windows"
  wait_for 120 "the balloon" find_balloon
  xdotool windowfocus "$balloon" mousemove --window "$balloon" 60 30 click 1
  wait_for 5 "the window" find_window Kestrava
  if (($(echoes) - before != rows)); then
    echo "A pass over $rows machines sent $(($(echoes) - before)) echoes." >&2
    return 1
  fi
}
# Prints what the program holds while nothing happens: KiB of memory, descriptors and threads.
holdings() {
  sleep 7
  local status=/proc/$kestrava/status
  echo "$(sed -n 's/^VmRSS:\s*\([0-9]*\).*/\1/p' $status) $(find /proc/$kestrava/fd -type l | wc -l)" \
    "$(sed -n 's/^Threads:\s*//p' $status)"
}

for ((done = 0; done < warm_up_passes; done++)); do pass; done
read -r memory descriptors threads < <(holdings)
echo "start: $memory KiB, $descriptors descriptors, $threads threads"
start=$(echoes)
while (($(echoes) - start < probes)); do pass; done
read -r last_memory last_descriptors last_threads < <(holdings)
echo "end: $last_memory KiB, $last_descriptors descriptors, $last_threads threads" \
  "after $(($(echoes) - start)) probes in $SECONDS seconds"
kill -TERM "$kestrava"
wait "$kestrava"
if ((last_memory > memory + most_kibibytes || last_descriptors > descriptors ||
  last_threads > threads)); then
  echo "The program grew." >&2
  exit 1
fi
echo "Nothing grew."
