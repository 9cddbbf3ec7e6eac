#!/usr/bin/env bash
# Runs the test program for Windows in a network of its own, beside the machines that it asks for.
# Wine is of that network, too: its server makes the sockets.
set -euo pipefail
program=$1
cd "$(dirname "${BASH_SOURCE[0]}")/../../.."
source scripts/stage.sh
source scripts/wine_stage.sh

if [[ "${2-}" != --inside ]]; then
  become_on_own_network "$PWD/tests/network/win32/under_wine.sh" "$program" --inside
  echo "no network namespace can be made here"
  exit 77
fi
open_stage
unshare --net sleep infinity &
far_machine=$!
stage_processes+=("$far_machine")
wait_for 20 "a second network" is_elsewhere "$far_machine"
ip link add own type veth peer name peer netns "$far_machine" || exit 77
tests/support/network.sh own
on_far_machine tests/support/network.sh peer

unset DISPLAY WAYLAND_DISPLAY
start_wine
while IFS='|' read -r end words pause address; do
  on_far_machine ip addr add "$address/16" dev peer
  nsenter --net="/proc/$far_machine/ns/net" \
    tests/support/peer.py "$end" "$words" "$pause" "$address" >"$stage_folder/$address" &
  stage_processes+=($!)
  wait_for 20 "the peer $address" test -s "$stage_folder/$address"
done < <(wine "$program" peers 2>/dev/null </dev/null | tr -d '\r')
# Wine's services keep whatever pipe they are given.
result=0
wine "$program" >"$stage_folder/output" 2>&1 </dev/null || result=$?
cat "$stage_folder/output"
exit "$result"
