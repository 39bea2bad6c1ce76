# shellcheck shell=bash
# Ctrl+Q ends the program with status 0, with and without a document, and leaves no temporary sound behind.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"

start_editor
focus_window '^Tembrel$'
press ctrl+q
expect_exit 0

start_editor demo.wav
wait_for_waveform
press ctrl+q
expect_exit 0
left=$(find "$scratch/program" -name '*.wav')
[ -z "$left" ] || fail "left behind: $left"
