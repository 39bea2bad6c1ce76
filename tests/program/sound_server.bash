# shellcheck shell=bash
# A private sound server for whole-program tests, sourced after desktop.bash: a sink whose monitor tells what was played, and
# a second one whose sound is what a microphone hears.
# shellcheck disable=SC2154  # desktop.bash sets $scratch

# start_sound_server: programs started from now on find the server. The test is skipped when none is installed.
start_sound_server() {
  if ! command -v pulseaudio >/dev/null; then
    printf 'pulseaudio is not installed\n'
    exit 77
  fi
  local own=$scratch/server
  mkdir -m 700 "$own" "$own/runtime"
  cat >"$own/setup" <<EOF
load-module module-native-protocol-unix socket=$own/socket auth-anonymous=1
load-module module-null-sink sink_name=speakers rate=44100 channels=2 format=s16le norewinds=1 sink_properties=device.description=Speakers
load-module module-null-sink sink_name=room rate=44100 channels=2 format=s16le norewinds=1 sink_properties=device.description=Room
load-module module-remap-source source_name=microphone master=room.monitor source_properties=device.description=Microphone
set-default-sink speakers
set-default-source microphone
EOF
  # It ends with this shell, however that ends.
  env -u DISPLAY HOME="$own" XDG_RUNTIME_DIR="$own/runtime" XDG_CONFIG_HOME="$own" DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere \
    setpriv --pdeathsig KILL pulseaudio -n -F "$own/setup" --daemonize=no --use-pid-file=no --exit-idle-time=-1 \
    --disallow-exit=yes >"$scratch/server.log" 2>&1 &
  export PULSE_SERVER=unix:$own/socket
  wait_until "the sound server" sound_server_answers
}

sound_server_answers() {
  pactl info >"$scratch/server.info" 2>&1 && grep -q '^Default Source: microphone' "$scratch/server.info"
}

# listen SOURCE FILE: takes down what the source gives, as raw samples, until the test ends. Returns once sound comes.
listen() {
  setpriv --pdeathsig KILL parec --device="$1" --format=s16le --rate=44100 --channels=2 --latency-msec=50 >"$2" 2>"$scratch/parec.log" &
  wait_until "sound from $1" test -s "$2"
}

# is_heard FILE: something in it is no silence.
is_heard() {
  [ "$(tr -d '\000' <"$1" | head -c 1 | wc -c)" -eq 1 ]
}

# is_quiet FILE: the last quarter of a second of it is silence.
is_quiet() {
  [ "$(tail -c 44100 "$1" | tr -d '\000' | head -c 1 | wc -c)" -eq 0 ]
}
