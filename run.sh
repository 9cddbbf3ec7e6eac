#!/usr/bin/env bash
# Builds Kestrava and starts it. With --demo, or where there is no display, it is shown at work on a
# virtual display instead.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh

demo=false
case "$*" in
  "") ;;
  --demo) demo=true ;;
  *)
    echo "usage: ./run.sh [--demo]" >&2
    exit 2
    ;;
esac
if [[ -z "${DISPLAY-}${WAYLAND_DISPLAY-}" && $demo == false ]]; then
  echo "There is no display here, so this is the demo on a virtual one."
  demo=true
fi

packages=("${build_packages[@]}" "${run_packages[@]}")
if [[ $demo == true ]]; then
  packages+=("${stage_packages[@]}")
fi
install_missing "${packages[@]}"

cmake --preset release -DKESTRAVA_BUILD_TESTS=OFF -DKESTRAVA_BUILD_BENCH=OFF
cmake --build --preset release
if [[ $demo == true ]]; then exec scripts/demo.sh; fi
exec build/kestrava
