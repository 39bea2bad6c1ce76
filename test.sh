#!/usr/bin/env bash
# Builds everything once and runs all checks: ./test.sh [CTEST OPTIONS], for example ./test.sh --label-regex lint
set -euo pipefail

top=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$top"
# Where there is a compiler cache, what one clone or build folder compiled serves the others.
export CCACHE_BASEDIR=$top CCACHE_NOHASHDIR=yes
jobs=$(nproc)

scripts/dependencies.sh test
cmake --preset release
cmake --build build/release --parallel "$jobs"
exec ctest --test-dir build/release --parallel "$jobs" --output-on-failure "$@"
