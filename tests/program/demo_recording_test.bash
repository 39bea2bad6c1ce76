# shellcheck shell=bash
# The demo recording is the same whenever it is made: six seconds, 44.1 kHz, 16 bits, stereo, and not silent.
set -euo pipefail

demo=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

"$demo" "$scratch/one.wav"
"$demo" "$scratch/two.wav"
cmp "$scratch/one.wav" "$scratch/two.wav"
[ "$(stat --format=%s "$scratch/one.wav")" -eq $((44 + 6 * 44100 * 4)) ]
# Tag 1, 2 channels, 44100 frames and 176400 bytes a second, 4 bytes a frame, 16 bits.
[ "$(od -A n -t u2 -j 20 -N 4 "$scratch/one.wav" | tr -s ' ')" = ' 1 2' ]
[ "$(od -A n -t u4 -j 24 -N 8 "$scratch/one.wav" | tr -s ' ')" = ' 44100 176400' ]
[ "$(od -A n -t u2 -j 32 -N 4 "$scratch/one.wav" | tr -s ' ')" = ' 4 16' ]
loud=$(od -A n -v -t d2 -w2 -j 44 "$scratch/one.wav" | awk '$1 > 15000 || $1 < -15000 { ++n } END { print n + 0 }')
[ "$loud" -gt 200 ]

if "$demo" "$scratch/no such folder/demo.wav" 2>"$scratch/said"; then
  exit 1
fi
grep --quiet "no such folder" "$scratch/said"
