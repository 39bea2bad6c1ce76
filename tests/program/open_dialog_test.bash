# shellcheck shell=bash
# Ctrl+O asks for a file; a typed path with blanks opens.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"

mkdir "$scratch/sounds/two words"
cp "$scratch/sounds/demo.wav" "$scratch/sounds/two words/a long name.wav"
start_editor
focus_window '^Tembrel$'

# Cancelled, nothing opens.
press ctrl+o
focus_window '^Open$'
press Escape
wait_for_windows '^Open$' 0
wait_until "the empty window" shows_no_colour "$waveBlue"

focus_window '^Tembrel$'
press ctrl+o
focus_window '^Open$'
type_text "$scratch/sounds/two words/a long name.wav"
press Return
wait_for_windows '^Open$' 0
wait_for_waveform
press ctrl+q
expect_exit 0
