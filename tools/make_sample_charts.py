#!/usr/bin/env python3
"""Renders the sample charts of data/Charts/ from real coastlines.

Needs GMT 6 with the GSHHG shorelines and Ghostscript (Debian: gmt,
gmt-gshhg-full, ghostscript) and a built kelvane-cli, whose `db create`
makes the area databases with the program's own schema.

    tools/make_sample_charts.py --cli build/cli/kelvane-cli [--out data]

Each chart is a Mercator projection on a sphere (PROJ_ELLIPSOID=Sphere),
which is the projection the program's pixel arithmetic assumes: rows follow
the isometric latitude ln(tan(pi/4 + lat/2)) and columns are linear in
longitude. The map fills the image: the map's lower-left corner is pixel
(0, H) and one point of the map is DPI/72 pixels. The calibration lines of
each chart are its borders (UpperLat/LowerLat the northern and southern
parallels of the region, LeftLon/rightLon its western and eastern
meridians), since the ladder of detail takes a chart to contain exactly what
lies strictly inside its calibration lines. Their pixel rows and columns are
asked of GMT's own projection (mapproject) and written to the `charts` table
to a tenth of a pixel. The script then reads the rendered PNG back and
checks that every graticule line drawn inside the chart lies where the
program's arithmetic puts it from that calibration, within a pixel.

GMT runs in the temporary folder, so its gmt.history stays out of the tree.

Outputs (below --out):
    Charts/<area>.l35         SQLite area database, `charts` rows
    Charts/<number>.l55       the chart image (PNG)
    Charts/<number>.tif       the preview for the chart chooser (PNG content,
                              about 300 pixels wide; readers decide the format
                              from the content)
    OutlineData/Sample Coast.l40  the GSHHG shoreline of the outline sheet as
                              8-byte records (single latitude, single
                              longitude), a latitude of 90 between polylines
"""
import argparse
import math
import os
import sqlite3
import struct
import subprocess
import sys
import tempfile
import zlib

# The charts' issue date: 1 January 2026 as a date serial, days counted from
# 30 December 1899, which is how the catalogue holds a date.
ISSUE_DATE = 46023

DPI = 144  # two pixels per point

LAND = "245/230/184"
SEA = "216/236/245"
GRID = "110/110/150"

# number, name, area, rank, region (W, E, S, N), map width in points,
# coast resolution, grid interval in minutes, annotation interval, plain
CHARTS = [
    ("9999-1", "Sample Chart", "Sample Chart", 10, (-2.6, 1.6, 50.3, 51.2), 1800, "h", 10, 30, False),
    ("9999-2", "The Solent", "Sample Chart", 20, (-1.65, -1.0, 50.62, 50.86), 1400, "f", 5, 10, False),
    ("9999-3", "Needles to Anvil Point", "Sample Chart", 20, (-2.05, -1.5, 50.53, 50.72), 1400, "f", 5, 10, False),
    ("9999-4", "Dover Strait", "Sample Chart", 20, (0.9, 1.6, 50.85, 51.2), 1400, "f", 5, 10, False),
    ("9999-5", "Hurst Narrows and Yarmouth", "Sample Chart", 30, (-1.62, -1.42, 50.67, 50.76), 1200, "f", 2, 4, False),
    ("K11-0", "Sample Outline", "Sample Chart", 0, (-2.2, -0.9, 50.5, 50.9), 1500, "h", 10, 10, True),
    ("9998-1", "Nantucket Sound and Approaches", "Nantucket Sound", 10, (-71.2, -69.9, 41.2, 41.75), 1600, "h", 10, 10, False),
    ("9998-2", "Vineyard Sound", "Nantucket Sound", 20, (-70.95, -70.55, 41.33, 41.56), 1300, "f", 5, 5, False),
    ("9998-3", "Nantucket Sound", "Nantucket Sound", 20, (-70.45, -69.95, 41.3, 41.6), 1400, "f", 5, 5, False),
]

PLACES = [
    (-2.45, 50.55, "Portland"), (-1.9308, 50.5823, "Anvil Point"), (-1.59, 50.663, "The Needles"),
    (-1.30, 50.66, "Isle of Wight"), (-1.30, 50.785, "The Solent"), (-1.10, 50.80, "Portsmouth"),
    (-1.55, 50.70, "Hurst Narrows"), (-1.50, 50.708, "Yarmouth"), (-1.40, 50.90, "Southampton"),
    (-1.98, 50.715, "Poole"), (-0.60, 50.55, "English Channel"), (1.31, 51.125, "Dover"),
    (1.25, 50.95, "Dover Strait"), (1.58, 50.87, "Cap Gris-Nez"), (0.25, 50.74, "Beachy Head"),
    (-0.14, 50.82, "Brighton"), (-70.62, 41.53, "Woods Hole"), (-70.63, 41.45, "Vineyard Sound"),
    (-70.62, 41.39, "Martha's Vineyard"), (-70.25, 41.47, "Nantucket Sound"), (-70.10, 41.28, "Nantucket"),
    (-70.85, 41.60, "Buzzards Bay"), (-70.28, 41.66, "Hyannis"), (-70.45, 41.56, "Cape Cod"),
]


def run(args, stdin=None):
    return subprocess.run(args, input=stdin, capture_output=True, text=True, check=True,
                          cwd=tempfile.gettempdir()).stdout


def run_ps(args, stdin=""):
    """PostScript out of a GMT module, as bytes (it holds Latin-1 text)."""
    return subprocess.run(args, input=stdin.encode(), capture_output=True, check=True,
                          cwd=tempfile.gettempdir()).stdout


def gmt_common(region, width):
    w, e, s, n = region
    return [f"-R{w}/{e}/{s}/{n}", f"-JM{width}p", "--PROJ_ELLIPSOID=Sphere"]


def project(region, width, points):
    """Map points (lon, lat) to GMT's page coordinates in points."""
    text = "".join(f"{lon} {lat}\n" for lon, lat in points)
    out = run(["gmt", "mapproject", *gmt_common(region, width), "-Dp"], text)
    return [tuple(float(v) for v in line.split()[:2]) for line in out.strip().splitlines()]


def png_size(path):
    with open(path, "rb") as f:
        head = f.read(24)
    return struct.unpack(">II", head[16:24])


def png_rows(path):
    """Decodes an 8-bit RGB or RGBA PNG into rows of bytes (no interlace)."""
    with open(path, "rb") as f:
        data = f.read()
    pos = 8
    idat = b""
    while pos < len(data):
        length, kind = struct.unpack(">I4s", data[pos:pos + 8])
        body = data[pos + 8:pos + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour = struct.unpack(">IIBB", body[:10])
        elif kind == b"IDAT":
            idat += body
        pos += 12 + length
    channels = {2: 3, 6: 4, 0: 1, 4: 2}[colour]
    assert depth == 8
    raw = zlib.decompress(idat)
    stride = width * channels
    rows, prev, i = [], bytearray(stride), 0
    for _ in range(height):
        f = raw[i]
        line = bytearray(raw[i + 1:i + 1 + stride])
        i += 1 + stride
        for x in range(stride):
            a = line[x - channels] if x >= channels else 0
            b = prev[x]
            c = prev[x - channels] if x >= channels else 0
            if f == 1:
                line[x] = (line[x] + a) & 255
            elif f == 2:
                line[x] = (line[x] + b) & 255
            elif f == 3:
                line[x] = (line[x] + (a + b) // 2) & 255
            elif f == 4:
                p = a + b - c
                pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
                line[x] = (line[x] + (a if pa <= pb and pa <= pc else b if pb <= pc else c)) & 255
        rows.append(bytes(line))
        prev = line
    return width, height, channels, rows


def grid_lines(lo, hi, step_min):
    """Graticule values strictly inside (lo, hi), step in minutes."""
    step = step_min / 60.0
    first = math.floor(lo / step + 1e-9) + 1
    values = []
    k = first
    while k * step < hi - 1e-9:
        values.append(round(k * step, 6))
        k += 1
    return values


def render(chart, workdir, out_charts, preview=False):
    number, name, area, rank, region, width, res, grid, annot, plain = chart
    w, e, s, n = region
    ps = os.path.join(workdir, f"{number}.ps")
    common = gmt_common(region, width)
    page = ["--PS_MEDIA=%dx%d" % (width + 50, int(width * 2) + 50), "--PS_PAGE_ORIENTATION=portrait"]
    style = ["--MAP_FRAME_TYPE=inside", f"--MAP_GRID_PEN_PRIMARY=0.5p,{GRID}",
             "--FONT_ANNOT_PRIMARY=9p,Helvetica,40/40/80", "--MAP_TICK_LENGTH_PRIMARY=6p"]
    with open(ps, "wb") as f:
        coast = ["gmt", "pscoast", *common, f"-D{res}", "-X0", "-Y0", "-K", *page, *style]
        if plain:
            coast += ["-Swhite", "-A100000"]  # the sheet shows no coast: the outline layer draws it
        else:
            coast += [f"-G{LAND}", f"-S{SEA}", "-W0.4p,70/70/70"]
        coast += [f"-Bxa{annot}mg{grid}m", f"-Bya{annot}mg{grid}m", "-BWSEN"]
        f.write(run_ps(coast))
        labels = "".join(f"{lon} {lat} {text}\n" for lon, lat, text in PLACES
                         if w < lon < e and s < lat < n)
        marks = "".join(line.split(" ", 2)[0] + " " + line.split(" ", 2)[1] + "\n" for line in labels.splitlines())
        f.write(run_ps(["gmt", "psxy", *common, "-O", "-K", "-Sc4p", "-G20/40/90", *page], marks))
        f.write(run_ps(["gmt", "pstext", *common, "-O", "-K", "-F+f11p,Helvetica-Oblique,20/40/90+jLM", "-D6p/0",
                        *page], labels))
        title = f"{number}  {name}\nSAMPLE CHART - NOT FOR NAVIGATION"
        tx = w + (e - w) * 0.03
        ty = n - (n - s) * 0.06
        f.write(run_ps(["gmt", "pstext", *common, "-O", "-F+f13p,Helvetica-Bold,90/20/20+jLT", "-Gwhite@30",
                     "-C4p", *page], f"{tx} {ty} {number}  {name}  -  SAMPLE, NOT FOR NAVIGATION\n"))
    run(["gmt", "psconvert", ps, "-A", "-Tg", f"-E{DPI}", f"-D{workdir}"])
    png = os.path.join(workdir, f"{number}.png")
    img_w, img_h = png_size(png)
    os.replace(png, os.path.join(out_charts, f"{number}.l55"))
    run(["gmt", "psconvert", ps, "-A", "-Tg", f"-E{max(8, int(300 * 72 / width))}", f"-D{workdir}"])
    os.replace(png, os.path.join(out_charts, f"{number}.tif"))

    # Calibration from the projection: the chart's own borders, which are
    # also the limits the ladder of detail tests a position against.
    scale = DPI / 72.0
    (x_left, y_upper), (x_right, y_lower) = project(region, width, [(w, n), (e, s)])
    cal = {
        "UpperLat": n, "UpperPixels": round(img_h - y_upper * scale, 1),
        "LowerLat": s, "LowerPixels": round(img_h - y_lower * scale, 1),
        "LeftLon": w, "LeftPixels": round(x_left * scale, 1),
        "rightLon": e, "RightPixels": round(x_right * scale, 1),
        "grid": grid,
    }
    # Natural scale at the middle latitude: metres of ground per metre of
    # image at DPI.
    mid = math.radians((s + n) / 2)
    ground = (e - w) * 60 * 1852 * math.cos(mid)
    paper = width / 72 * 0.0254 * 1.0  # the image at DPI shows a point as DPI/72 px
    chart_scale = round(ground / paper / 1000) * 1000
    return dict(number=number, name=name, area=area, rank=rank, scale=chart_scale, size=(img_w, img_h), **cal)


def mercator(lat):
    return math.log(math.tan(math.pi / 4 + math.radians(lat) / 2))


def check_lines(path, cal):
    """Every graticule line drawn inside the chart must lie where the
    program's arithmetic puts it (rows by the isometric latitude between the
    upper and lower calibration lines, columns linear in longitude), within
    a pixel. Returns the worst distance in pixels."""
    width, height, ch, rows = png_rows(path)
    grid = tuple(int(v) for v in GRID.split("/"))

    def darkness(px):
        return sum(abs(a - b) for a, b in zip(px[:3], grid))

    def row_score(r, cols):
        return sum(darkness(rows[r][c * ch:c * ch + 3]) for c in cols)

    def col_score(c, rws):
        return sum(darkness(rows[r][c * ch:c * ch + 3]) for r in rws)

    m_up, m_low = mercator(cal["UpperLat"]), mercator(cal["LowerLat"])
    span = cal["LowerPixels"] - cal["UpperPixels"]
    px_per_lon = (cal["RightPixels"] - cal["LeftPixels"]) / (cal["rightLon"] - cal["LeftLon"])
    cols = range(60, width - 60, 7)
    rws = range(60, height - 60, 7)
    worst = 0.0
    checks = []
    for lat in grid_lines(cal["LowerLat"], cal["UpperLat"], cal["grid"]):
        want = cal["UpperPixels"] + span * (m_up - mercator(lat)) / (m_up - m_low)
        checks.append((want, row_score, cols))
    for lon in grid_lines(cal["LeftLon"], cal["rightLon"], cal["grid"]):
        want = cal["LeftPixels"] + (lon - cal["LeftLon"]) * px_per_lon
        checks.append((want, col_score, rws))
    for want, scorer, sample in checks:
        near = [v for v in range(int(want) - 3, int(want) + 4) if 0 <= v < (height if scorer is row_score else width)]
        best = min(near, key=lambda v: scorer(v, sample))
        # The drawn line is a 1-pixel stroke centred on the line: pixel v
        # covers v .. v+1.
        worst = max(worst, abs(best + 0.5 - want))
    return worst


def write_outline(region, path):
    w, e, s, n = region
    out = run(["gmt", "pscoast", f"-R{w}/{e}/{s}/{n}", "-Dh", "-M", "-W"])
    records = []
    for line in out.splitlines():
        if line.startswith(">"):
            if records and records[-1] != (90.0, 0.0):
                records.append((90.0, 0.0))
            continue
        lon, lat = (float(v) for v in line.split()[:2])
        records.append((lat, lon))
    with open(path, "wb") as f:
        for lat, lon in records:
            f.write(struct.pack("<ff", lat, lon))
    return len(records)


def main():
    ap = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("--cli", required=True, help="path of kelvane-cli")
    ap.add_argument("--out", default=os.path.join(os.path.dirname(__file__), "..", "data"))
    args = ap.parse_args()
    charts_dir = os.path.join(args.out, "Charts")
    outline_dir = os.path.join(args.out, "OutlineData")
    os.makedirs(charts_dir, exist_ok=True)
    os.makedirs(outline_dir, exist_ok=True)
    rows = []
    with tempfile.TemporaryDirectory() as work:
        for chart in CHARTS:
            info = render(chart, work, charts_dir)
            err = check_lines(os.path.join(charts_dir, info["number"] + ".l55"), info)
            print(f"{info['number']:8} {info['size'][0]}x{info['size'][1]}  1:{info['scale']}  "
                  f"graticule drawn within {err:.2f} px of the calibrated position")
            if err > 1.0:
                sys.exit(f"{info['number']}: calibration off the graticule by {err} px")
            rows.append(info)
    for area in sorted({r["area"] for r in rows}):
        db = os.path.join(charts_dir, area + ".l35")
        if os.path.exists(db):
            os.remove(db)
        subprocess.run([args.cli, "db", "create", db], check=True)
        con = sqlite3.connect(db)
        for i, r in enumerate((r for r in rows if r["area"] == area), start=1):
            con.execute(
                "INSERT INTO charts (iD, chartName, chartNumber, chartScale, rank, TSArea, issueDate, UpperLat, "
                "UpperPixels, LowerLat, LowerPixels, LeftLon, LeftPixels, rightLon, RightPixels) "
                "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
                (i, r["name"], r["number"], r["scale"], r["rank"], area, ISSUE_DATE, r["UpperLat"], r["UpperPixels"],
                 r["LowerLat"], r["LowerPixels"], r["LeftLon"], r["LeftPixels"], r["rightLon"], r["RightPixels"]))
        con.commit()
        con.close()
    outline = [c for c in CHARTS if c[0] == "K11-0"][0]
    count = write_outline(outline[4], os.path.join(outline_dir, "Sample Coast.l40"))
    print(f"Sample Coast.l40: {count} records")


if __name__ == "__main__":
    main()
