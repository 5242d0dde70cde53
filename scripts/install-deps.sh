#!/usr/bin/env bash
# Installs the Debian packages the build and the program need, and any given as arguments,
# only when some are missing (run as root).
set -euo pipefail
build=(cmake g++ make pkg-config qt6-base-dev qt6-charts-dev libgl-dev nlohmann-json3-dev libgtest-dev googletest
       libbenchmark-dev libgif-dev libwebp-dev)
# What the program loads at run time; the .deb depends on the same.
runtime=(qt6-qpa-plugins qt6-translations-l10n fonts-liberation2 fonts-comic-neue libgif7 libwebp7 libwebpmux3
         libqt6charts6)
missing=()
for p in "${build[@]}" "${runtime[@]}" "$@"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" > /dev/null
fi
