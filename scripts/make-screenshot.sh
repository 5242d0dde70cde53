#!/usr/bin/env bash
# Re-makes docs/screenshot.png: the viewer halfway through the battle sample on a virtual
# screen, stepped there with the Right key, with a player chosen, a field inspected and the
# charts shown (Ctrl+P).
# Needs xvfb-run, xdotool and ImageMagick; uses the build directory given (default: build).
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
if [ -z "${TRELVIN_ON_VIRTUAL_SCREEN:-}" ]; then
  cmake --build "$build" -j2 --target trelvin-replay trelvin-dump > /dev/null
  exec env TRELVIN_ON_VIRTUAL_SCREEN=1 xvfb-run -a -s "-screen 0 1280x800x24" "$0" "$build"
fi

replay=samples/bitva-u-potoka.trp
# The dump prints the load, then one line per event.
events=$(($("$build/tools/trelvin-dump" "$replay" | wc -l) - 1))
"$build/src/trelvin-replay" "$replay" &
viewer=$!
trap 'kill "$viewer"' EXIT

window=$(xdotool search --sync --onlyvisible --name '^Trelvin - Replay')
sleep 1
xdotool windowfocus --sync "$window"
xdotool key --delay 40 --repeat $((events / 2 - 1)) Right
# Tab leads from the first control to the player list (its first player is chosen with
# Down), then to the field box.
xdotool key --delay 40 --repeat 7 Tab
xdotool key --delay 40 Down Tab
xdotool type --delay 40 E3
xdotool key ctrl+p
sleep 1
import -window "$window" docs/screenshot.png
echo "docs/screenshot.png: event $((events / 2)) of $events"
