#!/usr/bin/env bash
# Ends the editor in the ways a user doesn't choose, each with an edit that is not saved, and takes the edit up again at
# the next start.
#   keep-unsaved-work.sh PROGRAM DATA_DIRECTORY
# Needs Xvfb and xdotool.
set -euo pipefail
program=$(realpath "$1")
data=$(realpath "$2")
. "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"
export XDG_STATE_HOME=$scratch/state
rescue=$XDG_STATE_HOME/tesselor/rescue

ln -s "$data/Assets" "$data/Workspaces" .
cp "$data/samples/quest.json" quest.json
original=$(md5sum <quest.json)
# A shell has its background processes ignore SIGINT, which a terminal's user would not.
cat >editor.sh <<END
#!/bin/sh
exec env --default-signal=INT "$program" "\$@"
END
chmod +x editor.sh
Copied() { cat "$rescue"/*.rescue 2>/dev/null | grep -q "$1"; }
Edit() { # Types a text into a field of the root node, until it has reached the program.
  xdotool mousemove --window "$window" 100 300 click 1 key Tab Tab Tab Tab Tab Tab ctrl+a
  xdotool type --delay 20 "$1"
}
# Ends the editor by a signal and expects its exit code.
End() {
  kill "-$1" "$editor"
  local code=0
  wait "$editor" || code=$?
  [ "$code" = "$2" ] || fail "signal $1 ends the editor with $code"
  [ "$(md5sum <quest.json)" = "$original" ] || fail "signal $1 changed the file"
  rm -rf NodeEditorLogs
}

# A signal that can't be caught leaves what was written by itself.
OpenEditor ./editor.sh quest.json
[ ! -e "$rescue" ] || fail "an untouched document leaves a copy"
Edit 'Typed before the kill'
await Copied 'Typed before the kill' || fail "the edit is not copied"
End KILL 137

# Those that can be caught bring the copy up to date, however fresh the edit. Another run's copy stays until it is
# claimed.
for signal in TERM:143 HUP:129 INT:130; do
  rm -rf "$rescue"
  OpenEditor ./editor.sh quest.json
  Edit "Typed before ${signal%:*}"
  # The answer to this key tells that all before it has arrived.
  xdotool key --clearmodifiers F12
  sleep 0.3
  End "${signal%:*}" "${signal#*:}"
  Copied "Typed before ${signal%:*}" || fail "signal $signal loses the edit"
done

# The next start offers it: Tab leads to the first button of the bar.
OpenEditor ./editor.sh quest.json
sleep 0.5
xdotool key Tab Return
Claimed() { ls "$rescue"/"$editor"-*.rescue; }
await Claimed || fail "the copy is not restored"
[ "$(md5sum <quest.json)" = "$original" ] || fail "the file was changed without a save"
xdotool mousemove --window "$window" 100 300 click 1 key ctrl+s
Saved() { grep -q 'Typed before INT' quest.json; }
await Saved || fail "the restored edit is not in the file"
Gone() { [ -z "$(ls "$rescue")" ]; }
await Gone || fail "a copy stays behind a save"
original=$(md5sum <quest.json)

# A saved document ends without a trace.
End TERM 143
Gone || fail "a saved document leaves a copy"
echo "Unsaved edits came back after a kill and three signals."
