# shellcheck shell=bash
# The recording setup by keys: without a sound server the format is chosen and kept, with one a line.
# shellcheck source=desktop.bash
. "$(dirname "$0")/desktop.bash"
# shellcheck source=sound_server.bash
. "$(dirname "$0")/sound_server.bash"
setup='^Recording Audio Setup$'
settings=$scratch/program/TEMBREL.INI

expect_setting() {
  grep -qx "$1" "$settings" || fail "TEMBREL.INI has no line $1: $(tr '\n' ' ' <"$settings")"
}

open_setup() {
  focus_window '^Tembrel'
  press alt+o a
  focus_window "$setup"
}

# close_setup KEY: accepts with Return, cancels with Escape.
close_setup() {
  press "$1"
  wait_for_windows "$setup" 0
}

quit() {
  focus_window '^Tembrel'
  press ctrl+q
  expect_exit 0
}

export PULSE_SERVER=unix:$scratch/no-server
start_editor
open_setup
# Rate, resolution and channels from the top; the next that can be reached is the check box.
press alt+r Home alt+e Home alt+c Home Tab space
close_setup Return
open_setup
press alt+r End
close_setup Escape
quit
expect_setting Rate=1
expect_setting Bits=8
expect_setting Channels=1
expect_setting 'Show Dialog=0'
expect_setting 'Recording Line=-1'
expect_setting 'Recording Volume=32767'

start_sound_server
start_editor
open_setup
# The last line of the server, at the loudest of the slider.
press alt+l End alt+v End
close_setup Return
quit
lines=$(pactl list short sources | wc -l)
expect_setting Rate=1
expect_setting "Recording Line=$((lines - 1))"
expect_setting 'Recording Volume=65535'
