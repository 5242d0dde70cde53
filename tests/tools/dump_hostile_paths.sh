#!/usr/bin/env bash
# trelvin-dump on a path no replay can be prints one load line with the loader's message and
# exits 0, at once and in little memory. Which paths fail, and how, is the loader's to tell.
set -euo pipefail
dump="$1"
dir="$(mktemp -d)"
trap 'rm -rf "$dir"' EXIT
printf '0;Obraz;0;3;3;3' > "$dir/disk.img"
truncate -s 16G "$dir/disk.img"

check() {
  local path="$1" expected="$2" output kilobytes
  output="$( { /usr/bin/time -f '%M' timeout 20 "$dump" "$path" > "$dir/out"; } 2>&1 )"
  kilobytes="${output##*$'\n'}"
  if [ "$(wc -l < "$dir/out")" -ne 1 ] || ! grep -q "Chyba pri nacitani replaye - .*$expected" "$dir/out"; then
    echo "unexpected output for $path:"; cat "$dir/out"; exit 1
  fi
  if [ "$kilobytes" -gt 65536 ]; then echo "$path took ${kilobytes} kB"; exit 1; fi
}
check "$dir/disk.img" "je prilis velky"
echo "hostile path reported"
