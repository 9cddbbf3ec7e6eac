#!/usr/bin/env bash
# installed.sh BUILD_FOLDER: what is installed has its program, its icons, its manual and its setting.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/stage.sh"
if [[ "$1" != --inside ]]; then
  become_on_own_network "$0" --inside "$@"
  exit 77 # this machine allows no network of one's own, so the test is skipped
fi
open_stage
usr=$stage_folder/usr
DESTDIR=$stage_folder cmake --install "$2" --prefix /usr >/dev/null

entry=$usr/share/applications/kestrava.desktop
said_by_entry() { sed -n "s/^$1=//p" "$entry"; }
"$usr/bin/$(said_by_entry Exec)" --version

# The sizes that the desktops ask for. The width stands in the bytes 16 to 19 (RFC 2083, "Image header").
for size in 16 22 32 48 64 128 256; do
  icon=$usr/share/icons/hicolor/${size}x$size/apps/$(said_by_entry Icon).png
  (($(od -An -tu4 --endian=big -j16 -N4 "$icon") == size))
done

manual=$usr/share/kestrava/manual
pictures=$(grep -o 'KVManual/[^"]*' "$manual/KVManual.html")
for picture in $pictures; do
  [[ -s "$manual/$picture" ]]
done
[[ -s $usr/share/man/man1/kestrava.1 ]]

# A range of groups can be set where they all exist.
if [[ $(</proc/self/gid_map) == *4294967295 ]]; then
  sed -n 's/^-net.ipv4.ping_group_range = //p' "$usr"/lib/sysctl.d/*.conf >/proc/sys/net/ipv4/ping_group_range
  setpriv --reuid=65534 --regid=65534 --clear-groups --bounding-set=-all \
    /usr/bin/python3 -c 'import socket; socket.socket(socket.AF_INET, socket.SOCK_DGRAM, socket.IPPROTO_ICMP)'
fi
