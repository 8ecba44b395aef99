#!/bin/sh
# Accuracy of kelvane-cli tides against a full harmonic prediction by
# @neaps/tide-predictor for Dover, Portsmouth, Devonport and Sheerness over a
# year. The packages go into a temporary folder, never into the repository.
#   tools/tides/compare_predictor.sh <kelvane-cli> [year]
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
cli=${1:?usage: compare_predictor.sh <kelvane-cli> [year]}
year=${2:-2025}
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
(cd "$tmp" && npm init -y >/dev/null && npm install --no-audit --no-fund \
  @neaps/tide-database@0.10.20260924 @neaps/tide-predictor@0.11.0 >/dev/null)
node "$here/compare_predictor.mjs" "$tmp/node_modules" "$cli" "$root/data/TS/UK.hc" "$year"
