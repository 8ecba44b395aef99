#!/bin/sh
# Regenerates data/Refports.hc, data/TS/UK.hc and data/TIDES-SOURCES.md from
# the pinned version of @neaps/tide-database, installed into a temporary
# folder (never into the repository). The output is the same byte for byte
# on every run.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
version=0.10.20260924
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
(cd "$tmp" && npm init -y >/dev/null && npm install --no-audit --no-fund "@neaps/tide-database@$version" >/dev/null)
node "$here/make_harmonic_files.mjs" "$tmp/node_modules" "$root/data"
