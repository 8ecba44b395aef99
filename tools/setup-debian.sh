#!/usr/bin/env bash
# Installs every Debian 12 package that Kelvane needs to build, run and test.
# Idempotent: packages already present are left alone, and nothing is fetched
# when all of them are installed.
set -euo pipefail

PACKAGES=(
  # tool chain
  build-essential cmake ninja-build pkg-config git
  # libraries of the program
  qt6-base-dev qt6-base-dev-tools qt6-serialport-dev libqt6svg6
  libsqlite3-dev mdbtools-dev libpugixml-dev libcli11-dev
  # tests and benchmarks
  libgtest-dev libgmock-dev libbenchmark-dev
  # peers and harnesses used by the tests
  socat gpsbabel gpsd-clients xvfb xauth sqlite3 mdbtools
  # poppler-utils (pdftotext, pdftoppm): reads back the passage plan's PDF
  poppler-utils
  # ecCodes (grib_filter, grib_get_data): makes and checks the GRIB test files
  libeccodes-tools
  # ecCodes' library: the yardstick of the GRIB decode benchmark only
  libeccodes-dev
  # sanitizer runtimes for the instrumented test run
  libclang-rt-14-dev
  # the locales whose date order and weekday names the tests probe
  locales-all
  # fonts so that offscreen widgets can render text
  fonts-dejavu-core
)

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if ((${#missing[@]})); then
  SUDO=""
  if [[ $(id -u) -ne 0 ]]; then SUDO="sudo"; fi
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y --no-install-recommends "${missing[@]}"
fi
