# shellcheck shell=bash
# The sound server dies while the program records and while it plays: what was taken down is kept, and the cursor runs on.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"
# shellcheck source=sound_server.bash
. "$(dirname "$0")/sound_server.bash"
start_sound_server
serverPid=$!
disown "$serverPid"  # its end is no news

start_editor demo.wav
wait_for_waveform
maximise_document
click "${recordButton[@]}"
focus_window '^Recording Audio Setup$'
press Return
wait_until "the Record button to be down" is_down "${recordButton[@]}"
paplay --device=room "$scratch/sounds/demo.wav"
kill -KILL "$serverPid"
focus_window '^Tembrel$'
press Return
focus_window '^Save'
type_text "$scratch/sounds/rest"
press Return
wait_for_windows '^Tembrel.*rest\.WAV' 1
# The demo lasted six seconds; the rate recorded is at least 22050 frames of four bytes a second.
size=$(stat --format=%s "$scratch/sounds/rest.WAV")
[ "$size" -gt $((5 * 22050 * 4)) ] || fail "only $size bytes were kept"
is_up "${recordButton[@]}" || fail "the Record button is still down"

# Without its server the take plays in silence to its end.
window_picture "$scratch/start.png"
press p
wait_until "the cursor to run" view_looks_unlike "$scratch/start.png"
wait_until "the end" is_up "${playButton[@]}"
view_looks_like "$scratch/start.png" || fail "the cursor is not back at the left edge"
press ctrl+q
expect_exit 0
