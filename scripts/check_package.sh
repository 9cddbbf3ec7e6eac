#!/usr/bin/env bash
# Builds the Debian package and holds what is in it to the rules: the package itself, its desktop
# entry, its metainfo, its manual page, and one version throughout.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/packages.sh
install_missing "${build_packages[@]}" "${package_packages[@]}"

cmake --preset release -DBUILD_TESTING=OFF -DKESTRAVA_BUILD_BENCH=OFF >/dev/null
cmake --build --preset release
rm -f build/kestrava_*.deb
(cd build && cpack -G DEB)
package=$(echo build/kestrava_*.deb)

content=$(mktemp -d)
trap 'rm -r "$content"' EXIT
dpkg-deb --extract "$package" "$content"
share=$content/usr/share

desktop-file-validate "$share/applications/kestrava.desktop"
metainfo=$share/metainfo/example.kestrava.kestrava.metainfo.xml
appstreamcli validate --no-net "$metainfo"

# Control flow integrity is compiled in, but Debian's own start of a program lacks its mark.
hardening-check --nocfprotection "$content/usr/bin/kestrava" >"$content/hardening" || {
  cat "$content/hardening" >&2
  exit 1
}

# Both only warn: any word of theirs counts as a failure.
page=$share/man/man1/kestrava.1.gz
warnings=$(
  {
    LC_ALL=C.UTF-8 man --warnings --local-file "$page"
    zcat "$page" | groff -ww -man -Tutf8
  } 2>&1 >/dev/null
) || warnings+=" (it could not be shown)"
if [[ -n $warnings ]]; then
  echo "The manual page: $warnings" >&2
  exit 1
fi

# The name that sorts last decides, and an administrator's may begin with any digits.
first=$(printf '%s\n' 0-administrator.conf "$(ls "$content/usr/lib/sysctl.d")" | LC_ALL=C sort | head -n 1)
[[ $first == 0-0-kestrava.conf ]] || {
  echo "The kernel setting overrides an administrator's." >&2
  exit 1
}

version=$(dpkg-deb --field "$package" Version)
[[ $version == "$(dpkg-parsechangelog -l packaging/debian/changelog -S Version)" ]] || {
  echo "The changelog has another version than the package's $version." >&2
  exit 1
}
[[ $(grep -m1 '<release ' "$metainfo") == *" version=\"${version%-*}\" "* ]] || {
  echo "The metainfo's latest release is another one than ${version%-*}." >&2
  exit 1
}

# No bug of Debian's asks for this package, so its changelog closes none.
lintian --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs "$package"
echo "The package is whole: $package"
