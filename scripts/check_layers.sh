#!/usr/bin/env bash
# Holds the direction of the layers: the logic includes the standard library, itself and
# src/platform/*.h; within it the rooms know nothing of each other nor of the main window, and what
# they share knows no room; an interface includes only interfaces; the Linux layer includes no Qt;
# and no files include each other in a circle.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../src"

# Every include of the sources as a line "file <header>" or "file "header"".
includes=$(grep -rE '^ *# *include' --include='*.h' --include='*.cpp' . |
  sed -E 's|^\./([^:]*):[^<"]*|\1 |')
failed=false

# forbid WHAT FILES HEADERS: no file whose name fits the first pattern includes a header that fits
# the second.
forbid() {
  if grep -E "^($2) ($3)" <<<"$includes" >&2; then
    echo "Forbidden: $1." >&2
    failed=true
  fi
}

interfaces='platform/[^/ ]*'
desktop="main(_windows)?\.cpp|platform/(linux|linux_desktop|qt|win32)/[^ ]*"
logic=$(cut -d' ' -f1 <<<"$includes" | sort -u | grep -vE "^($interfaces|$desktop)$" | paste -sd'|')
# A standard header has neither a capital letter nor an ending; one of the system or of Qt has.
foreign='<[^>]*[^a-z_>]'
forbid "the logic and the interfaces are standard C++ only" "$interfaces|$logic" "$foreign"
forbid "the logic knows no desktop" "$interfaces|$logic" \
  '"platform/(linux|linux_desktop|qt|win32)/|"[^/]*"'
rooms='editing help lists probes settings tray'
for room in $rooms; do
  others=$(tr ' ' '\n' <<<"$rooms" | grep -v "^$room$" | paste -sd'|')
  forbid "a room knows no other room" "$room/[^ ]*" "\"($others|monitor)/"
done
forbid "what the rooms share knows no room" "(shared|general)/[^ ]*" "\"(${rooms// /|}|monitor)/"
forbid "the general helpers know no table" "general/[^ ]*" '"shared/'
forbid "what the desktops share is theirs alone" "$interfaces|[^p][^ ]*|p[^l][^ ]*" \
  '"platform/(net|text)/'
forbid "an interface and what the desktops share know no logic" \
  "$interfaces|platform/(net|text)/[^ ]*" '"([^p]|p[^l])'
forbid "the Linux layer knows neither Qt nor the logic" "platform/linux/[^ ]*" \
  '<Q|"platform/(qt|linux_desktop)/|"([^p]|p[^l])'
forbid "the portable Qt layer knows Qt's windows only, neither the system below nor the logic" \
  "platform/qt/[^ ]*" '<(QDBus|xcb|X11|dbus|linux|sys/|[a-z_0-9]*\.h)|"platform/linux|"([^p]|p[^l])[^"]*/'
forbid "the Linux desktop knows no logic" "platform/linux_desktop/[^ ]*" '"([^p]|p[^l])[^"]*/'
forbid "the Windows layer knows neither the others nor the logic" "platform/win32/[^ ]*" \
  '"platform/(linux|linux_desktop|qt)/|"([^p]|p[^l])'

# tsort names every circle and fails on it.
if ! sed -n 's/"//gp' <<<"$includes" | tsort >/dev/null; then failed=true; fi

if [[ $failed == true ]]; then exit 1; fi
echo "The layers hold."
