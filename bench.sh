#!/usr/bin/env bash
# Builds Kestrava with its benchmarks and prints each figure as "name value target ok|short". What
# the figures were made of goes to standard error. With names of figures as arguments, only these
# are measured.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh
source scripts/stage.sh

if [[ "${1-}" != --inside ]]; then
  {
    install_missing "${build_packages[@]}" "${run_packages[@]}" "${stage_packages[@]}" \
      "${bench_packages[@]}"
    cmake --preset release -DBUILD_TESTING=OFF -DKESTRAVA_BUILD_BENCH=ON
    cmake --build --preset release
  } >&2
  become_on_own_network "$PWD/bench.sh" --inside "$@"
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
build/bench/kestrava_bench "$silent_address" "$far_address" "${@:2}"
