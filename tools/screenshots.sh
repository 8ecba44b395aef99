#!/usr/bin/env bash
# Pictures of the program's windows under a real X server (Xvfb): runs the
# widget tests on the xcb platform with KELVANE_SCREENSHOT_DIR set, so that
# each test that shows a window saves a picture of it.
#   bash tools/screenshots.sh [OUTPUT_FOLDER] [BUILD_FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."
OUT=${1:-build/screenshots}
BUILD=${2:-build}
mkdir -p "$OUT"
QT_QPA_PLATFORM=xcb KELVANE_SCREENSHOT_DIR="$(realpath "$OUT")" \
  xvfb-run -a -s "-screen 0 1280x900x24" "$BUILD/tests/gui/test_gui"
ls -l "$OUT"
# The chart across a restart, on a real X window: restore-1-as-left is the
# Solent as the first run left it, restore-2-next-start the next start's
# first view; the test that takes them holds the two views to one pixel.
for shot in restore-1-as-left restore-2-next-start; do
  test -s "$OUT/$shot.png" || { echo "missing $OUT/$shot.png" >&2; exit 1; }
done
