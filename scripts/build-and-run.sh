#!/usr/bin/env bash
# Builds the viewer and starts it on the bundled sample replay (or on the file given).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null
cmake --build build -j"$(nproc)" --target trelvin-replay
exec build/src/trelvin-replay "${1:-samples/bitva-u-potoka.trp}"
