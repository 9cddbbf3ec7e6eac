#!/usr/bin/env bash
# Builds Kestrava with its benchmarks and prints each figure as "name value target ok|short". What
# the figures were made of goes to standard error. With names of figures as arguments, only these
# are measured. With --windows first, it is the program for Windows, under Wine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh
source scripts/stage.sh
source scripts/wine_stage.sh

option=
if [[ "${1-}" == --windows ]]; then
  option=$1
  shift
fi
if [[ "${1-}" != --inside ]]; then
  {
    if [[ -n "$option" ]]; then
      install_missing "${build_packages[@]}" "${run_packages[@]}" "${stage_packages[@]}" \
        "${windows_packages[@]}" "${wine_packages[@]}" openbox
      cmake --preset windows -DBUILD_TESTING=OFF -DKESTRAVA_BUILD_BENCH=ON
      cmake --build --preset windows
    else
      install_missing "${build_packages[@]}" "${run_packages[@]}" "${stage_packages[@]}" \
        "${bench_packages[@]}"
      cmake --preset release -DBUILD_TESTING=OFF -DKESTRAVA_BUILD_BENCH=ON
      cmake --build --preset release
    fi
  } >&2
  become_on_own_network "$PWD/bench.sh" ${option:+"$option"} --inside "$@"
  echo "This machine allows no network namespaces, and nothing is measured outside of one." >&2
  exit 1
fi

open_stage
ip link set lo up
add_network_cards
start_network
# The group that the program runs under may open ICMP sockets, as on most desktops.
echo "$(id -g) $(id -g)" >/proc/sys/net/ipv4/ping_group_range
start_display
if [[ -z "$option" ]]; then
  build/bench/kestrava_bench "$silent_address" "$far_address" "${@:2}"
  exit
fi
# Every call goes to Wine's server, another process: what the way there takes would depend on which
# cores the two happen to be on.
allowed=$(sed -n 's/^Cpus_allowed_list:\s*//p' /proc/self/status)
taskset --cpu-list --pid "${allowed%%[,-]*}" $$ >&2
start_wine
# Without a window manager Wine waits two seconds for one when a tray icon goes.
openbox >"$stage_folder/openbox.log" 2>&1 </dev/null &
# Wine's services keep whatever pipe they are given.
touch "$stage_folder/figures" "$stage_folder/made_of"
wine build-windows/bench/kestrava_bench.exe "$silent_address" "$far_address" "${@:2}" \
  >"$stage_folder/figures" 2>"$stage_folder/made_of" </dev/null &
bench=$!
tail -n +1 -f --pid="$bench" "$stage_folder/made_of" >&2 &
tails=($!)
tail -n +1 -f --pid="$bench" "$stage_folder/figures" &
tails+=($!)
result=0
wait "$bench" || result=$?
wait "${tails[@]}"
exit "$result"
