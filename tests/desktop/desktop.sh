# Sourced by the tests of this folder: a scratch directory and an X server of the test's own, which go when it ends.
#   $scratch    the directory, the current one from here on
#   fail TEXT   ends the test
#   await COMMAND...   runs a command again and again until it succeeds; fails after `limit` seconds
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
# The limit only ends a run that hangs: it is generous, because a build server may be busy, and nothing waits for it
# otherwise.
limit=60
await() {
  local end=$((SECONDS + limit))
  until "$@" >/dev/null 2>&1; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.05
  done
}

# Nothing of the user's desktop may take part: no settings, no portal, no accessibility bus, no other display.
export HOME=$scratch/home XDG_RUNTIME_DIR=$scratch/runtime GTK_USE_PORTAL=0 NO_AT_BRIDGE=1
export SDL_VIDEODRIVER=x11
unset WAYLAND_DISPLAY XDG_CONFIG_HOME XDG_DATA_HOME DBUS_SESSION_BUS_ADDRESS
mkdir -p -m 700 "$HOME" "$XDG_RUNTIME_DIR"
# A file dialog starts with its place for a path, so that no key is needed to get there.
export GSETTINGS_BACKEND=keyfile
mkdir -p "$HOME/.config/glib-2.0/settings"
cat >"$HOME/.config/glib-2.0/settings/keyfile" <<'END'
[org/gtk/settings/file-chooser]
location-mode='filename-entry'
startup-mode='cwd'
END
cd "$scratch"

Xvfb -displayfd 3 -screen 0 1280x800x24 -noreset -nolisten tcp 3>display.txt 2>/dev/null &
server=$!
started+=("$server")
await grep -q . display.txt || fail "the X server does not start"
DISPLAY=:$(cat display.txt)
export DISPLAY

# Starts the editor on a file, and waits until the file is loaded and its window shows: sets $editor and $window.
EditorWindow() { xdotool search --all --onlyvisible --pid "$editor" --name 'Node Editor'; }
OpenEditor() {
  "$1" --load-asset="$2" >/dev/null 2>errors.txt &
  editor=$!
  started+=("$editor")
  await EditorWindow || fail "the window does not open"
  window=$(EditorWindow)
  await grep -rqs "Successfully imported" NodeEditorLogs || fail "the asset was not loaded"
  # Without a window manager the focus goes where it is put.
  xdotool windowfocus --sync "$window"
}
