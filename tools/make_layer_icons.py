#!/usr/bin/env python3
"""Draws the toolbar pictures of the chart's layer switches into data/res/:
24 x 24 pixel, 24-bit Windows bitmaps, one pair per switch (the layer on,
the layer off). The "off" pictures are the same drawing in grey with a red
bar across. Standard library only.

    python3 tools/make_layer_icons.py [OUTPUT_FOLDER]
"""
import math
import os
import struct
import sys

SIZE = 24
BACK = (236, 236, 236)
GREY = (150, 150, 150)
RED = (210, 30, 30)


class Canvas:
    def __init__(self):
        self.px = [[BACK for _ in range(SIZE)] for _ in range(SIZE)]

    def put(self, x, y, c):
        if 0 <= x < SIZE and 0 <= y < SIZE:
            self.px[y][x] = c

    def line(self, x0, y0, x1, y1, c, width=1):
        steps = int(max(abs(x1 - x0), abs(y1 - y0)) * 2) + 1
        for i in range(steps + 1):
            t = i / steps
            x, y = x0 + (x1 - x0) * t, y0 + (y1 - y0) * t
            for dx in range(-(width // 2), width - width // 2):
                for dy in range(-(width // 2), width - width // 2):
                    self.put(int(round(x)) + dx, int(round(y)) + dy, c)

    def circle(self, cx, cy, r, c, fill=None):
        for y in range(SIZE):
            for x in range(SIZE):
                d = math.hypot(x - cx, y - cy)
                if fill is not None and d <= r - 0.5:
                    self.put(x, y, fill)
                if abs(d - r) < 0.6:
                    self.put(x, y, c)

    def rect(self, x0, y0, x1, y1, c):
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                self.put(x, y, c)

    def bmp(self):
        row = SIZE * 3
        pad = (4 - row % 4) % 4
        data = b""
        for y in range(SIZE - 1, -1, -1):  # bottom-up rows
            for x in range(SIZE):
                r, g, b = self.px[y][x]
                data += bytes((b, g, r))
            data += b"\0" * pad
        header = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, 54)
        info = struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE, 1, 24, 0, len(data), 2835, 2835, 0, 0)
        return header + info + data


def waypoints(cv, c):
    for cx, cy in ((6, 7), (17, 9), (10, 17)):
        cv.circle(cx, cy, 3, c, fill=c)


def ports(cv, c):
    cv.rect(10, 3, 13, 20, c)           # the tide pole
    for y in (6, 10, 14):
        cv.line(13, y, 16, y, c)
    for x in range(2, 22):              # the water
        cv.put(x, 17 + int(round(math.sin(x / 2.0))), (40, 90, 200) if c != GREY else GREY)


def streams(cv, c):
    cv.line(4, 19, 18, 5, c, 2)
    cv.line(18, 5, 11, 6, c, 2)
    cv.line(18, 5, 17, 12, c, 2)


def wrecks(cv, c):
    cv.line(3, 15, 20, 15, c, 2)        # a hull on its side
    cv.line(3, 15, 7, 20, c, 2)
    cv.line(20, 15, 17, 20, c, 2)
    cv.line(7, 20, 17, 20, c, 2)
    cv.line(11, 15, 8, 5, c, 2)         # the broken mast


def obstructions(cv, c):
    cv.circle(11.5, 11.5, 8, c)
    cv.line(6, 6, 17, 17, c, 2)
    cv.line(6, 17, 17, 6, c, 2)


def userwrecks(cv, c):
    wrecks(cv, c)
    cv.line(18, 3, 18, 11, c)           # a diver's flag
    cv.rect(19, 3, 22, 6, RED if c != GREY else GREY)


def wind(cv, c):
    cv.line(4, 20, 16, 6, c, 2)         # a wind barb
    cv.line(16, 6, 21, 10, c, 2)
    cv.line(13, 10, 18, 14, c, 2)


def windover(cv, c):
    wind(cv, c)
    cv.line(2, 22, 22, 18, (40, 40, 200) if c != GREY else GREY, 1)  # the route beneath


def dividers(cv, c):
    cv.circle(12, 4, 2, c, fill=c)
    cv.line(12, 5, 5, 21, c, 2)
    cv.line(12, 5, 19, 21, c, 2)
    cv.line(8, 14, 16, 14, c)


def gps(cv, c):
    cv.rect(9, 9, 14, 14, c)            # a satellite: body and two panels
    cv.line(2, 6, 8, 11, c, 2)
    cv.line(15, 12, 21, 17, c, 2)
    cv.line(12, 15, 12, 21, c)          # and its signal


def ais(cv, c):
    cv.line(12, 3, 5, 20, c, 2)         # a ship's triangle, as targets are drawn
    cv.line(12, 3, 19, 20, c, 2)
    cv.line(5, 20, 19, 20, c, 2)


def aisgps(cv, c):
    ais(cv, c)
    cv.rect(16, 2, 21, 7, (20, 20, 200) if c != GREY else GREY)


def off(cv):
    cv.line(3, 3, 20, 20, RED, 2)


PAIRS = [
    ("waypointsvis.bmp", "waypointshidden.bmp", waypoints, (20, 20, 200)),
    ("portsvis.bmp", "portshidden.bmp", ports, (0, 96, 160)),
    ("tidalstreamsvis.bmp", "tidalstreamshidden.bmp", streams, (200, 0, 200)),
    ("wrecksvis.bmp", "wreckshidden.bmp", wrecks, (40, 40, 40)),
    ("obstructionsvis.bmp", "obstructionshidden.bmp", obstructions, (200, 30, 30)),
    ("userwrecksvis.bmp", "userwreckshidden.bmp", userwrecks, (40, 40, 40)),
    ("windon.bmp", "windoff.bmp", wind, (200, 30, 30)),
    ("windoveron.bmp", "windoveroff.bmp", windover, (200, 30, 30)),
    # The dividers' button offers what a click does: "dividerson" while
    # they are off, "dividers" while they are on.
    ("dividerson.bmp", None, dividers, (40, 40, 40)),
    ("dividers.bmp", None, dividers, (200, 30, 30)),
    # The link buttons: grey while the link is down (a click starts it),
    # green while it is up (a click ends it).
    ("configengps.bmp", None, gps, GREY),
    ("configdisgps.bmp", None, gps, (20, 150, 40)),
    ("confenais.bmp", None, ais, GREY),
    ("confdisais.bmp", None, ais, (20, 150, 40)),
    ("configdisaisgps.bmp", None, aisgps, (20, 150, 40)),
]


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..", "data", "res")
    os.makedirs(out, exist_ok=True)
    for on_name, off_name, draw, colour in PAIRS:
        cv = Canvas()
        draw(cv, colour)
        with open(os.path.join(out, on_name), "wb") as f:
            f.write(cv.bmp())
        if off_name:
            cv = Canvas()
            draw(cv, GREY)
            off(cv)
            with open(os.path.join(out, off_name), "wb") as f:
                f.write(cv.bmp())


if __name__ == "__main__":
    main()
