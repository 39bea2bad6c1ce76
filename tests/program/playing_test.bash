# shellcheck shell=bash
# Playing and recording by keys and buttons: in silence without a sound server, and with one as it is heard, sample for
# sample.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"
# shellcheck source=sound_server.bash
. "$(dirname "$0")/sound_server.bash"

header=44
tail -c +$((header + 1)) "$scratch/sounds/demo.wav" >"$scratch/demo.raw"

# sound_begins FILE: at which byte the first frame that is no silence begins; the file's end when there is none.
sound_begins() {
  local differ
  differ=$({ cmp "$1" /dev/zero 2>/dev/null || true; } | sed -n 's/.*byte \([0-9]*\),.*/\1/p')
  echo $(((${differ:-$(($(stat --format=%s "$1") + 1))} - 1) / 4 * 4))
}

# without_silence FILE: it from its first frame that is no silence on.
without_silence() {
  tail -c +$(($(sound_begins "$1") + 1)) "$1"
}
without_silence "$scratch/demo.raw" >"$scratch/expected.raw"
expectedSize=$(stat --format=%s "$scratch/expected.raw")

# gives_the_demo FILE: whether the raw sound in the file holds the demo to its last sample.
gives_the_demo() {
  cmp --silent --bytes="$expectedSize" --ignore-initial="$(sound_begins "$1"):0" "$1" "$scratch/expected.raw"
}
is_complete() {
  [ "$(stat --format=%s "$1")" -ge $(($(sound_begins "$1") + expectedSize)) ]
}

export PULSE_SERVER=unix:$scratch/no-server
start_editor demo.wav
wait_for_waveform
maximise_document
window_picture "$scratch/start.png"

# In silence the cursor runs all the same, and Space stops it.
press space
wait_until "the Play button to be down" is_down "${playButton[@]}"
wait_until "the cursor to run" view_looks_unlike "$scratch/start.png"
press space
wait_until "the Play button to be up" is_up "${playButton[@]}"

# Paused, the cursor stands; at its end it goes back to the left edge.
press p
wait_until "the Play button to be down" is_down "${playButton[@]}"
click "${pauseButton[@]}"
wait_until "the Pause button to be down" is_down "${pauseButton[@]}"
# The button is painted before the cursor stands. At the end of the screen it would stand, too, the Play button up.
cursor_stands() {
  window_picture "$scratch/paused.png" && view_looks_like "$scratch/paused.png"
}
wait_until "the cursor to stand" cursor_stands
is_down "${playButton[@]}" || fail "the cursor runs in a pause"
click "${pauseButton[@]}"
wait_until "the Pause button to be up" is_up "${pauseButton[@]}"
wait_until "the end of the screen" is_up "${playButton[@]}"
view_looks_like "$scratch/start.png" || fail "the cursor is not back at the left edge"

# A recording says why it cannot begin.
focus_window '^Tembrel.*demo'
click "${recordButton[@]}"
focus_window '^Recording Audio Setup$'
press alt+r End Return
focus_window '^Tembrel$'
press Return
wait_for_windows '^Tembrel$' 0
is_up "${recordButton[@]}" || fail "the Record button is down without a sound server"
press ctrl+q
expect_exit 0

start_sound_server
heard=$scratch/heard.raw
listen speakers.monitor "$heard"
start_editor demo.wav
wait_for_waveform
maximise_document
press space
wait_until "the whole sound" is_complete "$heard"
gives_the_demo "$heard" || fail "what was heard is not the recording"
wait_until "the end of the sound" is_up "${playButton[@]}"

# From the cursor, in the middle, it is about half of it.
heard=$scratch/half.raw
listen speakers.monitor "$heard"
read -r width height < <(client_size)
click $((width / 2)) $((height / 2))
press shift+p
wait_until "the Play button to be down" is_down "${playButton[@]}"
wait_until "the end of the sound" is_up "${playButton[@]}"
wait_until "silence" is_quiet "$heard"
without_silence "$heard" >"$scratch/half.sound"
halfSize=$(stat --format=%s "$scratch/half.sound")
[ "$halfSize" -gt $((expectedSize / 3)) ] || fail "half of the sound is $halfSize of $expectedSize bytes"
if cmp --silent --bytes=$((expectedSize / 4)) "$scratch/half.sound" "$scratch/expected.raw"; then
  fail "from the cursor it played from the start"
fi

# Stop ends it at once.
press space
wait_until "the Play button to be down" is_down "${playButton[@]}"
click "${stopButton[@]}"
wait_until "the Play button to be up" is_up "${playButton[@]}"

# What comes from the microphone is recorded, saved under the name given, and opened.
click "${recordButton[@]}"
focus_window '^Recording Audio Setup$'
press alt+r End Return
wait_until "the Record button to be down" is_down "${recordButton[@]}"
paplay --device=room "$scratch/sounds/demo.wav"
focus_window '^Tembrel.*demo'
click "${stopButton[@]}"
focus_window '^Save'
type_text "$scratch/sounds/take.mp3"
press Return
wait_until "the take's ending to be asked for" has_windows '^Save$' 1
press Return
wait_for_windows '^Tembrel.*take\.WAV' 1
tail -c +$((header + 1)) "$scratch/sounds/take.WAV" >"$scratch/take.raw"
gives_the_demo "$scratch/take.raw" || fail "the take is not what the microphone heard"
press ctrl+q
expect_exit 0
