# shellcheck shell=bash
# The spectrum opens on the maximised document, maximised too, follows its cursor or not, is read by keys, and gives away its
# numbers and its picture.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"

paper=969696
start_editor demo.wav
wait_for_waveform
maximise_document

press alt+a
press a
wait_for_windows '^Tembrel.*\[Audio Spectrum\]' 1
wait_until "the plot" shows_colour $paper 100000
wait_until "a trace" shows_colour "$waveBlue" 200

# Never a second one.
press alt+a
press a Escape Escape
wait_for_windows '^Tembrel.*\[Audio Spectrum\]' 1

# The marker is dotted black and moves with the keys; the mouse, elsewhere, does not hide it.
marker_columns() {
  window_picture "$scratch/look.png"
  convert "$scratch/look.png" -crop +2+120 +repage -gravity SouthEast -chop 24x80 \
    -fill white +opaque black -negate -scale x1! -depth 8 txt:- | grep -c ',0:.*#[^0]' || true
}
[ "$(marker_columns)" -eq 0 ] || fail "a marker that nobody asked for"
window_picture "$scratch/start.png"
press Right Right Right
wait_until "the plot with a marker" view_looks_unlike "$scratch/start.png"
[ "$(marker_columns)" -eq 1 ] || fail "$(marker_columns) columns of the marker"
window_picture "$scratch/marked.png"
press Right
wait_until "the marker further on" view_looks_unlike "$scratch/marked.png"
press plus
window_picture "$scratch/marked.png"
press 0
wait_until "another zoom" view_looks_unlike "$scratch/marked.png"

# save_by LETTER NAME: through the context menu, opened by a key.
save_by() {
  press shift+F10
  press "$1"
  focus_window '^Save As$'
  press ctrl+a
  type_text "$scratch/sounds/$2"
  press Return
  wait_for_windows '^Save As$' 0
  wait_until "$2" test -s "$scratch/sounds/$2"
}
save_by n first.csv
[ "$(wc -l <"$scratch/sounds/first.csv")" -eq 2049 ] || fail "the table has not 2048 bins"
[ "$(head -n 1 "$scratch/sounds/first.csv")" = bin,hz,power,power_right ] || fail "the table's head is another"
save_by p first.png
read -r width _ < <(client_size)
[ "$(convert "$scratch/sounds/first.png" -format %w info:)" -eq "$width" ] || fail "the picture is not as wide as the window"

# move_cursor KEYS...: in the document, and back.
move_cursor() {
  press alt+w
  press 1
  wait_for_windows '^Tembrel.*demo\.wav\]' 1
  press "$@"
  press alt+w
  press 2
  wait_for_windows '^Tembrel.*\[Audio Spectrum\]' 1
}
move_cursor F12
save_by n second.csv
! cmp --silent "$scratch/sounds/first.csv" "$scratch/sounds/second.csv" || fail "the cursor's move was not followed"
press shift+F10
press f
move_cursor Home
save_by n third.csv
cmp "$scratch/sounds/second.csv" "$scratch/sounds/third.csv" || fail "the cursor was followed against orders"
press shift+F10
press f
save_by n fourth.csv
! cmp --silent "$scratch/sounds/third.csv" "$scratch/sounds/fourth.csv" || fail "the cursor was not looked for again"

# The document goes, its spectrum stays; then it goes too.
press alt+w
press 1
wait_for_windows '^Tembrel.*demo\.wav\]' 1
press alt+f
press c
wait_for_windows '^Tembrel.*\[Audio Spectrum\]' 1
save_by n fifth.csv
cmp "$scratch/sounds/fourth.csv" "$scratch/sounds/fifth.csv" || fail "the last spectrum is lost"
press alt+f
press c
wait_for_windows '^Tembrel$' 1
press ctrl+q
expect_exit 0
