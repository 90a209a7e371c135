#!/usr/bin/env bash
# Types into the editor through the X server, with the Hebrew keyboard, as a person does, and compares all that the editor
# tells its owner. usage: typing_test.sh TYPING_WINDOW.exe
set -euo pipefail
tools=$(cd "$(dirname "$0")/../../tools" && pwd)
if [ -z "${CORVANES_SESSION:-}" ]; then exec "$tools/session" "$0" "$@"; fi
command -v xdotool >/dev/null || { echo "typing_test.sh: xdotool is not installed" >&2; exit 1; }

folder=$(mktemp -d)
trap 'rm -rf "$folder"; setxkbmap us,il' EXIT
setxkbmap il
: >"$folder/told"
"$tools/wine" "$1" rtl >"$folder/told" &
window=$!
for _ in $(seq 200); do
    if grep -q ready "$folder/told"; then break; fi
    kill -0 "$window" || { echo "typing_test.sh: the window is gone" >&2; exit 1; }
    xdotool sleep 0.05
done

# Keycodes of the keys by their American names.
a=38 s=39 n1=10 n2=11 n5=14 slash=61 x=53 v=55 z=52
xdotool key $a $s $n1 $n2 $slash $n5 $a                                  # a number inside Hebrew
xdotool keydown shift key Right Right keyup shift key ctrl+$x ctrl+$v    # the last characters out and in again
xdotool key ctrl+$z ctrl+$z                                              # back by two texts
xdotool keydown Control_L key Shift_L keyup Control_L key $a shift+$a    # English, at the left
xdotool key Caps_Lock $a $n1 Caps_Lock
xdotool keydown Alt_L key Shift_L keyup Alt_L key $a                     # Hebrew again
xdotool key 87 83 Num_Lock 87 83 Num_Lock                                # End and Left, then 1 and 4
xdotool keydown Control_R key Shift_R keyup Control_R key Return $s Escape
wait "$window" || { echo "typing_test.sh: the window ended with $?" >&2; cat "$folder/told" >&2; exit 1; }

# Wine sends a left key before each right one, so that the direction changes twice at the end.
cat >"$folder/expected" <<'END'
direction 2
ready 1037
text ש
text שד
text שד1
text שד12
text שד12.
text שד12.5
text שד12.5ש
text שד1
text שד12.5ש
text שד1
text שד12.5
direction 1
text aשד12.5
text aAשד12.5
text aAAשד12.5
text aAA!שד12.5
text aAA!ששד12.5
text aAA!ששד12.15
text aAA!ששד12.145
direction 1
direction 2
text aAA!ששד12.14
5
text aAA!ששד12.14
ד5
escape
END
diff "$folder/expected" "$folder/told"
