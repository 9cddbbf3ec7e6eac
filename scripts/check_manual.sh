#!/usr/bin/env bash
# Holds the manual to being one well-formed page that needs no script and nothing from outside: each
# of its pictures lies beside it, in the size that the page says, and all together are below 300 KB.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../web"

tidy -errors -quiet KVManual.html
if grep -nE '<(script|iframe|object)|@import|url\(|//[a-z]' KVManual.html; then
  echo "The manual asks for something from outside." >&2
  exit 1
fi
# The size of a PNG picture stands in its bytes 16 to 23 (RFC 2083, "Image header").
sizes_of_pictures() {
  local picture
  for picture in KVManual/*.png; do
    od -An -tu4 --endian=big -j16 -N8 "$picture" | sed -E "s|^ *([0-9]+) +|$picture \\1 |"
  done
}
sizes_on_page() {
  sed -nE 's/.*<img src="([^"]*)" width="([0-9]+)" height="([0-9]+)".*/\1 \2 \3/p' KVManual.html
}
diff <(sizes_on_page | sort) <(sizes_of_pictures | sort)
(($(cat KVManual.html KVManual/*.png | wc -c) < 300000))
echo "The manual is whole."
