#!/usr/bin/env bash
# Drives two editors as a user does: copies all nodes in one window by keys and pastes them in the other, pastes the text
# of the copy into a text box, and pastes a comment in the first window from what was typed and copied in that box.
#   copy-between-windows.sh PROGRAM DATA_DIRECTORY
# Needs Xvfb and xdotool, and starts an X server of its own.
set -euo pipefail
program=$(realpath "$1")
data=$(realpath "$2")

. "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"

# Each editor stands in a directory of its own, so that its log tells when its file is loaded.
StartIn() { # DIRECTORY; sets $window
  mkdir "$1"
  cd "$1"
  ln -s "$data/Assets" "$data/Workspaces" .
  cp "$data/samples/quest.json" asset.json
  OpenEditor "$program" asset.json
  cd ..
}
StartIn first
first=$window
StartIn second
second=$window
[ "$first" != "$second" ] || fail "there is only one window"

# Presses keys in a window and saves there. Keys are taken in order, so the file tells that all have done their work.
PressAndSave() { # DIRECTORY WINDOW KEY...
  local file=$1/asset.json window=$2
  shift 2
  rm "$file"
  # Without a window manager the focus goes where it is put.
  xdotool windowfocus --sync "$window"
  xdotool mousemove --window "$window" 100 200
  xdotool key "$@" ctrl+s
  await grep -q . "$file" || fail "the keys $* and ctrl+s save nothing"
}
Count() { grep -oF -- "$2" "$1" | wc -l; }

PressAndSave first "$first" ctrl+a ctrl+c
cp first/asset.json before.json
PressAndSave second "$second" ctrl+v
# A title, a link, two frames, the file of a reference.
for text in '"lamp_start"' '"Three flasks from Tobin"' '"To the lamp"' '"Ending"' '"To decide"' '"$FileName"'; do
  [ "$(Count before.json "$text")" -gt 0 ] || fail "the sample has no $text"
  [ "$(Count second/asset.json "$text")" = $((2 * $(Count before.json "$text"))) ] ||
    fail "$text is there $(Count second/asset.json "$text") times after a paste"
done
[ "$(Count second/asset.json '"$NodeId"')" = $((2 * $(Count before.json '"$NodeId"'))) ] || fail "nodes were lost"

# From the canvas Tab leads through the header of the root node to its first text box.
PressAndSave second "$second" ctrl+z
cmp before.json second/asset.json || fail "undo does not take the paste away"
xdotool windowfocus --sync "$second" mousemove --window "$second" 100 200 click 1 key Tab Tab Tab Tab Tab Tab
PressAndSave second "$second" ctrl+a ctrl+v
grep -qF '\"$NodeId\":' second/asset.json || fail "a text box does not get the text of the copy"

xdotool windowfocus --sync "$second" key ctrl+a
xdotool type --delay 20 '{"$text": "typed as text", "$Position": {"$x": 10, "$y": 20}}'
PressAndSave second "$second" ctrl+a ctrl+c
PressAndSave first "$first" ctrl+v
grep -qF '"typed as text"' first/asset.json || fail "what another program copied is not pasted"
PressAndSave first "$first" ctrl+z
cmp before.json first/asset.json || fail "undo does not take the comment away"
kill -0 "$editor" 2>/dev/null || fail "the second editor has ended"
echo "$(Count before.json '"$NodeId"') nodes were copied from one window to another, and a comment back."
