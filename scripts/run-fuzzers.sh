#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a fixed time (default 30 s).
# Usage: scripts/run-fuzzers.sh [SECONDS] [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-30}"
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(fuzz_loader fuzz_replay fuzz_field_names fuzz_redraw)

CC=clang CXX=clang++ cmake -S . -B build-fuzz -DTRELVIN_FUZZ=ON -DTRELVIN_BUILD_UI=OFF \
  -DTRELVIN_BUILD_TESTS=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null
cmake --build build-fuzz -j"$(nproc)" --target "${targets[@]}"

# Seeds: the bundled samples and the tests' replay files, plus a few hand-made inputs.
corpus=build-fuzz/corpus
for target in "${targets[@]}"; do
  mkdir -p "$corpus/$target"
  case "$target" in
    fuzz_loader|fuzz_replay) cp samples/*.trp tests/data/*.trp "$corpus/$target/" 2>/dev/null || true ;;
    fuzz_field_names) cp fuzz/seeds/field_names/* "$corpus/$target/" ;;
    fuzz_redraw) cp fuzz/seeds/redraw/* "$corpus/$target/" ;;
  esac
done

for target in "${targets[@]}"; do
  echo "== $target for ${seconds}s"
  "build-fuzz/fuzz/$target" -max_total_time="$seconds" -timeout=20 -max_len=65536 \
    -artifact_prefix="build-fuzz/$target-" -print_final_stats=1 "$corpus/$target" 2>&1 |
    grep -E 'stat::number_of_executed_units|ERROR|SUMMARY|Done' || true
  if ls "build-fuzz/$target-"* > /dev/null 2>&1; then
    echo "finding in $target: $(ls build-fuzz/$target-*)"
    exit 1
  fi
done
