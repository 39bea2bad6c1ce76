# shellcheck shell=bash
# The cursor goes by keys, and the buttons at the right of the scroll bar zoom.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"

start_editor demo.wav
wait_for_waveform
maximise_document

# A click takes the keyboard; the cursor starts at the left edge.
click 200 300
press Home
settled() {
  window_picture "$scratch/start.png" && view_looks_like "$scratch/start.png"
}
wait_until "a picture that stays" settled

# End goes to the start as Home does.
for key in Home End; do
  press Right Right Right Right Right
  wait_until "the cursor further on" view_looks_unlike "$scratch/start.png"
  press "$key"
  wait_until "the cursor back by $key" view_looks_like "$scratch/start.png"
done

zoomAll=-9 zoomIn=-26 zoomOut=-43 buttonRow=92
click $zoomIn $buttonRow
wait_until "a closer view" view_looks_unlike "$scratch/start.png"
click $zoomOut $buttonRow
wait_until "the view from before" view_looks_like "$scratch/start.png"
click $zoomIn $buttonRow 3
wait_until "a closer view" view_looks_unlike "$scratch/start.png"
click $zoomAll $buttonRow
wait_until "the whole recording" view_looks_like "$scratch/start.png"
press ctrl+q
expect_exit 0
