#!/usr/bin/env bash
# Makes the .deb from a build, unpacks it into a temporary root and checks what it holds, its
# control fields, lintian's verdict, the AppStream metadata, the man pages, and the programs'
# --help and --version without a display.
set -euo pipefail
build="$1"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
(cd "$build" && cpack -G DEB -B "$work/out" > "$work/cpack.log") || { cat "$work/cpack.log"; exit 1; }
deb="$(ls "$work"/out/trelvin-replay_*_*.deb)"
root="$work/root"
dpkg-deb -x "$deb" "$root"

fail() { echo "FAIL: $*"; exit 1; }
for file in usr/games/trelvin-replay usr/games/trelvin-dump usr/games/trelvin-export \
            usr/share/applications/io.github.trelvin.Replay.desktop \
            usr/share/metainfo/io.github.trelvin.Replay.metainfo.xml \
            usr/share/mime/packages/trelvin-replay.xml \
            usr/share/icons/hicolor/48x48/apps/io.github.trelvin.Replay.png \
            usr/share/icons/hicolor/scalable/mimetypes/application-x-trelvin-replay.svg \
            usr/share/man/man6/trelvin-replay.6.gz usr/share/man/man6/trelvin-dump.6.gz \
            usr/share/man/man6/trelvin-export.6.gz \
            usr/share/doc/trelvin-replay/README.md usr/share/doc/trelvin-replay/copyright \
            usr/share/doc/trelvin-replay/changelog.gz \
            usr/share/trelvin-replay/samples/alfa.trp usr/share/trelvin-replay/samples/bitva-u-potoka.trp; do
  [ -e "$root/$file" ] || fail "missing $file"
done

control="$(dpkg-deb -f "$deb" Package Version Section Maintainer Depends)"
for expected in "Section: games" "Maintainer: " "libqt6widgets6" "qt6-qpa-plugins" "fonts-liberation2" \
                "fonts-comic-neue" "qt6-translations-l10n" "libgif7" "libwebp7" "libwebpmux3" "libqt6charts6"; do
  grep -qF "$expected" <<< "$control" || fail "control lacks '$expected': $control"
done
case "$(basename "$deb")" in trelvin-replay_*_"$(dpkg --print-architecture)".deb) ;; *) fail "name $deb" ;; esac

lintian --fail-on error "$deb" || fail "lintian reports errors"
appstreamcli validate --no-net "$root/usr/share/metainfo/io.github.trelvin.Replay.metainfo.xml" ||
  fail "AppStream metadata"
for page in "$root"/usr/share/man/man6/*.6.gz; do
  warnings="$(MANWIDTH=80 man --warnings -l "$page" 2>&1 > /dev/null)"
  [ -z "$warnings" ] || fail "$page: $warnings"
  man -l "$page" 2> /dev/null | grep -q "^EXIT STATUS" || fail "$page does not render"
done

for program in trelvin-replay trelvin-dump trelvin-export; do
  env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$root/usr/games/$program" --help | grep -qi "usage" ||
    fail "$program --help"
  version="$(env -u DISPLAY "$root/usr/games/$program" --version)"
  [ "$(head -n 1 <<< "$version")" = "$program $(dpkg-deb -f "$deb" Version)" ] || fail "$program --version: $version"
  grep -qF "GPL-3.0-or-later" <<< "$version" || fail "$program --version names no licence: $version"
  status=0
  env -u DISPLAY "$root/usr/games/$program" --no-such-option > /dev/null 2> "$work/usage" || status=$?
  [ "$status" -eq 2 ] && grep -qi "usage" "$work/usage" || fail "$program with a wrong option: $status"
done
# The installed exporter draws a sample's map without a display.
env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$root/usr/games/trelvin-export" \
  "$root/usr/share/trelvin-replay/samples/bitva-u-potoka.trp" --at 40 --labels --caption -o "$work/map.png" ||
  fail "trelvin-export without a display"
[ "$(head -c 8 "$work/map.png" | od -An -tx1 | tr -d ' ')" = "89504e470d0a1a0a" ] || fail "trelvin-export wrote no PNG"
echo "package $(basename "$deb") checked"
