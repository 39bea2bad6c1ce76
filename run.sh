#!/usr/bin/env bash
# Builds the editor, after installing what that needs, and starts it: ./run.sh [FILE]. Without FILE it opens a short demo
# recording; without a display it saves a picture of the window and ends.
set -euo pipefail

top=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$top/build/run
log=$build/build.log
# Where there is a compiler cache, what one clone or build folder compiled serves the others.
export CCACHE_BASEDIR=$top CCACHE_NOHASHDIR=yes

# run_logged TEXT COMMAND...: one line of progress on a terminal; the whole log only when the command fails.
run_logged() {
  local text=$1 line status=0
  shift
  "$@" 2>&1 </dev/null | while IFS= read -r line; do
    printf '%s\n' "$line" >&3
    case "$line" in
      \[*) [ ! -t 2 ] || printf '\r\033[K%s %.60s' "$text" "${line%%]*}]" >&2 ;;
    esac
  done 3>"$log" || status=$?
  [ ! -t 2 ] || printf '\r\033[K' >&2
  if [ "$status" -ne 0 ]; then
    cat "$log" >&2
    printf '%s failed; the log is %s\n' "$text" "$log" >&2
  fi
  return "$status"
}

build_editor() {
  mkdir -p "$build"
  if [ ! -x "$build/bin/tembrel-qt" ]; then
    printf 'Building the editor in %s\n' "$build" >&2
  fi
  # The packages of the tests and benchmarks need not be there.
  run_logged Configuring cmake --preset release -S "$top" -B "$build" \
    -DTEMBREL_BUILD_TESTS=OFF -DTEMBREL_BUILD_SANITIZED_TESTS=OFF -DTEMBREL_BUILD_BENCHMARKS=OFF
  run_logged Building cmake --build "$build" --parallel "$(nproc)" --target tembrel-qt demo-recording
}

# What the editor shows, as a picture, from a display of its own.
save_screenshot() {
  local picture=$build/screenshot.png status=0
  # shellcheck source=scripts/virtual-display.bash
  . "$top/scripts/virtual-display.bash"
  trap stop_virtual_display EXIT
  if ! start_virtual_display; then
    printf 'There is no display, and no virtual one could be started.\n' >&2
    return 1
  fi
  rm -f "$picture"
  mkdir -p "$build/runtime"
  chmod 700 "$build/runtime"
  QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$build/runtime} timeout 120 "$build/bin/tembrel-qt" --screenshot "$picture" "$@" || status=$?
  if [ "$status" -ne 0 ] || [ ! -s "$picture" ]; then
    printf 'The editor ended with status %s and left no picture.\n' "$status" >&2
    return 1
  fi
  printf 'There is no display. The window, as it would look: %s\n' "$picture"
}

"$top/scripts/dependencies.sh" run
build_editor
if [ $# -eq 0 ]; then
  "$build/bin/demo-recording" "$build/demo.wav"
  set -- "$build/demo.wav"
fi
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  save_screenshot "$@"
else
  exec "$build/bin/tembrel-qt" "$@"
fi
