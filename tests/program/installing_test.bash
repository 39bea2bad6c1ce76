# shellcheck shell=bash
# What "cmake --install" puts where, and that the installed programs start.
set -euo pipefail

editor=$1
buildFolder=$(dirname "$editor")/..
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --install "$buildFolder" --prefix "$scratch" >/dev/null
wanted='bin/tembrel-batch
bin/tembrel-qt
share/applications/tembrel.desktop
share/doc/Tembrel/CHANGELOG.md
share/doc/Tembrel/LICENSE
share/doc/Tembrel/batch-examples.md
share/doc/Tembrel/manual.md
share/icons/hicolor/scalable/apps/tembrel.svg
share/man/man1/tembrel-batch.1
share/man/man1/tembrel-qt.1
share/metainfo/tembrel.metainfo.xml'
diff <(printf '%s\n' "$wanted") <(cd "$scratch" && find . -type f -printf '%P\n' | LC_ALL=C sort)
for program in tembrel-qt tembrel-batch; do
  "$scratch/bin/$program" --version | grep '^Tembrel [0-9]' >/dev/null
  "$scratch/bin/$program" --help | grep "^usage: $program" >/dev/null
done
grep '^Exec=tembrel-qt ' "$scratch/share/applications/tembrel.desktop" >/dev/null
