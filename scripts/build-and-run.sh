#!/usr/bin/env bash
# Builds the viewer and starts it on the bundled battle sample (or on the replay given).
set -euo pipefail
replay="$(realpath "${1:-$(dirname "$0")/../samples/bitva-u-potoka.trp}")"
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null
cmake --build build -j"$(nproc)" --target trelvin-replay
exec build/src/trelvin-replay "$replay"
