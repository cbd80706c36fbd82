#!/usr/bin/env bash
# Drives the window and the desktop's own file dialog as a user does: presses the button of a file path field, types a
# path into the dialog, saves by Ctrl+S and reads what was saved. Opens the dialog a second time and cancels it, and a
# third time with unsaved changes to end the program by a signal.
#   choose-a-file.sh PROGRAM DATA_DIRECTORY
# Needs Xvfb and xdotool, and starts an X server of its own.
set -euo pipefail
program=$(realpath "$1")
data=$(realpath "$2")

. "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"

ln -s "$data/Assets" .
mkdir -p Workspaces/Test files
cat >Workspaces/Test/_Workspace.json <<'END'
{"WorkspaceName": "Test", "Roots": {"Test": {"RootNodeType": "Node", "MenuName": "Test"}}}
END
cat >Workspaces/Test/Node.json <<'END'
{"id": "Node", "title": "Node", "color": "blue", "Schema": {"File": "file"},
 "content": [{"Id": "file", "Type": "FilePath", "Options": {"Label": "File", "UseUUID": true}}]}
END
echo '{"File": "former-id", "$File_FileName": "former", "$WorkspaceID": "Test"}' >asset.json
echo '{"Id": "chosen-id"}' >files/chosen.one.json

OpenEditor "$program" asset.json
Dialog() { xdotool search --onlyvisible --name '^Open File$'; }
NoDialog() { ! Dialog; }

IsSaved() { [ -s asset.json ]; }
DialogOrSaved() { Dialog || IsSaved || ! kill -0 "$editor"; }
# Without a window manager the focus goes where it is put. A click on the canvas takes it there, and Tab then leads through
# what stands on the canvas; Return presses what the focus is on. Keys are taken in order, so a document that the keys
# behind Return have saved tells that Return opened nothing. While a dialog is open no key reaches the window behind it.
OpenDialog() {
  xdotool windowfocus --sync "$window"
  eval "$(xdotool getwindowgeometry --shell "$window")"
  xdotool mousemove --window "$window" $((WIDTH / 4)) $((HEIGHT / 4)) click 1
  for _ in 1 2 3 4 5 6 7 8; do
    rm -f asset.json
    xdotool key Tab Return ctrl+s
    await DialogOrSaved || fail "the editor takes no keys"
    kill -0 "$editor" 2>/dev/null || fail "the editor has ended"
    IsSaved && continue
    dialog=$(Dialog)
    xdotool windowfocus --sync "$dialog"
    return
  done
  fail "no dialog opens"
}
# Keys go to the dialog's window alone: once it has closed, none of them may press something in the editor.
PressUntilClosed() {
  local key=$1 pause
  for pause in 1 2 4 8 16; do
    xdotool key --window "$dialog" "$key" 2>>xdotool.txt || true
    if limit=$pause await NoDialog; then return; fi
  done
  return 1
}
# The dialog may take a Return for a suggestion, and tells of a path that is not there in a box that the next Return
# closes. The path is typed anew only when Return has long been of no use: the dialog looks for the file some time after
# Return, and would take the half of a path that is being typed by then.
ChooseFile() {
  local delay
  for delay in 10 100 300; do
    xdotool key --window "$dialog" ctrl+a
    xdotool type --window "$dialog" --delay "$delay" "$scratch/files/chosen.one.json"
    if PressUntilClosed Return; then return; fi
  done
  fail "no dialog takes the path"
}

Save() {
  xdotool windowfocus --sync "$window"
  xdotool key ctrl+s
}

OpenDialog
ChooseFile
IsSaved && fail "a key reached the window behind the dialog"
Save
await IsSaved || fail "Ctrl+S does not save"
grep -q '"File":.*"chosen-id"' asset.json || fail "the id was not taken: $(cat asset.json)"
grep -q '"$File_FileName":.*"chosen.one"' asset.json || fail "the name was not taken: $(cat asset.json)"

cp asset.json before.json
OpenDialog
PressUntilClosed Escape || fail "Escape does not close the dialog"
Save
await IsSaved || fail "Ctrl+S does not save"
cmp before.json asset.json || fail "a cancelled dialog changed the document"
kill -0 "$editor" 2>/dev/null || fail "the editor has ended"

# While a dialog is open, unsaved work is kept and a signal ends the program. The button of the field is the last thing
# that the focus was on; what is typed before the dialog opens is not saved by then.
xdotool windowfocus --sync "$window"
eval "$(xdotool getwindowgeometry --shell "$window")"
xdotool mousemove --window "$window" $((WIDTH / 4)) $((HEIGHT / 4)) click 1
xdotool key ctrl+a Right ctrl+o
await Dialog || fail "Ctrl+O opens no dialog"
IsKept() { grep -qs chosen-id "$HOME"/.local/state/tesselor/rescue/*.rescue; }
await IsKept || fail "nothing is kept while a dialog is open"
kill -TERM "$editor"
Ended() { ! kill -0 "$editor"; }
await Ended || fail "the dialog holds the program"
result=0
wait "$editor" || result=$?
[ $result -eq 143 ] || fail "SIGTERM ends with $result"
IsKept || fail "the copy of unsaved work has gone"
echo "A file was chosen in one dialog, and another dialog was cancelled."
