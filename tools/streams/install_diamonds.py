#!/usr/bin/env python3
"""Writes the sample diamonds into the area databases and the stream files.

    tools/streams/install_diamonds.py [--data data]

Inputs, in this folder:
    Nantucket Sound.csv   made by make_nantucket_diamonds.sh from NOAA
                          current constants (see data/STREAMS-SOURCES.md)
    Sample Chart.csv      made here by the synthetic model below

For each area it replaces every row of the `diamonds` table of
data/Charts/<area>.l35 (the database must exist: tools/make_sample_charts.py
makes it) and writes data/TS/<area>.l25, 196 bytes a diamond: seven
singles (chartNumber, DiaRef, RefPort, Sprange, Nprange, lat, Lon) then the
table, slot fastest: Rates[slot][row] at 28 + 4 (slot + 14 row), slot 0
unused. The result is the same bytes on every run for the same inputs
(the database's page layout aside, which SQLite decides).

The "Sample Chart" diamonds are SYNTHETIC SAMPLE VALUES, NOT FOR NAVIGATION.
Model: the stream runs along the Channel, 070 degrees true when east-going
and 250 when west-going, turning with the tide at Dover (record 4 of
Refports.hc). At h hours from HW Dover the signed rate is
    peak x cos(2 pi (h - lag) / 12.42)
where lag (hours) grows from west to east, -2.0 at 2.6W to +3.0 at 1.6E, so
that the east-going stream begins earlier in the west; peak is the diamond's
spring rate, and the neap rate is the spring rate x Nprange / Sprange.
Sprange and Nprange are Dover's 2(M2 + S2) and 2(M2 - S2).
"""
import argparse
import csv
import math
import os
import sqlite3
import struct

HERE = os.path.dirname(os.path.abspath(__file__))

COLUMNS = ["chartNumber", "DiaRef", "lat", "Lon", "RefPort", "NPRange", "SPRange"]
for s in ["M6", "M5", "M4", "M3", "M2", "M1"]:
    COLUMNS += ["dir" + s, "sp" + s, "np" + s.lower()]
COLUMNS += ["dir0", "sp0", "np0"]
for s in "123456":
    COLUMNS += ["dirp" + s, "spP" + s, "npP" + s]

# Sea positions of the sample chart: (name, lat, lon, spring peak in knots).
SAMPLE_POINTS = [
    ("Portland Bill S", 50.45, -2.45, 3.0),
    ("West Bay", 50.55, -2.20, 1.2),
    ("St Albans Head S", 50.52, -2.05, 2.0),
    ("Anvil Point SE", 50.56, -1.90, 2.2),
    ("Poole Bay", 50.63, -1.80, 0.8),
    ("Needles Channel", 50.65, -1.62, 3.0),
    ("Hurst Narrows", 50.705, -1.55, 3.5),
    ("West Solent", 50.73, -1.45, 2.2),
    ("Cowes Roads", 50.775, -1.30, 1.8),
    ("East Solent", 50.76, -1.15, 1.6),
    ("St Catherine's Point S", 50.52, -1.30, 2.6),
    ("Nab Tower", 50.67, -0.95, 1.3),
    ("Owers", 50.60, -0.68, 1.5),
    ("Brighton offshore", 50.72, -0.15, 1.2),
    ("Beachy Head S", 50.65, 0.25, 1.8),
    ("Royal Sovereign", 50.72, 0.45, 1.7),
    ("Hastings offshore", 50.80, 0.60, 1.4),
    ("Dungeness SE", 50.88, 1.00, 2.1),
    ("Varne", 51.00, 1.35, 2.6),
    ("Dover Strait", 51.05, 1.45, 2.8),
    ("Mid Channel W", 50.35, -1.80, 1.6),
    ("Mid Channel", 50.40, -1.00, 1.5),
    ("Mid Channel E", 50.45, -0.20, 1.4),
    ("Vergoyer", 50.70, 1.30, 1.6),
]


def refport_ranges(refports, record):
    with open(refports, "rb") as f:
        f.seek((record - 1) * 197)
        rec = f.read(197)
    m2 = struct.unpack_from("<f", rec, 57)[0]
    s2 = struct.unpack_from("<f", rec, 65)[0]
    return round(2 * (m2 + s2), 2), round(2 * (m2 - s2), 2)


def sample_rows(refports):
    sprange, nprange = refport_ranges(refports, 4)
    rows = []
    for ref, (name, lat, lon, peak) in enumerate(SAMPLE_POINTS, start=1):
        lag = -2.0 + 5.0 * (lon + 2.6) / 4.2
        row = [9999, ref, lat, lon, 4, nprange, sprange]
        for h in range(-6, 7):
            v = peak * math.cos(2 * math.pi * (h - lag) / 12.42)
            direction = 70 if v >= 0 else 250
            row += [direction, round(abs(v), 2), round(abs(v) * nprange / sprange, 2)]
        rows.append(row)
    return rows


def read_rows(path):
    with open(path, newline="") as f:
        reader = csv.reader(f)
        next(reader)
        return [[float(x) for x in r[: len(COLUMNS)]] for r in reader if r]


def write_csv(path, rows):
    with open(path, "w", newline="") as f:
        w = csv.writer(f, lineterminator="\n")
        w.writerow(COLUMNS)
        for r in rows:
            w.writerow(r)


def record_bytes(r):
    v = dict(zip(COLUMNS, r))
    rates = [[0.0] * 14 for _ in range(3)]
    for slot in range(1, 14):
        for row in range(3):
            rates[row][slot] = r[7 + (slot - 1) * 3 + row]
    head = struct.pack("<7f", v["chartNumber"], v["DiaRef"], v["RefPort"], v["SPRange"], v["NPRange"], v["lat"], v["Lon"])
    body = b"".join(struct.pack("<14f", *rates[row]) for row in range(3))
    return head + body


def install(data, area, rows):
    db = os.path.join(data, "Charts", area + ".l35")
    if not os.path.exists(db):
        raise SystemExit(f"{db} is missing: run tools/make_sample_charts.py first")
    con = sqlite3.connect(db)
    con.execute("DELETE FROM diamonds")
    names = ", ".join(["iD"] + COLUMNS)
    marks = ", ".join("?" * (len(COLUMNS) + 1))
    for i, r in enumerate(rows, start=1):
        con.execute(f"INSERT INTO diamonds ({names}) VALUES ({marks})", [i] + list(r))
    con.commit()
    con.execute("VACUUM")
    con.close()
    ts = os.path.join(data, "TS", area + ".l25")
    tmp = ts + ".tmp"
    with open(tmp, "wb") as f:
        for r in rows:
            f.write(record_bytes(r))
    os.replace(tmp, ts)
    print(f"{area}: {len(rows)} diamonds into {db} and {ts}")


def main():
    ap = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("--data", default=os.path.join(HERE, "..", "..", "data"))
    args = ap.parse_args()
    sample = sample_rows(os.path.join(args.data, "Refports.hc"))
    write_csv(os.path.join(HERE, "Sample Chart.csv"), sample)
    install(args.data, "Sample Chart", read_rows(os.path.join(HERE, "Sample Chart.csv")))
    install(args.data, "Nantucket Sound", read_rows(os.path.join(HERE, "Nantucket Sound.csv")))


if __name__ == "__main__":
    main()
