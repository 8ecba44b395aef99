#!/usr/bin/env python3
"""The simplified harmonic method worked by hand, in double precision.

An independent working of the numbered lines of the tide form (daily
arguments, the 50-hour run, the turning points), written out step by step
from the description of the method rather than from the program's code. Its
results are the golden values of tests/tides/*_test.cpp.

    python3 hand_calculation.py <UK.hc>
"""
import math
import struct
import sys

PI = 3.14159265358598
RATE = [13.176396, 0.985647, 0.111404, -0.052954, 0.000047]
TABLE = {
    1991: [100.91, 280.15, 77.11, 299.13, 282.78], 1992: [230.30, 279.91, 117.78, 279.80, 282.80],
    1993: [12.86, 280.66, 158.55, 260.42, 282.82], 1994: [142.24, 280.42, 199.21, 241.09, 282.84],
    1995: [271.63, 280.18, 239.87, 221.76, 282.85], 1996: [41.01, 279.94, 280.54, 202.44, 282.87],
    1997: [183.57, 280.69, 321.31, 183.06, 282.89], 1998: [312.96, 280.45, 1.97, 163.73, 282.90],
    1999: [82.34, 280.21, 42.64, 144.40, 282.92], 2000: [211.73, 279.97, 83.30, 125.07, 282.94],
}


def norm(a):
    return a % 360.0


def polar(x, y):
    if x > 0 and y > 0: a = math.atan(x / y)
    elif x > 0 and y == 0: a = PI / 2
    elif x > 0 and y < 0: a = math.atan(abs(y / x)) + PI / 2
    elif x == 0 and y < 0: a = PI
    elif x == 0: a = 0
    elif y < 0: a = math.atan(abs(x / y)) + PI
    elif y == 0: a = 3 * PI / 2
    else: a = math.atan(abs(y / x)) + 3 * PI / 2
    return math.hypot(x, y), a * 57.29577951


def year_start(year):
    if year in TABLE: return list(TABLE[year])
    if year == 1990: return [0.0] * 5
    v = list(TABLE[1992])
    if year > 2000:
        y, days = 1992, 366
        while y < year:
            v = [norm(v[i] + days * RATE[i]) for i in range(5)]
            y += 1
            days = 366 if (y % 4 == 0 and y % 100 != 0) or y % 400 == 0 else 365
    else:
        y, days = 1992, 366
        while y > year:
            v = [norm(v[i] - days * RATE[i]) for i in range(5)]
            y -= 1
            if y % 100 == 0: days = 366 if y % 400 == 0 else 365
    return v


def round_even(x):
    return float(round(x))  # Python rounds half to even


def day_arguments(year, day):
    s, h, p, N, p1 = [norm(v + (day - 1) * r) for v, r in zip(year_start(year), RATE)]
    r = lambda d: math.radians(norm(d))
    X1 = -0.25 * math.sin(r(2 * p)) - 0.1102 * math.sin(r(2 * p - N)) - 0.0156 * math.sin(r(2 * p - 2 * N)) - 0.037 * math.sin(r(N))
    Y1 = 1 - 0.25 * math.cos(r(2 * p)) - 0.1102 * math.cos(r(2 * p - N)) - 0.0156 * math.cos(r(2 * p - 2 * N)) - 0.037 * math.cos(r(N))
    fM1, a = polar(X1, Y1)
    sN, s2N, s3N = math.sin(r(N)), math.sin(r(2 * N)), math.sin(r(3 * N))
    cN, c2N, c3N = math.cos(r(N)), math.cos(r(2 * N)), math.cos(r(3 * N))
    uM2 = -2.14 * sN
    uO1 = 10.8 * sN - 1.34 * s2N + 0.19 * s3N
    uK1 = -8.86 * sN + 0.68 * s2N - 0.07 * s3N
    uJ1 = -12.94 * sN + 1.34 * s2N - 0.19 * s3N
    uK2 = -17.74 * sN + 0.68 * s2N - 0.04 * s3N
    fO1 = 1.0089 + 0.1871 * cN - 0.0147 * c2N + 0.0014 * c3N
    fK1 = 1.006 + 0.115 * cN - 0.0088 * c2N + 0.0006 * c3N
    fJ1 = 1.0129 + 0.1676 * cN - 0.017 * c2N + 0.0016 * c3N
    fM2 = 1.0004 - 0.0373 * cN + 0.0002 * c2N
    fK2 = 1.0246 + 0.2863 * cN + 0.0083 * c2N - 0.0015 * c3N

    def vsum(lines):
        xs = sum(w * f * math.sin(math.radians(norm(arg))) for w, f, arg in lines)
        ys = sum(w * f * math.cos(math.radians(norm(arg))) for w, f, arg in lines)
        return polar(xs, ys)

    f_m2, A = vsum([(0.02534, fM2, 2*h - 4*s + 2*p + 30 + uM2), (0.03057, fM2, 4*h - 4*s + 30 + uM2),
                    (0.19146, fM2, 2*h - 3*s + p + 15 + uM2), (0.03636, fM2, 4*h - 3*s - p + 15 + uM2),
                    (1, fM2, 2*h - 2*s + uM2), (0.00738, fM2, p - s + 165 + uM2), (0.02827, fM1, 2*h - s - p + 165 + a)])
    V_m2 = norm(round_even(360 - A))
    f_s2, A = vsum([(0.05861, 1, p1 - h), (1, 1, 0), (0.27215, fK2, 2*h + uK2)])
    V_s2 = round_even(norm(360 - A))
    f_k1, A = vsum([(0.01939, 1, p1 - 2*h - 90), (0.33093, 1, -h - 90), (1, fK1, h + 90 + uK1),
                    (0.01424, 1, 3*h + 90), (0.05591, fJ1, h + s - p + 90 + uJ1)])
    V_k1 = norm(round_even(360 - A))
    f_o1, A = vsum([(0.02534, fO1, h - 4*s + 2*p - 90 + uO1), (0.03056, fO1, 3*h - 4*s - 90 + uO1),
                    (0.1946, fO1, h - 3*s + p - 90 + uO1), (0.03637, fO1, 3*h - 3*s - p - 90 + uO1),
                    (1, fO1, h - 2*s - 90 + uO1)])
    V_o1 = norm(round_even(360 - A))
    return [V_m2, V_s2, V_k1, V_o1], [f_m2, f_s2, f_k1, f_o1]


def read_port(path, record_no):
    data = open(path, "rb").read()[(record_no - 1) * 197: record_no * 197]
    f = lambda off: struct.unpack_from("<f", data, off)[0]
    c = {k: f(53 + 4 * i) for i, k in enumerate("M2g M2Hm S2g S2Hm K1g K1Hm O1g O1Hm f4 F4 f6 F6".split())}
    c["name"] = data[5:36].decode("latin1").rstrip()
    c["Z0"] = f(49)
    c["dZ0"] = [f(101 + 4 * m) for m in range(12)]
    c["MonthM2"] = [f(149 + 4 * m) for m in range(12)]
    return c


def day_curve(port, year, day, month, summer):
    ML = port["Z0"] + port["dZ0"][month - 1]
    g = [port["M2g"], port["S2g"], port["K1g"], port["O1g"]]
    H = [port["MonthM2"][month - 1], port["S2Hm"], port["K1Hm"], port["O1Hm"]]
    V1, f1 = day_arguments(year, day - 1)
    V2, f2 = day_arguments(year, day)
    speed, fch = [], []
    for k in range(4):
        D = V1[k] - V2[k]
        while D <= (600 if k < 2 else 300): D += 360
        speed.append(D / 24)
        fch.append((f2[k] - f1[k]) / 24)
    first = 139 if summer else 145
    samples = []
    for i in range(first, first + 148):
        t = (i - 1) / 6
        P = [math.radians((g[k] + V1[k] - t * speed[k])) for k in range(4)]
        A = [(f1[k] + t * fch[k]) * H[k] for k in range(4)]
        X = A[0] * math.sin(P[0]) + A[1] * math.sin(P[1])
        Y = A[0] * math.cos(P[0]) + A[1] * math.cos(P[1])
        R, d4 = polar(X, Y)
        h = (ML + Y + A[2] * math.cos(P[2]) + A[3] * math.cos(P[3])
             + R * R * port["F4"] * math.cos(math.radians(2 * d4 + port["f4"]))
             + R ** 3 * port["F6"] * math.cos(math.radians(3 * d4 + port["f6"])))
        samples.append(((i - first) / 6, h))
    return samples


def turning_points(samples):
    out = []
    for i in range(2, 145):  # compare sample i+1 with i and i+2 (1-based)
        a, b, c = samples[i - 1][1], samples[i][1], samples[i + 1][1]
        if (b > a and b > c) or (b < a and b < c):
            out.append((samples[i][0], b, "HW" if b > a else "LW"))
    return out


if __name__ == "__main__":
    for year, day in [(2000, 1), (2000, 100), (2025, 73), (2026, 1), (1989, 200), (1990, 1)]:
        V, f = day_arguments(year, day)
        print(year, day, "V", V, "f", ["%.5f" % x for x in f])
    for year in (2000, 2001, 2025, 1989, 1985, 1990):
        print("year start", year, ["%.4f" % v for v in year_start(year)])
    dover = read_port(sys.argv[1], 76)
    for summer in (False, True):
        print(dover["name"], "2025-03-14 (day 73)", "summer" if summer else "standard")
        for t, h, kind in turning_points(day_curve(dover, 2025, 73, 3, summer)):
            print("  %5.2f h  %6.3f m  %s" % (t, h, kind))
