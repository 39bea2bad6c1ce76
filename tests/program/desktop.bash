# shellcheck shell=bash
# The frame of the whole-program tests, sourced first by each: a display with a window manager, a scratch home, a copy of
# the program in a scratch program folder, and functions to press, click, wait and look. A test is called with the paths
# of the editor and of the demo recording's generator; it ends with status 0, 1 with a reason and a picture, or 77 when the
# machine has no virtual display.
set -euo pipefail

editorSource=$1
demoSource=$2
testName=$(basename "$0" .bash)
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=../../scripts/virtual-display.bash
. "$here/../../scripts/virtual-display.bash"

patience=30  # seconds until something that should happen counts as not happening

fail() {
  printf '%s: %s\n' "$testName" "$1" >&2
  if [ -n "${virtualDisplayPid:-}" ] && screenshot "$testName.failed.png"; then
    printf 'The screen then: %s/%s.failed.png\n' "$PWD" "$testName" >&2
  fi
  [ ! -s "$scratch/editor.log" ] || cat "$scratch/editor.log" >&2
  exit 1
}

# clean_up also ends an editor that the test left running.
clean_up() {
  [ -z "${editorPid:-}" ] || kill "$editorPid" 2>/dev/null || true
  [ -z "${managerPid:-}" ] || kill "$managerPid" 2>/dev/null || true
  stop_virtual_display
  rm -rf "$scratch"
}

# wait_until WHAT COMMAND...: polls until the command succeeds; fails the test after the patience is over.
wait_until() {
  local what=$1 end=$((SECONDS + patience))
  shift
  until "$@"; do
    [ "$SECONDS" -lt "$end" ] || fail "waited $patience s in vain for $what"
    sleep 0.05
  done
}

start_desktop() {
  local tool
  for tool in Xvfb openbox xdotool import convert; do
    if ! command -v "$tool" >/dev/null; then
      printf '%s is not installed\n' "$tool"
      exit 77
    fi
  done
  scratch=$(mktemp -d)
  trap clean_up EXIT
  mkdir -p "$scratch"/{home,config,data,cache,program,sounds}
  mkdir -m 700 "$scratch/runtime"
  export HOME=$scratch/home XDG_CONFIG_HOME=$scratch/config XDG_DATA_HOME=$scratch/data XDG_CACHE_HOME=$scratch/cache
  export XDG_RUNTIME_DIR=$scratch/runtime QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8 GTK_USE_PORTAL=0
  unset WAYLAND_DISPLAY XDG_CURRENT_DESKTOP DESKTOP_SESSION QT_SCALE_FACTOR QT_STYLE_OVERRIDE QT_QPA_PLATFORMTHEME
  unset XDG_DATA_DIRS XDG_CONFIG_DIRS DBUS_SESSION_BUS_ADDRESS
  start_virtual_display || fail "the virtual display does not start"
  openbox --startup "touch '$scratch/manager-is-up'" >"$scratch/manager.log" 2>&1 &
  managerPid=$!
  wait_until "the window manager" test -e "$scratch/manager-is-up"
  cp "$editorSource" "$scratch/program/"
  editor=$scratch/program/$(basename "$editorSource")
  "$demoSource" "$scratch/sounds/demo.wav"
}

# start_editor [ARGUMENT...]: leaves its process in editorPid and its main window in mainWindow.
start_editor() {
  (cd "$scratch/sounds" && exec "$editor" "$@") >"$scratch/editor.log" 2>&1 &
  editorPid=$!
  wait_until "the main window" find_main_window
}

# Window ids grow: the main window was there before any message box, whatever its title.
find_main_window() {
  mainWindow=$(list_windows '^Tembrel' | sort -n | head -n 1)
  [ -n "$mainWindow" ]
}

# list_windows TITLE: the ids of the editor's visible windows whose title the pattern matches.
list_windows() {
  xdotool search --all --onlyvisible --pid "$editorPid" --name "$1" 2>/dev/null || true
}

has_windows() {
  [ "$(list_windows "$1" | wc -l)" -eq "$2" ]
}

# wait_for_windows TITLE COUNT: until the editor has so many visible windows whose title the pattern matches.
wait_for_windows() {
  wait_until "$2 window(s) titled $1" has_windows "$1" "$2"
}

# focus_window TITLE: waits for the one window of that title and for the keyboard to be its own.
focus_window() {
  wait_for_windows "$1" 1
  xdotool windowactivate --sync "$(list_windows "$1")"
}

# A menu is a window of its own: with it there are more than the visible_windows from before, which menu_is_open is given.
visible_windows() {
  list_windows '' | wc -l
}
menu_is_open() {
  [ "$(visible_windows)" -gt "$1" ]
}

editor_is_gone() {
  ! kill -0 "$editorPid" 2>/dev/null
}

# expect_exit STATUS: the editor ends by itself.
expect_exit() {
  local status=0
  wait_until "the editor's end" editor_is_gone
  wait "$editorPid" || status=$?
  editorPid=
  [ "$status" -eq "$1" ] || fail "the editor ended with status $status instead of $1"
}

press() {
  xdotool key --delay 20 "$@"
}

type_text() {
  xdotool type --delay 5 -- "$1"
}

# client_size: "WIDTH HEIGHT" of the main window without its frame.
client_size() {
  xdotool getwindowgeometry --shell "$mainWindow" | sed -n 's/^WIDTH=//p; s/^HEIGHT=//p' | paste -s -d ' '
}

# click X Y [COUNT]: the left button, at a place of the main window; counted from its right or bottom edge when negative.
# The mouse goes away again, so that nothing is lit up under it.
click() {
  local width height
  read -r width height < <(client_size)
  xdotool mousemove --window "$mainWindow" $(($1 < 0 ? width + $1 : $1)) $(($2 < 0 ? height + $2 : $2)) \
    click --repeat "${3:-1}" --delay 60 1 mousemove 0 0
}

# screenshot FILE: the whole screen.
screenshot() {
  timeout 10 import -silent -window root "png24:$1"
}

# window_picture FILE: the main window without its frame.
window_picture() {
  timeout 10 import -silent -window "$mainWindow" "png24:$1"
}

# count_colour FILE COLOUR: how many pixels of the picture have exactly this colour, given as RRGGBB.
count_colour() {
  convert "$1" -fill black +opaque "#$2" -fill white -opaque "#$2" -format '%[fx:round(mean*w*h)]' info:
}

# shows_colour COLOUR PIXELS: whether at least so many pixels of the main window have the colour now.
shows_colour() {
  window_picture "$scratch/look.png" && [ "$(count_colour "$scratch/look.png" "$1")" -ge "$2" ]
}

shows_no_colour() {
  window_picture "$scratch/look.png" && [ "$(count_colour "$scratch/look.png" "$1")" -eq 0 ]
}

# The waveform's pen and the pen of the line in its middle.
# shellcheck disable=SC2034
waveBlue=0000FF
# shellcheck disable=SC2034
centreRed=800040

# wait_for_waveform: until a recording is drawn in the main window.
wait_for_waveform() {
  wait_until "a waveform" shows_colour "$waveBlue" 500
}

# Where the transport's buttons are in the main window, and the colour of one that is down.
# shellcheck disable=SC2034
playButton=(58 46) pauseButton=(92 46) stopButton=(126 46) recordButton=(160 46)
downBlue=308CC6

# is_down X Y, is_up X Y: how the transport's button there stands.
is_down() {
  window_picture "$scratch/look.png" &&
    convert "$scratch/look.png" -crop "30x30+$(($1 - 15))+$(($2 - 15))" +repage "$scratch/button.png" &&
    [ "$(count_colour "$scratch/button.png" "$downBlue")" -gt 300 ]
}

is_up() {
  ! is_down "$@"
}

# maximise_document: by a double click on its title bar. Its name then stands in the main window's title.
maximise_document() {
  click 300 80 2
  wait_for_windows '^Tembrel.*\[' 1
}

# view_sum FILE: a sum of what a picture of the main window with a maximised document holds of the waveform view.
view_sum() {
  convert "$1" -crop +2+104 +repage -gravity SouthEast -chop 24x40 rgb:- | sha256sum
}

# view_looks_like FILE: whether the view looks exactly as in that picture of the main window. view_looks_unlike FILE: or not.
view_looks_like() {
  window_picture "$scratch/look.png" && [ "$(view_sum "$scratch/look.png")" = "$(view_sum "$1")" ]
}

view_looks_unlike() {
  window_picture "$scratch/look.png" && [ "$(view_sum "$scratch/look.png")" != "$(view_sum "$1")" ]
}

start_desktop
