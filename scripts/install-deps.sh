#!/usr/bin/env bash
# Installs the Debian packages the build needs, only when some are missing (run as root).
set -euo pipefail
packages=(cmake g++ make pkg-config qt6-base-dev libgl-dev nlohmann-json3-dev libgtest-dev
          googletest libbenchmark-dev "$@")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" > /dev/null
fi
