# shellcheck shell=bash
# What was opened stands in the File menu at the next start and opens from there.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"

cp "$scratch/sounds/demo.wav" "$scratch/sounds/remember me.wav"
start_editor "remember me.wav"
wait_for_waveform
press ctrl+q
expect_exit 0
grep --recursive --quiet "remember me.wav" "$XDG_CONFIG_HOME" || fail "the settings do not hold the file's name"

start_editor
focus_window '^Tembrel$'
wait_until "the empty window" shows_no_colour "$waveBlue"
windowsBefore=$(visible_windows)
press alt+f
wait_until "the File menu" menu_is_open "$windowsBefore"
# The recent files are the menu's last entries.
press Up Return
wait_for_waveform
press ctrl+q
expect_exit 0
