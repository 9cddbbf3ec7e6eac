#!/usr/bin/env bash
# Builds Kestrava with its tests and runs them. Arguments go to ctest, for example: -R Probe
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh
install_missing "${build_packages[@]}" "${run_packages[@]}" "${stage_packages[@]}" \
  "${test_packages[@]}"

cmake --preset test -DKESTRAVA_BUILD_BENCH=OFF
cmake --build --preset test
exec ctest --preset test -j2 "$@"
