# shellcheck shell=bash
# A drag over the waveform, a cut from the action menu, undo and redo by keys, a paste, and each time the saved file.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"

cp "$scratch/sounds/demo.wav" "$scratch/original.wav"
header=44
samples() { tail -c +$((header + 1)) "$1"; }
size=$(($(stat --format=%s "$scratch/original.wav") - header))

saved_size_is_unlike() {
  [ "$(stat --format=%s "$scratch/sounds/demo.wav")" -ne "$1" ]
}
saved_sound_is() {
  samples "$scratch/sounds/demo.wav" | cmp --silent - "$1"
}
samples "$scratch/original.wav" >"$scratch/original.raw"

start_editor demo.wav
wait_for_waveform
maximise_document
wait_for_windows '^Tembrel.*demo\.wav' 1

# drag X1 X2: with the left button held, in steps as a hand does it; the mouse stays where it was let go.
drag() {
  xdotool mousemove --window "$mainWindow" "$1" 300 mousedown 1
  local x
  for x in $(seq $(($1 + ($2 - $1) / 8)) $((($2 - $1) / 8)) $(($2 - 1))) "$2"; do
    xdotool mousemove --sync --window "$mainWindow" "$x" 300
  done
  xdotool mouseup 1
}

left=200 right=500
windowsBefore=$(visible_windows)
drag $left $right
wait_until "the action menu" menu_is_open "$windowsBefore"
# Its first entry cuts.
press Down Return
wait_for_windows '^Tembrel.*demo\.wav\*' 1
press ctrl+s
wait_until "the saved cut" saved_size_is_unlike $((header + size))
wait_for_windows '^Tembrel.*demo\.wav\]' 1

# One stretch is missing, as long as the columns the mouse went over stand for, in whole frames.
samples "$scratch/sounds/demo.wav" >"$scratch/cut.raw"
cutSize=$((size - $(stat --format=%s "$scratch/cut.raw")))
read -r width _ < <(client_size)
fewest=$((size * (right - left) / width))
[ $((cutSize % 4)) -eq 0 ] || fail "a cut of $cutSize bytes ends inside a frame"
if [ "$cutSize" -lt "$fewest" ] || [ "$cutSize" -gt $((fewest * 5 / 4)) ]; then
  fail "cut $cutSize bytes with $((right - left)) of $width columns of $size bytes"
fi
start=$(($({ cmp "$scratch/original.raw" "$scratch/cut.raw" || true; } | sed 's/.*byte \([0-9]*\),.*/\1/') - 1))
start=$((start / 4 * 4))
{ head -c "$start" "$scratch/original.raw" && tail -c +$((start + cutSize + 1)) "$scratch/original.raw"; } >"$scratch/expected.raw"
cmp "$scratch/expected.raw" "$scratch/cut.raw" || fail "the saved file is not the recording without one stretch"

press ctrl+z
wait_for_windows '^Tembrel.*demo\.wav\*' 1
press ctrl+s
wait_until "the saved recording as it was" saved_sound_is "$scratch/original.raw"
press ctrl+y
wait_for_windows '^Tembrel.*demo\.wav\*' 1
press ctrl+s
wait_until "the saved cut once more" saved_sound_is "$scratch/cut.raw"

# Pasted at the start. The byte behind what was pasted keeps its value.
press Home ctrl+v
wait_for_windows '^Tembrel.*demo\.wav\*' 1
press ctrl+s
{
  head -c $((start + cutSize)) "$scratch/original.raw" | tail -c "$cutSize"
  head -c $((cutSize + 1)) "$scratch/cut.raw" | tail -c 1
  tail -c +2 "$scratch/cut.raw"
} >"$scratch/expected.raw"
wait_until "the saved paste" saved_sound_is "$scratch/expected.raw"
press ctrl+q
expect_exit 0
