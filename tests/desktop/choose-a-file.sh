#!/usr/bin/env bash
# Drives the window and the desktop's own file dialog as a user does: presses the button of a file path field, types a
# path into the dialog, saves by Ctrl+S and reads what was saved. Opens the dialog a second time and cancels it.
#   choose-a-file.sh PROGRAM DATA_DIRECTORY
# Needs Xvfb and xdotool, and starts an X server of its own.
set -euo pipefail
program=$(realpath "$1")
data=$(realpath "$2")

scratch=$(mktemp -d)
started=()
finish() {
  local result=$?
  for process in "${started[@]}"; do kill "$process" 2>/dev/null || true; done
  wait 2>/dev/null || true
  [ $result -eq 0 ] || tail -n 5 "$scratch/errors.txt" >&2 2>/dev/null || true
  rm -rf "$scratch"
}
trap finish EXIT
fail() {
  echo "FAILED: $*" >&2
  exit 1
}
# Runs a command again and again until it succeeds, for at most the given number of seconds.
await() {
  local limit=$((SECONDS + $1))
  shift
  until "$@" >/dev/null 2>&1; do
    [ $SECONDS -lt $limit ] || return 1
    sleep 0.1
  done
}

# Nothing of the user's desktop may take part: no settings, no portal, no accessibility bus, no other display.
export HOME=$scratch/home XDG_RUNTIME_DIR=$scratch/runtime GSETTINGS_BACKEND=memory GTK_USE_PORTAL=0 NO_AT_BRIDGE=1
export SDL_VIDEODRIVER=x11
unset WAYLAND_DISPLAY XDG_CONFIG_HOME XDG_DATA_HOME DBUS_SESSION_BUS_ADDRESS
mkdir -p -m 700 "$HOME" "$XDG_RUNTIME_DIR" "$scratch/Workspaces/Test" "$scratch/files"
ln -s "$data/Assets" "$scratch/Assets"
cd "$scratch"
cat >Workspaces/Test/_Workspace.json <<'END'
{"WorkspaceName": "Test", "Roots": {"Test": {"RootNodeType": "Node", "MenuName": "Test"}}}
END
cat >Workspaces/Test/Node.json <<'END'
{"id": "Node", "title": "Node", "color": "blue", "Schema": {"File": "file"},
 "content": [{"Id": "file", "Type": "FilePath", "Options": {"Label": "File", "UseUUID": true}}]}
END
echo '{"File": "former-id", "$File_FileName": "former", "$WorkspaceID": "Test"}' >asset.json
echo '{"Id": "chosen-id"}' >files/chosen.one.json

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>display.txt 2>/dev/null &
started+=($!)
await 20 grep -q . display.txt || fail "the X server does not start"
DISPLAY=:$(cat display.txt)
export DISPLAY

"$program" --load-asset=asset.json >/dev/null 2>errors.txt &
editor=$!
started+=("$editor")
Dialog() { xdotool search --onlyvisible --name '^Open File$'; }
NoDialog() { ! Dialog; }
EditorWindow() { xdotool search --onlyvisible --name 'Node Editor'; }
await 30 EditorWindow || fail "the window does not open"
window=$(EditorWindow)
await 30 grep -rqs "Successfully imported" NodeEditorLogs || fail "the asset was not loaded"

# Without a window manager the focus goes where it is put.
OpenDialog() {
  xdotool windowfocus --sync "$window"
  # A click on the canvas takes the focus there, and Tab then leads through what stands on it.
  eval "$(xdotool getwindowgeometry --shell "$window")"
  xdotool mousemove --window "$window" $((WIDTH / 4)) $((HEIGHT / 4)) click 1
  for _ in 1 2 3 4 5 6 7 8; do
    xdotool key Tab Return
    if await 2 Dialog; then
      xdotool windowfocus --sync "$(Dialog)"
      return
    fi
  done
  kill -0 "$editor" 2>/dev/null || fail "the editor has ended"
  fail "no dialog opens"
}
Save() {
  xdotool windowfocus --sync "$window"
  cp asset.json before.json
  rm asset.json
  xdotool key ctrl+s
  await 20 test -s asset.json || fail "Ctrl+S does not save"
}

# The dialog shows its place for a path some time after the key, and what is typed too early is lost. It may also take
# a first Return for a suggestion, and tells of a path that is not there in a box that the next Return closes. So keys
# are pressed until the dialog goes, and a dialog that stays is given up for another one and slower typing.
ChooseFile() {
  for delay in 30 100 300; do
    OpenDialog
    xdotool key ctrl+l
    xdotool type --delay "$delay" "$scratch/files/chosen.one.json"
    for _ in 1 2 3 4; do
      xdotool key Return
      if await 2 NoDialog; then return; fi
    done
    CloseDialog
  done
  fail "no dialog takes the path"
}
CloseDialog() {
  for _ in 1 2 3 4 5 6 7 8; do
    xdotool key Escape
    if await 2 NoDialog; then return; fi
  done
  fail "Escape does not close the dialog"
}

ChooseFile
Save
grep -q '"File":.*"chosen-id"' asset.json || fail "the id was not taken: $(cat asset.json)"
grep -q '"$File_FileName":.*"chosen.one"' asset.json || fail "the name was not taken: $(cat asset.json)"

OpenDialog
CloseDialog
Save
cmp before.json asset.json || fail "a cancelled dialog changed the document"
kill -0 "$editor" 2>/dev/null || fail "the editor has ended"
echo "A file was chosen in one dialog, and another dialog was cancelled."
