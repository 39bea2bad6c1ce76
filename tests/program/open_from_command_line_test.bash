# shellcheck shell=bash
# A recording named on the command line is shown: its waveform, the line in its middle, its name in the title.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"

start_editor demo.wav
wait_for_waveform
wait_until "the centre line" shows_colour "$centreRed" 5

maximise_document
wait_for_windows '^Tembrel.*demo\.wav' 1
press ctrl+q
expect_exit 0

# A name with blanks that nobody quoted.
cp "$scratch/sounds/demo.wav" "$scratch/sounds/my own song.wav"
start_editor my own song.wav
wait_for_waveform
maximise_document
wait_for_windows '^Tembrel.*my own song\.wav' 1
press ctrl+q
expect_exit 0
