#!/usr/bin/env bash
# Builds the last commit once more, in a clone in another folder, and compares the program and the
# Debian package with those of this folder byte for byte. They must be built here already, of that
# same commit (scripts/check_package.sh).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
if [[ -n $(git status --porcelain --untracked-files=no) ]]; then
  echo "There are changes that aren't committed, so nothing is compared."
  exit
fi
clone=$(mktemp -d)
trap 'rm -rf "$clone"' EXIT
git clone -q . "$clone"
here=$PWD
cd "$clone"
cmake --preset release -DBUILD_TESTING=OFF >/dev/null
cmake --build --preset release
(cd build && cpack -G DEB >/dev/null)
for file in build/kestrava build/kestrava_*.deb; do
  cmp "$file" "$here/$file"
done
echo "The same commit gives the same bytes."
