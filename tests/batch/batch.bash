# shellcheck shell=bash
# The frame of the tests of tembrel-batch, sourced first by each: a scratch folder to work in with a recording of twelve
# seconds, and functions to run scripts and look at what came of them. A test is called with the paths of tembrel-batch and
# of the demo recording's generator; it ends with status 0, or 1 with a reason.
set -euo pipefail

batchProgram=$(realpath "$1")
demoProgram=$(realpath "$2")
testName=$(basename "$0" .bash)
# shellcheck disable=SC2034
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export HOME=$scratch/home XDG_DATA_HOME=$scratch/data XDG_CONFIG_HOME=$scratch/config
unset DISPLAY WAYLAND_DISPLAY
mkdir -p "$scratch"/{home,program,bin,work}
ln -s "$batchProgram" "$scratch/bin/tembrel-batch"
PATH=$scratch/bin:$PATH
cd "$scratch/work"

fail() {
  printf '%s: %s\n' "$testName" "$1" >&2
  exit 1
}

# run STATUS ARGUMENT...: runs tembrel-batch, which must end with this status; what it says is in out.txt and err.txt.
run() {
  local wanted=$1 status=0
  shift
  tembrel-batch "$@" >"$scratch/out.txt" 2>"$scratch/err.txt" || status=$?
  if [ "$status" -ne "$wanted" ]; then
    cat "$scratch/err.txt" >&2
    fail "tembrel-batch $* ended with status $status instead of $wanted"
  fi
}

# same WHAT ACTUAL EXPECTED
same() {
  [ "$2" = "$3" ] || fail "$1 is '$2' instead of '$3'"
}

output() {
  cat "$scratch/out.txt"
}

errors() {
  cat "$scratch/err.txt"
}

# value KEY FILE: a line of what info prints about the file.
value() {
  tembrel-batch -e "open \"$2\"" -e info | sed -n "s/^$1: //p"
}

# make_talk FILE: the demo recording twice.
make_talk() {
  "$demoProgram" "$1"
  tembrel-batch -q -e "open \"$1\"" -e 'select all' -e copy -e 'paste insert' -e save
}
