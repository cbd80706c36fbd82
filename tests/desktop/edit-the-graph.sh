#!/usr/bin/env bash
# Drives the window as a user does who builds a graph: drags a connection from pin to pin, drops another one on the
# canvas and chooses a node for it in the menu, drags a group with what lies in it, moves the view with the middle
# button, and undoes it all. What is pressed is found by its colour; what came of it is read in the saved file.
#   edit-the-graph.sh PROGRAM DATA_DIRECTORY
# Needs Xvfb, xdotool and xwd.
set -euo pipefail
program=$(realpath "$1")
data=$(realpath "$2")
. "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"

# Colours that nothing else in the window has, as the schemas and as the window's pixels tell them.
rootColor="10,90,200" rootPixel=0a5ac8
outColor="200,10,210" outPixel=c80ad2
inColor="20,200,190" inPixel=14c8be
extraColor="210,120,10" extraPixel=d2780a
groupPixel=34548a
ln -s "$data/Assets" .
mkdir -p Workspaces/Test
cat >Workspaces/Test/_Workspace.json <<'END'
{"WorkspaceName": "Test", "Roots": {"Test": {"RootNodeType": "Root", "MenuName": "Test"}}}
END
cat >Workspaces/Test/Root.json <<END
{"id": "Root", "title": "Root", "color": "$rootColor", "Schema": {"Items": {"node": "Leaf", "pin": "Out"}},
 "outputs": [{"id": "Out", "Type": "T", "color": "$outColor", "Multiple": true}]}
END
cat >Workspaces/Test/Leaf.json <<END
{"id": "Leaf", "title": "Leaf", "color": "blue", "inputs": [{"id": "In", "Type": "T", "color": "$inColor"}]}
END
cat >Workspaces/Test/Extra.json <<END
{"id": "Extra", "title": "Extra", "color": "$extraColor", "inputs": [{"id": "In", "Type": "T", "color": "blue"}]}
END
cat >Workspaces/Test/Guest.json <<'END'
{"id": "Guest", "title": "Guest", "color": "blue", "inputs": [{"id": "In", "Type": "U", "color": "blue"}]}
END
cat >asset.json <<'END'
{"$NodeId": "Root-00000000-0000-0000-0000-000000000001",
 "$NodeEditorMetadata": {
   "$WorkspaceID": "Test",
   "$Nodes": {"Root-00000000-0000-0000-0000-000000000001": {"$Position": {"$x": 0, "$y": 0}},
              "Leaf-00000000-0000-0000-0000-000000000002": {"$Position": {"$x": 300, "$y": 60}},
              "Guest-00000000-0000-0000-0000-000000000003": {"$Position": {"$x": -360, "$y": -160}}},
   "$FloatingNodes": [{"$NodeId": "Leaf-00000000-0000-0000-0000-000000000002"},
                      {"$NodeId": "Guest-00000000-0000-0000-0000-000000000003"}],
   "$Groups": [{"$Position": {"$x": -420, "$y": -240}, "$width": 320, "$height": 220, "$name": "Act"}]}}
END
OpenEditor "$program" asset.json

# Sets $x and $y to the middle of what the window shows of a colour, and $bottom to its last row.
Find() {
  local header size width
  xwd -silent -id "$window" >window.xwd
  header=$(od -An -v -N 100 -tu4 --endian=big -w100 window.xwd)
  read -r size width < <(awk '{ print $1 + 12 * $20, $13 }' <<<"$header")
  read -r x y bottom < <(od -An -v -tx4 --endian=little -w"$width" -j "$size" window.xwd | awk -v color="$1" '
    index($0, color) {
      for (i = 1; i <= NF; ++i) if (substr($i, 3) == color) {
        if (!found || i < left) left = i
        if (i > right) right = i
        if (!found) top = NR
        bottom = NR
        found = 1
      }
    }
    END { if (found) print int((left + right) / 2) - 1, int((top + bottom) / 2) - 1, bottom - 1 }')
}
Drag() { # BUTTON FROM_X FROM_Y TO_X TO_Y, by way of the middle between them
  xdotool mousemove --window "$window" "$2" "$3" mousedown "$1" \
    mousemove --window "$window" $((($2 + $4) / 2)) $((($3 + $5) / 2)) mousemove --window "$window" "$4" "$5" mouseup "$1"
}
# Saves by Ctrl+S until the file holds, without its white space, what matches a pattern.
Plain() { tr -d ' \t\n' <asset.json; }
SaveHolds() {
  xdotool key ctrl+s
  sleep 0.1
  Plain | grep -qE -e "$1"
}
SavedIsSame() {
  xdotool key ctrl+s
  sleep 0.1
  cmp -s asset.json "$1"
}
Position() { # NODE, as a pattern for what follows
  echo "\"$1-[^\"]*\":\{\"\\\$Position\":\{\"\\\$x\":"
}

await Find "$outPixel" || fail "the output pin does not show"
rm asset.json
await SaveHolds '"\$FloatingNodes"' || fail "the document is not saved"
cp asset.json start.json

Find "$outPixel"
outX=$x outY=$y
Find "$inPixel"
Drag 1 "$outX" "$outY" "$x" "$y"
await SaveHolds '"Items":\[\{"\$NodeId":"Leaf-[^}]*\}\]' || fail "pin to pin does not connect: $(Plain)"

# On the canvas, far from all nodes: the menu opens, and what is chosen in it hangs on the connection.
Drag 1 "$outX" "$outY" 500 640
xdotool type --delay 20 'extra'
await Find "$extraPixel" || fail "the menu does not offer the type"
xdotool mousemove --window "$window" "$((x + 20))" "$((bottom - 5))" click 1
await SaveHolds '"Items":\[\{"\$NodeId":"Leaf-[^}]*\},\{"\$NodeId":"Extra-[^}]*\}\]' ||
  fail "the chosen node is not connected: $(Plain)"

Find "$groupPixel"
Drag 1 "$x" "$y" "$((x + 70))" "$((y - 40))"
await SaveHolds '"\$Groups":\[\{"\$Position":\{"\$x":-350,"\$y":-280\}' || fail "the group is not moved: $(Plain)"
SaveHolds "$(Position Guest)-290,\"\\\$y\":-200" || fail "what lies in the group does not move with it: $(Plain)"
SaveHolds "$(Position Leaf)300,\"\\\$y\":60" || fail "what lies outside of the group moves with it: $(Plain)"
cp asset.json edited.json

# The middle button moves the view, also from a node, and nothing else.
Find "$rootPixel"
rootX=$x rootY=$y
Drag 2 "$x" "$y" "$((x + 60))" "$((y + 50))"
Moved() { Find "$rootPixel" && [ "$x,$y" = "$((rootX + 60)),$((rootY + 50))" ]; }
await Moved || fail "the middle button does not move the view: $x,$y instead of $rootX,$rootY and 60,50"
SavedIsSame edited.json || fail "moving the view changed the document"

# The drag of the group, the second connection, the node at its end, and the first connection.
for _ in 1 2 3 4; do xdotool key ctrl+z; done
await SavedIsSame start.json || fail "undo does not give back what was there: $(diff start.json asset.json | head -20)"
kill -0 "$editor" 2>/dev/null || fail "the editor has ended"
echo "Two connections were dragged, a node made, a group and the view moved, and all of it undone."
