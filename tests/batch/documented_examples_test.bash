# shellcheck shell=bash
# The examples of docs/batch-examples.md do what their headings say.
# shellcheck source=batch.bash
. "$(dirname "$0")/batch.bash"

examples=$here/../../docs/batch-examples.md

# example HEADING: the commands below the heading that begins so.
example() {
  awk -v heading="## $1" 'index($0, "## ") == 1 { here = index($0, heading) == 1 }
    here && /^```/ { inside = !inside; next }
    here && inside' "$examples" | grep . || fail "no example under $1"
}

# The README and the man page show the same commands.
fenced() {
  awk '/^```bash$/ { inside = 1; next } /^```$/ { inside = 0 } inside' "$1"
}
paged() {
  awk '/^\.nf$/ { inside = 1; next } /^\.fi$/ { inside = 0 } inside' "$1" |
    sed -e "s/\\\\(aq/'/g" -e 's/\\-/-/g' -e 's/\\e/\\/g'
}
fenced "$examples" | grep -q 'open talk.wav' || fail "no commands in the examples"
diff <(fenced "$examples") <(fenced "$here/../../README.md") || fail "the README shows other commands"
diff <(fenced "$examples") <(paged "$here/../../packaging/tembrel-batch.1") || fail "the man page shows other commands"

mkdir folder
make_talk 'folder/a talk.wav'
cp 'folder/a talk.wav' folder/b.wav
cp folder/b.wav 'folder/q" \x\\.wav'
tembrel-batch -q -e 'open folder/b.wav' -e 'select all' -e 'amplify 50' -e save
(cd folder && eval "$(example 'Bring every file')")
# peak FILE: its largest positive sample.
peak() {
  tail -c +45 "$1" | od -An -v -w2 -t d2 | sort -n | tail -n 1 | tr -d ' '
}
for file in folder/*.wav; do
  top=$(peak "$file")
  ((top >= 29000 && top <= 29700)) || fail "the peak of $file is $top, not nine tenths of full scale"
done

make_talk talk.wav
frames=$(value frames talk.wav)
eval "$(example 'Cut the first')"
same "the frames without ten seconds" "$(value frames short.wav)" $((frames - 441000))
cmp <(tail -c +45 short.wav) <(tail -c +$((45 + 441000 * 4)) talk.wav) || fail "the end is not the end of the talk"

eval "$(example 'Convert to mono')"
same "rate, channels and frames" "$(value rate small.wav) $(value channels small.wav) $(value frames small.wav)" \
  "22050 1 $((frames / 2))"
# Every sample of the small file is the mean of four of the talk's, left and right of two frames. The channels of the talk differ,
# or one of them alone would do as well. Both steps truncate, so the mean may be one off.
paste <(tail -c +45 talk.wav | od -An -v -w8 -t d2) <(tail -c +45 small.wav | od -An -v -w2 -t d2) | awk '
  { off = $5 - ($1 + $2 + $3 + $4) / 4; if (off < 0) off = -off; if (off > farthest) farthest = off
    apart = $1 - $2; if (apart < 0) apart = -apart; if (apart > widest) widest = apart }
  END { if (widest < 1000) { print "the channels of the talk are alike"; exit 1 }
    if (farthest > 1.5) { print "a sample is " farthest " from the mix"; exit 1 } }' ||
  fail "the small file is not both channels mixed"

eval "$(example 'A picture')"
head -n 1 talk.svg | grep -q '^<svg .*width="1200" height="200"' || fail "no drawing of the size: $(head -n 1 talk.svg)"
grep -q '#0000FF' talk.svg || fail "the drawing has no waveform"
same "the talk itself" "$(value frames talk.wav)" "$frames"
