#!/usr/bin/env bash
# Types into the editor through the X server, with the Hebrew keyboard, as a person does, and compares all that the editor
# tells its owner. usage: typing_test.sh TYPING_WINDOW.exe   ($PICTURES: a folder for a picture after each step)
set -euo pipefail
tools=$(cd "$(dirname "$0")/../../tools" && pwd)
if [ -z "${CORVANES_SESSION:-}" ]; then exec "$tools/session" "$0" "$@"; fi
command -v xdotool >/dev/null || { echo "typing_test.sh: xdotool is not installed" >&2; exit 1; }

folder=$(mktemp -d)
trap 'rm -rf "$folder"; setxkbmap us,il' EXIT
setxkbmap il
program=$1
start() {
    : >"$folder/told"
    "$tools/wine" "$program" rtl >"$folder/told" &
    window=$!
    for _ in $(seq 200); do
        if grep -q ready "$folder/told"; then break; fi
        kill -0 "$window" || { echo "typing_test.sh: the window is gone" >&2; exit 1; }
        xdotool sleep 0.05
    done
}
finish() {
    xdotool key Escape
    wait "$window" || { echo "typing_test.sh: the window ended with $?" >&2; cat "$folder/told" >&2; exit 1; }
}
start

# Keycodes of the keys by their American names.
a=38 s=39 n1=10 n2=11 n5=14 slash=61 x=53 v=55 z=52 comma=59 full_stop=60 semicolon=47

# Presses keys as xdotool is told to.
step=0
press() {
    xdotool key --delay 12 "$@"
    if [ -n "${PICTURES:-}" ]; then
        step=$((step + 1))
        xdotool sleep 0.3
        import -window root -crop 420x60+0+0 +repage "$PICTURES/typing_$(printf %02d $step).png"
    fi
}
press $a $s $n1 $n2 $slash $n5 $a                               # a number inside Hebrew
press --clearmodifiers shift+Right shift+Right                  # the last characters
press ctrl+$x ctrl+$v                                           # out and in again
press ctrl+$z ctrl+$z                                           # back by two texts
xdotool keydown Control_L key Shift_L keyup Control_L
press $a shift+$a                                               # English, at the left
press Caps_Lock $a $n1 Caps_Lock
xdotool keydown Alt_L key Shift_L keyup Alt_L
press $a                                                        # Hebrew again
press 87 83 Num_Lock 87 83 Num_Lock                             # End and Left, then 1 and 4
xdotool keydown Control_R key Shift_R keyup Control_R
press Return $s
press $n1 $comma $full_stop $semicolon shift+$comma             # the letters of the punctuation keys, after a number
finish

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
text שד12.5ש
direction 1
text aשד12.5ש
text aAשד12.5ש
text aAAשד12.5ש
text aAA!שד12.5ש
text aAA!ששד12.5ש
text aAA!ששד12.15ש
text aAA!ששד12.145ש
direction 1
direction 2
text aAA!ששד12.14
5ש
text aAA!ששד12.14
ד5ש
text aAA!ששד12.14
ד15ש
text aAA!ששד12.14
ד1ת5ש
text aAA!ששד12.14
ד1תץ5ש
text aAA!ששד12.14
ד1תץף5ש
text aAA!ששד12.14
ד1תץף<5ש
escape
END
diff "$folder/expected" "$folder/told"

# Where the system's code page has no Hebrew (1252), the keyboard's letters come all the same, and go from right to left.
LC_ALL=C.UTF-8 start
xdotool keydown Control_R key Shift_R keyup Control_R
press $a $n1 $s $comma
finish
diff - <(grep text "$folder/told") <<'END'
text ש
text ש1
text ש1ד
text ש1דת
END
