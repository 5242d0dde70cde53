#!/usr/bin/env bash
# The browser's build of trelvin-dump (node, WebAssembly) prints what the native one prints,
# byte for byte on standard output and standard error, with the same exit code: on the samples,
# the replays here (odd numbers among them), generated replays, files that fail and wrong usage.
# Usage: dump_matches_native.sh NATIVE-DUMP WEB-DUMP GENERATOR REPLAY...
set -euo pipefail
native="$1" web="$2" generate="$3"
shift 3
dir="$(mktemp -d)"
trap 'rm -rf "$dir"' EXIT

"$generate" 20 15 6 3000 7 > "$dir/generated-20x15.trp"
"$generate" 9 7 3 800 3 > "$dir/generated-9x7.trp"
printf '0;Spatny;x;3;2;3\r\n' > "$dir/bad-header.trp"
: > "$dir/empty.trp"
replays=("$@" "$dir"/*.trp "$dir/missing.trp" "$dir")

compared=0 failed=0
same() {
  local status=0
  "$native" "$@" > "$dir/native.out" 2> "$dir/native.err" || status=$?
  echo "$status" > "$dir/native.status"
  status=0
  node "$web" "$@" > "$dir/web.out" 2> "$dir/web.err" || status=$?
  echo "$status" > "$dir/web.status"
  compared=$((compared + 1))
  for part in out err status; do
    if ! cmp -s "$dir/native.$part" "$dir/web.$part"; then
      echo "differs ($part): trelvin-dump $*"
      cmp "$dir/native.$part" "$dir/web.$part" | head -1 || true
      failed=$((failed + 1))
      return
    fi
  done
}

for replay in "${replays[@]}"; do
  same "$replay"
  for view in all les louka; do same --tiles --view "$view" "$replay"; done
  same --csv "$replay"
done
same --view sideways "$1"
same --csv --tiles "$1"
same
same --help
same --version

echo "$((compared - failed)) passed, $failed failed"
[ "$failed" -eq 0 ]
