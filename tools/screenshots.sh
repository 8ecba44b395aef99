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
# The same main window started in a decimal-comma locale and in C.UTF-8:
# the two pictures must be equal (numbers are read and drawn with a point
# whatever the desktop's language).
for loc in C.UTF-8 de_DE.UTF-8; do
  mkdir -p "$OUT/$loc"
  LC_ALL=$loc LANG=$loc QT_QPA_PLATFORM=xcb KELVANE_SCREENSHOT_DIR="$(realpath "$OUT/$loc")" \
    xvfb-run -a -s "-screen 0 1280x900x24" "$BUILD/tests/gui/test_gui" \
    --gtest_filter=DecimalCommaDesktop.MainWindowPictureInTheStartingLocale
done
if cmp -s "$OUT/C.UTF-8/main-window-locale.png" "$OUT/de_DE.UTF-8/main-window-locale.png"; then
  echo "main window under de_DE.UTF-8 equals the one under C.UTF-8"
else
  echo "main window under de_DE.UTF-8 differs from the one under C.UTF-8" >&2
  exit 1
fi
QT_QPA_PLATFORM=xcb KELVANE_SCREENSHOT_DIR="$(realpath "$OUT")" \
  xvfb-run -a -s "-screen 0 1280x900x24" "$BUILD/tests/gui/test_gui"
# The first page of the passage plan's PDF as kelvane-cli writes it, drawn
# by poppler (pdftoppm) as a reader would see it.
"$BUILD/cli/kelvane-cli" --data-root data --user-folder "$(mktemp -d)" plan tests/data/passage/vineyard.gpx \
  --area 'Nantucket Sound' --depart '2025-06-10 08:00' --pdf "$OUT/passage-plan.pdf"
pdftoppm -png -r 60 -f 1 -l 1 -singlefile "$OUT/passage-plan.pdf" "$OUT/passage-plan-page1"
ls -l "$OUT"
# The chart across a restart, on a real X window: restore-1-as-left is the
# Solent as the first run left it, restore-2-next-start the next start's
# first view; the test that takes them holds the two views to one pixel.
for shot in restore-1-as-left restore-2-next-start; do
  test -s "$OUT/$shot.png" || { echo "missing $OUT/$shot.png" >&2; exit 1; }
done
