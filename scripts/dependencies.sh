#!/usr/bin/env bash
# Installs the Debian packages that are missing: "dependencies.sh run" what ./run.sh needs, "dependencies.sh test" what
# ./test.sh needs besides, "dependencies.sh extra" what only the fuzz targets and the comparison with sox need. Says nothing
# when nothing is missing.
set -euo pipefail

build=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev libpulse-dev)
run=(libqt6widgets6 libqt6svg6 libpulse0 fonts-dejavu-core)
virtualDisplay=(xvfb)
wayland=(qt6-wayland)
unitTests=(libgtest-dev libgmock-dev libbenchmark-dev locales)
programTests=(openbox xdotool imagemagick pulseaudio)
lint=(clang-format clang-tidy shellcheck python3 git binutils)
extra=(clang sox time)

fail() {
  printf '%s\n' "$1" >&2
  exit 1
}

wanted=("${build[@]}" "${run[@]}")
case "${1:-}" in
  run)
    if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
      wanted+=("${virtualDisplay[@]}")
    elif [ -z "${DISPLAY:-}" ]; then
      wanted+=("${wayland[@]}")
    fi
    ;;
  test) wanted+=("${virtualDisplay[@]}" "${unitTests[@]}" "${programTests[@]}" "${lint[@]}") ;;
  extra) wanted=("${build[@]}" "${extra[@]}") ;;
  *) fail "usage: ${0##*/} run|test|extra" ;;
esac

if ! command -v dpkg-query >/dev/null; then
  printf 'This is no Debian system; the build needs what these packages hold there: %s\n' "${wanted[*]}" >&2
  exit 0
fi

declare -A present=()
while read -r package status; do
  if [ "$status" = installed ]; then
    present[$package]=yes
  fi
# A package never heard of makes dpkg-query complain and fail; it is simply missing.
done < <(dpkg-query --show --showformat '${Package} ${db:Status-Status}\n' "${wanted[@]}" 2>/dev/null || true)

missing=()
for package in "${wanted[@]}"; do
  if [ -z "${present[$package]:-}" ]; then
    missing+=("$package")
  fi
done
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

asRoot=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null ||
    fail "These packages are missing, and only root can install them: ${missing[*]}"
  asRoot=(sudo)
fi
apt=("${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get --quiet --quiet --yes -o DPkg::Lock::Timeout=300)

log=$(mktemp)
trap 'rm -f "$log"' EXIT
printf 'Installing: %s\n' "${missing[*]}" >&2
if ! { "${apt[@]}" update && "${apt[@]}" install --no-install-recommends "${missing[@]}"; } >"$log" 2>&1 </dev/null; then
  cat "$log" >&2
  fail "The packages could not be installed."
fi
