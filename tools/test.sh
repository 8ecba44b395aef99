#!/usr/bin/env bash
# Installs what is missing, builds Kelvane three times (plain; without the
# toolkit; with AddressSanitizer + UBSan) and runs every test of each build.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/setup-debian.sh
JOBS=$(nproc)

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j "$JOBS"
echo "== tests =="
(cd build && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$JOBS" --timeout 600)

# The libraries, kelvane-cli and the headless tests stand without Qt: this
# tree neither finds nor links it.
cmake -S . -B build-nogui -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKELVANE_GUI=OFF -DKELVANE_BENCH=OFF
cmake --build build-nogui -j "$JOBS"
if grep -q '^Qt6_DIR:' build-nogui/CMakeCache.txt || ldd build-nogui/cli/kelvane-cli | grep -q 'libQt'; then
  echo "the build without the toolkit found or linked Qt" >&2
  exit 1
fi
echo "== tests without the toolkit =="
(cd build-nogui && ctest --output-on-failure -j "$JOBS" --timeout 600)

cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DKELVANE_SANITIZE=ON -DKELVANE_BENCH=OFF
cmake --build build-asan -j "$JOBS"
echo "== tests under AddressSanitizer and UBSan =="
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=0:strict_string_checks=1"
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
(cd build-asan && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$JOBS" --timeout 900)
