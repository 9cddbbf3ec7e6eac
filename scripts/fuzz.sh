#!/usr/bin/env bash
# Builds the fuzzers and runs each for so many seconds (60), two at a time. An input that one fails
# on is left in build-fuzz.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export seconds=${1:-60}

cmake --preset fuzz
cmake --build --preset fuzz
TMPDIR=$(mktemp -d)
trap 'rm -rf "$TMPDIR"' EXIT
# A damaged setting may announce any size. It gets no more than this, as on a small machine.
export ASAN_OPTIONS=allocator_may_return_null=1:max_allocation_size_mb=1000
export TMPDIR QT_QPA_PLATFORM=offscreen

fuzz() {
  local log=build-fuzz/$1.log
  cp -r "tests/fuzz/corpus/$1" "$TMPDIR"
  if ! "build-fuzz/tests/fuzz/$1_fuzz" -max_total_time="$seconds" -print_final_stats=1 \
    -artifact_prefix="$PWD/build-fuzz/$1-" "$TMPDIR/$1" >"$log" 2>&1; then
    tail -n 40 "$log"
    return 1
  fi
  echo "$1: $(sed -n 's/.*number_of_executed_units: //p' "$log") inputs"
}
export -f fuzz
ls tests/fuzz/corpus | xargs -P 2 -I '{}' bash -c 'fuzz {}'
