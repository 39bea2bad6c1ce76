# shellcheck shell=bash
# The filter is heard from its dialog through a sound server, and the selection from the action menu.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"
# shellcheck source=sound_server.bash
. "$(dirname "$0")/sound_server.bash"
start_sound_server
heard=$scratch/heard.raw
listen speakers.monitor "$heard"

start_editor demo.wav
wait_for_waveform
press ctrl+a f
focus_window '^Filter$'
press Down alt+a
wait_until "the filtered sound" is_heard "$heard"
press Escape
wait_for_windows '^Filter$' 0
wait_until "the end of the filtered sound" is_quiet "$heard"

# The last entry of the menu plays the selection.
heard=$scratch/selection.raw
listen speakers.monitor "$heard"
focus_window '^Tembrel'
press ctrl+a Up Return
wait_until "the selection" is_heard "$heard"

# Nothing was changed, and nothing is left of the files that were played.
[ -z "$(find "$scratch" -name play.wav)" ] || fail "play.wav is still there"
focus_window '^Tembrel'
press ctrl+q
expect_exit 0
