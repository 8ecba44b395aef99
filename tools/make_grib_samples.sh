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

# make NAME PARAM BITS NI NJ LA1 LO1 LA2 LO2 DI DJ JPOS INEG "VALUES" [BITMAP] [P1]
make() {
  local name=$1 param=$2 bits=$3 ni=$4 nj=$5 la1=$6 lo1=$7 la2=$8 lo2=$9 di=${10} dj=${11} jpos=${12} ineg=${13} values=${14} bitmap=${15:-0} p1=${16:-6}
  cat >"$WORK/$name.rules" <<RULES
set table2Version = 3;
set indicatorOfParameter = $param;
set indicatorOfTypeOfLevel = 105;
set level = 10;
set dataDate = 20261125;
set dataTime = 1200;
set P1 = $p1;
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
# Wind: U and V pairs on a grid across the meridian of Greenwich (51N and
# 50.5N; 0.5W, 0, 0.5E) at 12:00 + 0 h and + 3 h, reference 25/11/2026
# 12:00 UTC. At + 0 h, point by point (U, V) m/s: (0,-5) from 000, (5,0)
# from 270, (-3,4) from 143.13, (3,4) from 216.87, (-4,3) from 126.87,
# (0,0) calm; all but the calm at 5 m/s = 5 / 0.5148 = 9.7125 kn. At + 3 h
# a westerly of 10 m/s everywhere: 19.4250 kn from 270.
U0="0, 5, -3, 3, -4, 0"
V0="-5, 0, 4, 4, 3, 0"
U3="10, 10, 10, 10, 10, 10"
V3="0, 0, 0, 0, 0, 0"
make wind_u0 33 12 3 2 51 -0.5 50.5 0.5 0.5 0.5 0 0 "$U0" 0 0
make wind_v0 34 12 3 2 51 -0.5 50.5 0.5 0.5 0.5 0 0 "$V0" 0 0
make wind_u3 33 12 3 2 51 -0.5 50.5 0.5 0.5 0.5 0 0 "$U3" 0 3
make wind_v3 34 12 3 2 51 -0.5 50.5 0.5 0.5 0.5 0 0 "$V3" 0 3
# The V field of +3 h comes before the U of + 0 h: pairs are found by grid
# and time, not by neighbourhood in the file.
cat "$OUT/wind_u0.grb" "$OUT/wind_v3.grb" "$OUT/wind_v0.grb" "$OUT/wind_u3.grb" >"$OUT/wind_signed.grb"
# The same + 0 h pair with longitudes stored 0..360 (359.5 to 0.5).
make wind_u0_360 33 12 3 2 51 359.5 50.5 0.5 0.5 0.5 0 0 "$U0" 0 0
make wind_v0_360 34 12 3 2 51 359.5 50.5 0.5 0.5 0.5 0 0 "$V0" 0 0
cat "$OUT/wind_u0_360.grb" "$OUT/wind_v0_360.grb" >"$OUT/wind_360.grb"
rm -f "$OUT"/wind_u0.grb "$OUT"/wind_v0.grb "$OUT"/wind_u3.grb "$OUT"/wind_v3.grb "$OUT"/wind_u0_360.grb "$OUT"/wind_v0_360.grb
# The same field in edition 2, which the reader refuses.
grib_set -s edition=2 "$OUT/u8_north.grb" "$OUT/edition2.grb"
ls -l "$OUT"
