# shellcheck shell=bash
# A file that is not there is answered by a message, not by an empty document.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"

start_editor "no such song.wav"
# The message box is the second window of that title.
wait_for_windows '^Tembrel$' 2
shows_no_colour "$centreRed" || fail "there is a document behind the message"
press Return
wait_for_windows '^Tembrel$' 1
wait_until "the empty window" shows_no_colour "$centreRed"
focus_window '^Tembrel$'
press ctrl+q
expect_exit 0
