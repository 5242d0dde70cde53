#!/usr/bin/env bash
# Builds the browser's version into build-web/, installing what is missing first (Debian, as root):
#   build-web/trelvin-dump.js       trelvin-dump for node: node build-web/trelvin-dump.js [OPTIONS] FILE
#   build-web/trelvin-replay.html   the page, self-contained: core, script, style and pictures inside
# The core is compiled by Debian's emscripten through CMake (build-web/cmake); the page's script
# by esbuild after a type check, with the packages of web/package-lock.json.
set -euo pipefail
cd "$(dirname "$0")/.."

# Installed only when missing. node and npm may come from elsewhere than Debian (a newer node
# with its own npm): only their commands are checked, so that apt does not replace them.
packages=(cmake make nlohmann-json3-dev emscripten chromium)
command -v node > /dev/null || packages+=(nodejs)
command -v npm > /dev/null || packages+=(npm)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" > /dev/null
fi

# emscripten's tools run on node and need Debian's node modules (acorn), which only Debian's own
# node finds by itself.
export NODE_PATH="/usr/share/nodejs${NODE_PATH:+:$NODE_PATH}"
# Warnings fail CI here as in the native build: clang may see what g++ does not.
werror=OFF
[ -n "${CI:-}" ] && werror=ON
emcmake cmake -S . -B build-web/cmake -DCMAKE_BUILD_TYPE=Release -DTRELVIN_WERROR=$werror \
  -DTRELVIN_BUILD_UI=OFF -DTRELVIN_BUILD_TESTS=OFF > /dev/null
cmake --build build-web/cmake -j"$(nproc)" --target trelvin-dump trelvin-web-core
cp build-web/cmake/tools/trelvin-dump.js build-web/trelvin-dump.js

# The packages again only when the lock file changed since they were installed.
if [ ! -f web/node_modules/.package-lock.json ] || [ web/package-lock.json -nt web/node_modules/.package-lock.json ]; then
  (cd web && npm ci --no-audit --no-fund --loglevel=error)
fi
web/node_modules/.bin/tsc --noEmit -p web
node web/build.mjs build-web/cmake/web
