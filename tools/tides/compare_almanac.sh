#!/bin/sh
# Sunrise, sunset and moon phases of kelvane-cli against astronomy-engine
# at three latitudes over a year. The package goes into a temporary folder.
#   tools/tides/compare_almanac.sh <kelvane-cli> [year]
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
cli=${1:?usage: compare_almanac.sh <kelvane-cli> [year]}
year=${2:-2025}
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
(cd "$tmp" && npm init -y >/dev/null && npm install --no-audit --no-fund \
  astronomy-engine@2.1.19 >/dev/null)
node "$here/compare_almanac.mjs" "$tmp/node_modules" "$cli" "$year"
