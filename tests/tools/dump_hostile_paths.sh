#!/usr/bin/env bash
# trelvin-dump on paths no replay can be: each prints one load line with the loader's message
# and exits 0, at once and in little memory.
set -euo pipefail
dump="$1"
dir="$(mktemp -d)"
trap 'rm -rf "$dir"' EXIT
printf '0;Obraz;0;3;3;3' > "$dir/disk.img"
truncate -s 16G "$dir/disk.img"
mkfifo "$dir/pipe"
{ printf '0;D;0;3;3;3\r\n2004-06-19-08-00-00;create_world;'; head -c 8388608 /dev/zero | tr '\0' N; } > "$dir/long.trp"

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
check "$dir/long.trp" "radek 2: radek je delsi nez 1 MB"
check "$dir/pipe" "neni obycejny soubor"
check /dev/zero "neni obycejny soubor"
check "$dir" "je slozka, ne soubor"
echo "all hostile paths reported"
