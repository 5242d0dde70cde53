#!/usr/bin/env bash
# trelvin-export --html: the page with the replay inside, opening where --at and --view say;
# from the build tree it takes the build's own page, elsewhere the installed one, and without
# one it says so in one line, leaving no file. The package carries the page.
# Usage: page_export.sh BUILD-DIR EXPORT REPLAY
set -euo pipefail
build="$1" export="$2" replay="$3"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

"$export" "$replay" --html --at 12 --view les -o "$work/bitva.html"
grep -q '<script type="application/x-trelvin-replay" id="embedded-replay" data-name="bitva-u-potoka.trp" data-moment="#a=12&amp;v=les">' \
  "$work/bitva.html" || fail "no replay inside the page"
embedded="$(sed -n 's/.*id="embedded-replay"[^>]*>\([^<]*\)<\/script>.*/\1/p' "$work/bitva.html")"
[ "$(base64 -d <<< "$embedded" | cmp - "$replay" && echo same)" = same ] || fail "the replay inside differs"

status=0
"$export" "$replay" --html --at 9999 -o "$work/outside.html" 2> "$work/err" || status=$?
[ "$status" -eq 1 ] && [ ! -e "$work/outside.html" ] || fail "an action outside the replay: status $status"
status=0
"$export" "$replay" --html -o "$work/missing/x.html" 2> "$work/err" || status=$?
[ "$status" -eq 1 ] && grep -q "nelze zapsat: slozka neexistuje" "$work/err" || fail "into a missing folder: $(cat "$work/err")"
status=0
"$export" "$replay" --html --field 30 -o "$work/x.html" 2> /dev/null || status=$?
[ "$status" -eq 2 ] || fail "--html with --field: status $status"

# Outside the build tree, without an installed page: one line, no file.
if [ ! -e /usr/share/trelvin-replay/web/trelvin-replay.html ]; then
  cp "$export" "$work/trelvin-export"
  status=0
  "$work/trelvin-export" "$replay" --html -o "$work/none.html" 2> "$work/err" || status=$?
  [ "$status" -eq 1 ] && [ ! -e "$work/none.html" ] || fail "without a page: status $status"
  [ "$(wc -l < "$work/err")" -eq 1 ] && grep -q "webova stranka prohlizece neni nainstalovana" "$work/err" ||
    fail "without a page: $(cat "$work/err")"
fi

(cd "$build" && cpack -G DEB -B "$work/out" > "$work/cpack.log") || { cat "$work/cpack.log"; exit 1; }
dpkg-deb -c "$work"/out/trelvin-replay_*.deb | grep -q "usr/share/trelvin-replay/web/trelvin-replay.html" ||
  fail "the package lacks the page"
echo "page export: passed"
