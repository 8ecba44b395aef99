#!/usr/bin/env bash
# Installs what is missing, builds Kelvane and starts it on the sample data.
# Extra arguments go to the program (for example --data-root DIR).
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/setup-debian.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j "$(nproc)" --target kelvane
exec ./build/app/kelvane "$@"
