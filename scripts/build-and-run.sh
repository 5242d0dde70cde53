#!/usr/bin/env bash
# Builds the viewer and starts it on a bundled sample replay (or on the file given).
# While the window is not part of the build yet, prints the replay with trelvin-dump instead.
set -euo pipefail
replay="$(realpath "${1:-$(dirname "$0")/../samples/alfa.trp}")"
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null
if grep -q '/trelvin-replay\.dir$' build/CMakeFiles/TargetDirectories.txt; then
  cmake --build build -j"$(nproc)" --target trelvin-replay
  exec build/src/trelvin-replay "$replay"
fi
echo "The window is not built yet; printing $replay with trelvin-dump." >&2
cmake --build build -j"$(nproc)" --target trelvin-dump
exec build/tools/trelvin-dump "$replay"
