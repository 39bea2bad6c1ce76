# shellcheck shell=bash
# A private X display for programs that need one where there is none. To be sourced.

# start_virtual_display: starts Xvfb, 1280 by 900 pixels, on a free display number and exports DISPLAY. The caller ends it with
# stop_virtual_display. Fails, with DISPLAY unchanged, when the server does not come up within 30 seconds.
start_virtual_display() {
  local number
  # The server names the display it took once it accepts connections. It ends with this shell, however that ends.
  exec {virtualDisplayPipe}< <(
    exec setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp -noreset 3>&1 >/dev/null 2>&1 </dev/null
  )
  virtualDisplayPid=$!
  if ! read -r -t 30 -u "$virtualDisplayPipe" number || [ -z "$number" ]; then
    stop_virtual_display
    return 1
  fi
  export DISPLAY=":$number"
}

stop_virtual_display() {
  if [ -n "${virtualDisplayPid:-}" ]; then
    kill "$virtualDisplayPid" 2>/dev/null || true
    wait "$virtualDisplayPid" 2>/dev/null || true
    exec {virtualDisplayPipe}<&-
    virtualDisplayPid=
  fi
}
