#!/usr/bin/env bash
# Makes the small GRIB files of tests/data/wind/ with ecCodes (grib_filter,
# grib_set; package libeccodes-tools), from its regular lat/lon GRIB 1
# sample. The files are committed, so the tests need ecCodes only to compare
# against grib_get_data, not to build their input.
#
#   tools/make_grib_samples.sh [OUT]      (default tests/data/wind)
set -euo pipefail
OUT=${1:-$(dirname "$0")/../tests/data/wind}
mkdir -p "$OUT"
TMPL=/usr/share/eccodes/samples/regular_ll_sfc_grib1.tmpl
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT

# make NAME PARAM BITS NI NJ LA1 LO1 LA2 LO2 DI DJ JPOS INEG "VALUES" [BITMAP]
make() {
  local name=$1 param=$2 bits=$3 ni=$4 nj=$5 la1=$6 lo1=$7 la2=$8 lo2=$9 di=${10} dj=${11} jpos=${12} ineg=${13} values=${14} bitmap=${15:-0}
  cat >"$WORK/$name.rules" <<RULES
set table2Version = 3;
set indicatorOfParameter = $param;
set indicatorOfTypeOfLevel = 105;
set level = 10;
set dataDate = 20261125;
set dataTime = 1200;
set P1 = 6;
set Ni = $ni;
set Nj = $nj;
set jScansPositively = $jpos;
set iScansNegatively = $ineg;
set latitudeOfFirstGridPointInDegrees = $la1;
set longitudeOfFirstGridPointInDegrees = $lo1;
set latitudeOfLastGridPointInDegrees = $la2;
set longitudeOfLastGridPointInDegrees = $lo2;
set iDirectionIncrementInDegrees = $di;
set jDirectionIncrementInDegrees = $dj;
set bitsPerValue = $bits;
set missingValue = 9999;
set bitmapPresent = $bitmap;
set values = { $values };
write "$OUT/$name.grb";
RULES
  grib_filter "$WORK/$name.rules" "$TMPL"
}

# U, 8 bits, north-west of Europe, scanning north to south (the usual way).
make u8_north 33 8 4 3 50 -6 48 -3 1 1 0 0 "-5.5, -3.25, 0, 1.5, 2, 4.75, 6, 7.5, -1, 0.25, 3, 9.5"
# V, 12 bits, southern hemisphere, scanning south to north.
make v12_south 34 12 3 3 -40 150 -38 152 1 1 1 0 "-12.345, -7.5, -0.125, 0, 3.3, 8.8, 12.25, 15, 20.5"
# A bitmap: 9999 marks the points left out.
make bitmap 33 8 3 2 10 20 9 22 1 1 0 0 "1, 9999, 3, 4.5, 9999, -6" 1
# Across the meridian of Greenwich, longitudes stored 0..360 and signed.
make seam360 33 12 5 2 51 358 50 2 1 1 0 0 "1, 2, 3, 4, 5, 6, 7, 8, 9, 10"
make seamsigned 34 12 5 2 51 -2 50 2 1 1 0 0 "-1, -2, -3, -4, -5, -6, -7, -8, -9, -10"
# Scanning east to west.
make west 33 8 3 2 45 10 44 8 1 1 0 1 "0.5, 1, 1.5, 2, 2.5, 3"
# Several messages in one file: U and V of the same grid.
cat "$OUT/u8_north.grb" "$OUT/v12_south.grb" "$OUT/bitmap.grb" >"$OUT/several.grb"
# The same field in edition 2, which the reader refuses.
grib_set -s edition=2 "$OUT/u8_north.grb" "$OUT/edition2.grb"
ls -l "$OUT"
