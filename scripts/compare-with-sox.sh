#!/bin/bash
# Times tembrel-batch against sox on the same ten minutes of 44.1 kHz 16-bit stereo: whole processes, wall time, in one
# run, so that the machine's speed cancels out. Prints the ratio of the fastest of several rounds, that of the processor
# time, which a busy machine disturbs less (tembrel-batch may spread its own over all processors), and tembrel-batch's
# peak memory above the sound itself. compare-with-sox.sh BATCH [ROUNDS]
set -euo pipefail

batch=$(realpath "$1")
rounds=${2:-5}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export LC_ALL=C

# Music-like: tones that move, with some noise, not at full scale.
sox -n -r 44100 -b 16 -c 2 in.wav synth 600 pluck 220 tremolo 3 synth 600 brownnoise mix gain -6 2>sox.log
sync in.wav  # what is left of writing it would slow the first rounds down
soundBytes=$(stat --format=%s in.wav)

# seconds COMMAND...: the wall time of one run, and its processor time.
seconds() {
  local TIMEFORMAT='%3R %3U %3S'
  { time "$@" >run.log 2>&1; } 2>&1 | awk '{ print $1, $2 + $3 }'
}

# peak COMMAND...: its largest resident set in MiB above the sound's own bytes.
peak() {
  /usr/bin/time --format=%M --output=peak.log "$@" >run.log 2>&1
  awk -v sound="$soundBytes" '{ printf "%.0f", $1 / 1024 - sound / 1048576 }' peak.log
}

# best FIELD FILE: the smallest number there.
best() {
  cut -d ' ' -f "$1" "$2" | sort -g | head -n 1
}

# compare NAME LIMIT COMMAND SOX-EFFECT...: COMMAND is what the script does between open and save-as; '' for nothing.
compare() {
  local name=$1 limit=$2 command=$3
  shift 3
  {
    printf 'open in.wav\n'
    [ -z "$command" ] || printf '%s\n' "$command"
    printf 'save-as ours.wav\n'
  } >script
  : >ours.times
  : >theirs.times
  local round
  for ((round = 0; round < rounds; ++round)); do
    seconds "$batch" -q script >>ours.times
    seconds sox in.wav theirs.wav "$@" >>theirs.times
  done
  local memory=-
  [ ! -x /usr/bin/time ] || memory=$(peak "$batch" -q script)
  printf '%s %s %s %s %s %s %s\n' "$name" "$(best 1 ours.times)" "$(best 1 theirs.times)" "$limit" \
    "$(best 2 ours.times)" "$(best 2 theirs.times)" "$memory" |
    awk '{ ratio = $2 / $3; printf "%-12s %8.3f %8.3f %7.2f %7.2f  %-5s %10.2f %8s\n",
           $1, $2, $3, ratio, $4, ratio <= $4 ? "ok" : "SLOW", $5 / $6, $7 }'
}

equalizers=()
for band in 31 62 125 250 500 1000 2000 4000 8000 16000; do
  equalizers+=(equalizer "$band" 1q 3)
done

printf '%-12s %8s %8s %7s %7s  %-5s %10s %8s\n' what ours/s sox/s ratio limit '' processors '+MiB'
compare copy 1.0 ''
compare normalize 0.35 $'select all\nnormalize' norm -1
compare fade-in 0.35 $'select all\nfade-in' fade t 600
compare compress 0.2 $'select all\ncompress' compand 0.3,1 6:-70,-60,-20 -5 -90 0.2
compare reverb 0.2 $'select all\nreverb' reverb
compare filter 0.4 $'select all\nfilter 4' "${equalizers[@]}"
compare format 0.4 'format 22050 16 2' rate 22050
