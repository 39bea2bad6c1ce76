# shellcheck shell=bash
# Exit statuses, where words go, standard input, and that no library of a window system is needed.
# shellcheck source=batch.bash
. "$(dirname "$0")/batch.bash"

run 2
same "the first line of an empty command line's answer" "$(errors | head -n 1)" 'tembrel-batch: no script and no command given'
same "standard output of wrong usage" "$(output)" ''
run 2 -x
run 2 one two
run 2 -e
run 0 -h
same "the help's beginning" "$(output | head -c 20)" 'usage: tembrel-batch'
output | grep -q '^  amplify PERCENT$' || fail "the help does not show the command amplify"
# The man page tells every option and command that the help shows.
page=$(sed 's/\\-/-/g' "$here/../../packaging/tembrel-batch.1")
words=$(output | grep -o '^  [a-z-]*' | sort -u)
[ "$(wc -w <<<"$words")" -gt 40 ] || fail "the help shows only: $words"
for word in $words --help; do
  grep -qE -- "^\.B.*[ \"]$word([ \"]|\$)" <<<"$page" || fail "the man page has nothing on $word"
done
run 0 --version
output | grep -q '^Tembrel [0-9]' || fail "no version in $(output)"

run 0 -e 'echo one' -e 'echo "two words"'
same "what echo prints" "$(output)" $'one\ntwo words'
same "errors of a good run" "$(errors)" ''

printf 'echo one\n\n# comment\nbogus\necho two\n' >'my script.txt'
run 1 'my script.txt'
same "the error" "$(errors)" 'tembrel-batch: my script.txt:4: unknown command "bogus"'
same "what was printed before it" "$(output)" 'one'

run 1 - <'my script.txt'
same "the error on standard input" "$(errors)" 'tembrel-batch: -:4: unknown command "bogus"'
run 1 -e 'echo one' -e 'open missing.wav'
same "the error of a command" "$(errors)" 'tembrel-batch: -e 2: missing.wav does not exist.'
run 1 missing.txt
same "the error of a missing script" "$(errors)" 'tembrel-batch: missing.txt: cannot be read'
run 1 .

"$demoProgram" 'Größe "1".wav'
before=$(sha256sum <'Größe "1".wav')
run 1 -e 'open "Größe \"1\".wav"' -e 'select all' -e cut -e bogus
same "a file after a failed run" "$(sha256sum <'Größe "1".wav')" "$before"
run 0 -p "$scratch/program" -e 'open "Größe \"1\".wav"' -e 'select 0 1000' -e cut -e save -e info
output | grep -q '^frames: 263600$' || fail "wrong frames in $(output)"
same "the program folder afterwards" "$(ls -A "$scratch/program")" ''
same "the files afterwards" "$(ls -A)" $'Größe "1".wav\nmy script.txt'

before=$(sha256sum <'Größe "1".wav')
(
  ulimit -f 100 # KiB
  run 1 -e 'open "Größe \"1\".wav"' -e 'select 0 1000' -e cut -e save
  errors | grep -q 'Größe "1".wav could not be saved: File too large' || fail "a large file: $(errors)"
) || exit 1
same "a file too large to be saved" "$(sha256sum <'Größe "1".wav')" "$before"
same "the files beside it" "$(ls -A)" $'Größe "1".wav\nmy script.txt'

if [ -e /dev/full ]; then
  status=0
  tembrel-batch -e 'echo one' >/dev/full 2>/dev/null || status=$?
  same "the status when the output cannot be written" "$status" 1
fi

needed=$(readelf -d "$batchProgram" | sed -n 's/.*(NEEDED).*\[\([a-z_A-Z+0-9]*\).*/\1/p' | sort | tr '\n' ' ')
for library in $needed; do
  case $library in
    libc | libm | libgcc_s | libstdc++ | libpthread | ld | libasan | libubsan) ;;
    *) fail "needs $library" ;;
  esac
done
[ -n "$needed" ] || fail "readelf shows no libraries"
