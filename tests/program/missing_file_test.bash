# shellcheck shell=bash
# A file that is not there is answered by a message, not by an empty document.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"

start_editor "no such song.wav"
# The message box is the second window of that title.
wait_for_windows '^Tembrel$' 2
# centre_of WINDOW: its place on the screen, "X Y".
centre_of() {
  xdotool getwindowgeometry --shell "$1" |
    awk -F = '{ at[$1] = $2 } END { print int(at["X"] + at["WIDTH"] / 2), int(at["Y"] + at["HEIGHT"] / 2) }'
}
# The message stands in the middle of the frame, as later ones do.
read -r frameX frameY < <(centre_of "$mainWindow")
read -r boxX boxY < <(centre_of "$(list_windows '^Tembrel$' | sort -n | tail -n 1)")
((frameX - boxX < 60 && boxX - frameX < 60 && frameY - boxY < 60 && boxY - frameY < 60)) ||
  fail "the message is at $boxX, $boxY and the frame's middle at $frameX, $frameY"
shows_no_colour "$centreRed" || fail "there is a document behind the message"
press Return
wait_for_windows '^Tembrel$' 1
wait_until "the empty window" shows_no_colour "$centreRed"
focus_window '^Tembrel$'
press ctrl+q
expect_exit 0
