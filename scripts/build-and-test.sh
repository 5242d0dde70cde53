#!/usr/bin/env bash
# Builds everything and runs every test. Options:
#   --sanitize   also build in build-asan with AddressSanitizer + UBSan and run the suite there
#   --fuzz       also run each fuzz target for 30 seconds (clang, libFuzzer)
set -euo pipefail
cd "$(dirname "$0")/.."
sanitize=0 fuzz=0
for option in "$@"; do
  case "$option" in
    --sanitize) sanitize=1 ;;
    --fuzz) fuzz=1 ;;
    *) echo "usage: $0 [--sanitize] [--fuzz]" >&2; exit 2 ;;
  esac
done
# The tests' own tools: the package check, the Czech desktop, the memory of the dump, the
# kinds of the exported files.
extra=(dpkg-dev lintian appstream man-db locales time file)
[ $fuzz -eq 1 ] && extra+=(clang libclang-rt-14-dev)
scripts/install-deps.sh "${extra[@]}"
# Before the configure: the suite registers the browser build's tests when it finds that build.
scripts/build-web.sh

export QT_QPA_PLATFORM=offscreen
werror=OFF
[ -n "${CI:-}" ] && werror=ON
jobs="$(nproc)"

run_suite() {
  local dir="$1"; shift
  cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTRELVIN_WERROR=$werror \
    -DTRELVIN_BUILD_BENCH=ON "$@" > /dev/null
  cmake --build "$dir" -j"$jobs"
  ctest --test-dir "$dir" --output-on-failure -j"$jobs"
}

run_suite build
if [ $sanitize -eq 1 ]; then
  # Leaks only inside system libraries are suppressed; any in our code fail the test.
  ASAN_OPTIONS=detect_leaks=1 LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0" \
    UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    run_suite build-asan -DTRELVIN_SANITIZE=ON
fi
if [ $fuzz -eq 1 ]; then
  scripts/run-fuzzers.sh 30
fi
