#!/usr/bin/env bash
# Builds Kestrava and starts it. With --demo, or where there is no display, it is shown at work on a
# virtual display instead. With --windows it builds the program for Windows and its setup program and
# tells where they lie; then --demo shows that one at work, under Wine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh

demo=false
windows=false
for argument in "$@"; do
  case "$argument" in
    --demo) demo=true ;;
    --windows) windows=true ;;
    *)
      echo "usage: ./run.sh [--windows] [--demo]" >&2
      exit 2
      ;;
  esac
done

if [[ $windows == true ]]; then
  packages=("${windows_packages[@]}")
  if [[ $demo == true ]]; then packages+=("${wine_packages[@]}" "${stage_packages[@]}"); fi
  install_missing "${packages[@]}"

  cmake --preset windows -DBUILD_TESTING=OFF
  cmake --build --preset windows --target kestrava setup
  echo "The program is build-windows/kestrava.exe, its setup program $(echo build-windows/*-setup.exe)."
  if [[ $demo == true ]]; then exec scripts/demo_windows.sh; fi
  exit
fi

if [[ -z "${DISPLAY-}${WAYLAND_DISPLAY-}" && $demo == false ]]; then
  echo "There is no display here, so this is the demo on a virtual one."
  demo=true
fi

packages=("${build_packages[@]}" "${run_packages[@]}")
if [[ $demo == true ]]; then
  packages+=("${stage_packages[@]}")
fi
install_missing "${packages[@]}"

cmake --preset release -DBUILD_TESTING=OFF -DKESTRAVA_BUILD_BENCH=OFF
cmake --build --preset release
if [[ $demo == true ]]; then exec scripts/demo.sh; fi
exec build/kestrava
