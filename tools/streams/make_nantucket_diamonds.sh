#!/bin/sh
# Regenerates tools/streams/Nantucket Sound.csv from NOAA tidal-current
# harmonic constants carried by the pinned @neaps/tide-database, predicted by
# @neaps/tide-predictor (installed into a temporary folder, never into the
# repository), then installs it and the synthetic Sample Chart set with
# install_diamonds.py.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
(cd "$tmp" && npm init -y >/dev/null && npm install --no-audit --no-fund \
  @neaps/tide-database@0.10.20260924 @neaps/tide-predictor@0.11.0 >/dev/null)
node "$here/nantucket_diamonds.mjs" "$tmp/node_modules" "$here/Nantucket Sound.csv"
python3 "$here/install_diamonds.py"
