#!/usr/bin/env python3
"""Writes data/Polars.mdb: one SYNTHETIC sample polar, not a real boat's.

    tools/make_sample_polar.py [--out data]

The numbers come from a formula, not from trials, a designer's VPP or any
class rule: they have the shape of a small cruising sloop (about 30 ft on
the waterline, so a hull speed near 1.34 x sqrt(30) = 7.3 kn) and are there
to give the program a table to read and the tests a file to open. Do not
plan a passage of a real boat on them.

The file is SQLite with the polar database's schema:
    SetUps(SetUp TEXT)            one row per set-up, the name of its table
    "<set-up>"(windangle, Wind0kn, wind2kn ... Wind30kn)
with the columns' mixed case as the program reads them, one row per 5
degrees of true wind angle from 30 to 180, boat speeds in knots to 0.1.
It is written to a temporary file and renamed over the old one.
"""
import argparse
import math
import os
import sqlite3

SETUP = "Synthetic sample sloop (not a real boat)"

COLUMNS = ["Wind0kn", "wind2kn", "wind4kn", "wind6kn", "wind8kn", "wind10kn", "Wind12kn", "wind14kn",
           "wind16kn", "wind18kn", "wind20kn", "Wind22kn", "Wind24kn", "Wind26kn", "Wind28kn", "Wind30kn"]

HULL_SPEED = 1.34 * math.sqrt(30.0)


def angle_factor(twa):
    """How much of the wind's drive the sails turn into speed at a true
    wind angle: little close-hauled, most on a reach, less dead downwind."""
    if twa <= 30:
        return 0.35
    peak = 105.0
    if twa <= peak:
        return 0.35 + 0.65 * math.sin(math.radians((twa - 30) / (peak - 30) * 90))
    return 1.0 - 0.25 * ((twa - peak) / (180 - peak)) ** 1.5


def boat_speed(wind, twa):
    if wind == 0:
        return 0.0
    # Speed rises with the wind and flattens towards hull speed.
    drive = 1.0 - math.exp(-wind / 9.0)
    return round(HULL_SPEED * 1.08 * drive * angle_factor(twa), 1)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--out", default=os.path.join(os.path.dirname(__file__), "..", "data"))
    args = parser.parse_args()
    target = os.path.join(args.out, "Polars.mdb")
    temp = target + ".tmp"
    if os.path.exists(temp):
        os.remove(temp)
    con = sqlite3.connect(temp)
    con.execute("CREATE TABLE SetUps (SetUp TEXT)")
    con.execute("INSERT INTO SetUps (SetUp) VALUES (?)", (SETUP,))
    quoted = '"' + SETUP.replace('"', '""') + '"'
    con.execute("CREATE TABLE %s (windangle INTEGER, %s)" % (quoted, ", ".join(c + " REAL" for c in COLUMNS)))
    for twa in range(30, 181, 5):
        speeds = [boat_speed(2 * k, twa) for k in range(len(COLUMNS))]
        con.execute("INSERT INTO %s VALUES (%s)" % (quoted, ", ".join("?" * (1 + len(COLUMNS)))), [twa] + speeds)
    con.commit()
    con.execute("VACUUM")
    con.close()
    os.replace(temp, target)
    print(target)


if __name__ == "__main__":
    main()
