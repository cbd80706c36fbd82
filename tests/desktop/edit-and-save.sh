#!/usr/bin/env bash
# Drives the window as a user does: opens a sample, pans, zooms, types into a field, saves by Ctrl+S and checks the
# file. Makes the window tiny and large again, and at last takes its display away.
#   edit-and-save.sh PROGRAM DATA_DIRECTORY
# Needs Xvfb, xdotool and xwd.
set -euo pipefail
program=$(realpath "$1")
data=$(realpath "$2")
. "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"

ln -s "$data/Assets" "$data/Workspaces" .
cp "$data/samples/quest.json" quest.json
OpenEditor "$program" quest.json

# What the window shows, as a number, without its lowest lines: what was told there dims by itself.
Picture() { xwd -silent -id "$window" | tail -c +4000 | head -c $((1280 * 4 * 720)) | md5sum | cut -d ' ' -f 1; }
Shows() { [ "$(Picture)" = "$1" ]; }
Differs() { [ "$(Picture)" != "$1" ]; }
# The number of a picture that stays for a while.
RestingPicture() {
  local former= now same=0
  while [ $same -lt 3 ]; do
    now=$(Picture)
    if [ "$now" = "$former" ]; then same=$((same + 1)); else same=0; fi
    former=$now
    sleep 0.2
  done
  echo "$now"
}
Geometry() { eval "$(xdotool getwindowgeometry --shell "$window")"; }
Drag() { # FROM_X FROM_Y TO_X TO_Y, with the right button; the mouse rests where it was
  xdotool mousemove --window "$window" "$1" "$2" mousedown 3 mousemove --window "$window" "$3" "$4" mouseup 3 \
    mousemove --window "$window" 100 200
}

Geometry
xdotool mousemove --window "$window" 100 200
# The list of hotkeys comes and goes: from then on the window is loaded, drawn and hears keys.
plain=$(RestingPicture)
xdotool key h
await Differs "$plain" || fail "H shows nothing"
hotkeys=$(RestingPicture)
xdotool key h
await Differs "$hotkeys" || fail "H does not take the hotkeys away"
whole=$(RestingPicture)

Drag 100 200 260 320
await Differs "$whole" || fail "dragging with the right button does not pan"
panned=$(RestingPicture)
Drag 260 320 100 200
await Shows "$whole" || fail "panning back does not show what was there before"

xdotool click 5 click 5
await Differs "$whole" || fail "the wheel does not zoom"
zoomed=$(RestingPicture)
[ "$zoomed" != "$panned" ] || fail "zooming shows what panning showed"
xdotool click 4
await Differs "$zoomed" || fail "the wheel does not zoom in"
whole=$(RestingPicture)

xdotool windowsize "$window" 1 1
Tiny() { Geometry && [ "$WIDTH" -lt 200 ]; }
await Tiny || fail "the window does not become tiny"
sleep 0.3
kill -0 "$editor" || fail "a tiny window ends the editor"
xdotool windowsize --sync "$window" 1280 800 mousemove --window "$window" 100 200
await Shows "$whole" || fail "a window that was tiny does not show what was there before"

# From the canvas Tab leads through the header of the root node to its first fields.
xdotool mousemove --window "$window" 100 200 click 1 key Tab Tab Tab Tab Tab Tab ctrl+a
xdotool type --delay 20 'Typed "by" hand'
xdotool key ctrl+s
Saved() { grep -q 'Typed \\"by\\" hand' quest.json; }
await Saved || fail "what was typed is not in the file"
# The words of both files side by side: what was typed is all that differs.
Words() { grep -oE '"([^"\\]|\\.)*"|[^", :]+' "$1"; }
changes=$(diff <(Words "$data/samples/quest.json") <(Words quest.json) | grep -c '^>' || true)
[ "$changes" = 1 ] || fail "$changes words of the file changed: $(diff "$data/samples/quest.json" quest.json | head -20)"

kill "$server"
code=0
wait "$editor" || code=$?
[ "$code" = 1 ] || fail "without its display the editor ends with $code"
[ -s errors.txt ] || fail "the lost display leaves no line"
echo "A sample was panned, zoomed, edited and saved; the lost display was told: $(tail -n 1 errors.txt)"
