#!/usr/bin/env bash
# Builds the Debian package into dist/: trelvin-replay_<version>_<arch>.deb.
# Install it with: apt install ./dist/trelvin-replay_*.deb
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
# The web page the package carries.
scripts/build-web.sh
cmake -S . -B build-deb -DCMAKE_BUILD_TYPE=Release -DTRELVIN_BUILD_TESTS=OFF > /dev/null
cmake --build build-deb -j"$(nproc)"
mkdir -p dist
(cd build-deb && cpack -G DEB -B "$PWD/../dist" > /dev/null)
rm -rf dist/_CPack_Packages
ls dist/*.deb
