#!/usr/bin/env bash
# trelvin-export with no display: silent and 0 when the file is written, the usage and 2 after a
# wrong argument, one line and 1 when the replay, an action or the output fails, with no file
# left behind.
set -euo pipefail
program="$1"
samples="$2"
dir="$(mktemp -d)"
trap 'rm -rf "$dir"' EXIT
battle="$samples/bitva-u-potoka.trp"
touch "$dir/plain"
mkdir "$dir/out" "$dir/taken.png"

run() {  # expected status, then the arguments; the output goes to $dir/stdout and $dir/stderr
  local expected="$1" status=0
  shift
  env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$program" "$@" > "$dir/stdout" 2> "$dir/stderr" || status=$?
  if [ "$status" -ne "$expected" ]; then
    echo "exit $status, not $expected: $*"; cat "$dir/stderr"; exit 1
  fi
  [ ! -s "$dir/stdout" ] || { echo "printed on standard output: $*"; exit 1; }
}

# Written: nothing printed, a file of the format asked for.
run 0 "$battle" --at 40 -o "$dir/out/a.png"
run 0 "$battle" --at 1 --to 89 --view les --field 12 --labels --caption --delay 100 -o "$dir/out/a.gif"
run 0 "$battle" --at=80 --to=89 --view=louka -o "$dir/out/a.webp"
[ ! -s "$dir/stderr" ] || { echo "printed on standard error:"; cat "$dir/stderr"; exit 1; }
file --brief "$dir/out/a.png" | grep -q "PNG image data, 160 x 120" || { file "$dir/out/a.png"; exit 1; }
file --brief "$dir/out/a.gif" | grep -q "GIF image data, version 89a" || { file "$dir/out/a.gif"; exit 1; }
file --brief "$dir/out/a.webp" | grep -q "Web/P image" || { file "$dir/out/a.webp"; exit 1; }
expected="$(ls -A "$dir/out")"

# Wrong arguments: the usage on standard error.
for arguments in "" "$battle" "$battle --at 1" "$battle --at x -o $dir/out/b.png" "$battle --at 1 --view sideways -o $dir/out/b.png" \
                 "$battle --at 1 --field 81 -o $dir/out/b.png" "$battle --at 1 --to 2 -o $dir/out/b.png" \
                 "$battle --at 1 -o $dir/out/b.jpg" "$battle --at 5 --to 4 -o $dir/out/b.gif" "$battle --no-such-option"; do
  # shellcheck disable=SC2086
  run 2 $arguments
  grep -q "^usage: trelvin-export" "$dir/stderr" || { echo "no usage for: $arguments"; exit 1; }
done

# Failures: exactly one line, and nothing left in the output's folder.
printf 'no replay\r\n' > "$dir/junk.trp"
one_line() {
  run 1 "$@"
  [ "$(wc -l < "$dir/stderr")" -eq 1 ] || { echo "not one line for: $*"; cat "$dir/stderr"; exit 1; }
  [ "$(ls -A "$dir/out")" = "$expected" ] || { echo "left a file: $*"; ls -A "$dir/out"; exit 1; }
}
one_line "$dir/missing.trp" --at 1 -o "$dir/out/b.png"
one_line "$dir/junk.trp" --at 1 -o "$dir/out/b.png"
one_line "$battle" --at 0 -o "$dir/out/b.png"
one_line "$battle" --at 90 -o "$dir/out/b.png"
one_line "$battle" --at 80 --to 90 -o "$dir/out/b.gif"
one_line "$battle" --at 1 -o "$dir/missing/b.png"
one_line "$battle" --at 1 -o "$dir/plain/b.png"
one_line "$battle" --at 1 -o "$dir/taken.png"
[ -d "$dir/taken.png" ] || { echo "the folder was replaced"; exit 1; }
# A disk that fills up half way: files may grow to one kilobyte.
( trap '' XFSZ; ulimit -f 1; one_line "$battle" --at 1 --to 89 --caption -o "$dir/out/b.gif" )
echo "all exit statuses as documented"
