#!/usr/bin/env python3
"""Makes ais_sample.nmea and ais_sample.expected.

Provenance: the sentences are encoded here from chosen field values with
the published AIVDM layouts (six-bit armour, two's complement positions,
NMEA checksum), and the expected lines are worked out from the same field
values by the program's rules, not by running the program:

- positions: a negative field is one unit short of two's complement (the
  program subtracts 0xFFFFFFF / 0x7FFFFFF), divided by 600000 and stored as
  a 32-bit float; numbers print with up to 7 significant digits;
- types 1 and 2 hand status 0 to the table whatever the vessel sent;
- type 9 speed is knots as they stand; type 18 status 1; type 21 status 100;
- type 5 callsigns lose their blanks, names keep theirs and their "@" pad;
  the ETA month is a day count from 30 December 1899 (0, 1 "Dec"; 2.. "Jan");
  six-bit code 34 (a double quote) gives no character.

Run it from this folder to rebuild both files; the test compares the output
of `kelvane-cli ais` with the .expected file line by line.
"""
import struct

def f32(x):
    return struct.unpack('f', struct.pack('f', x))[0]

def num(x, sig=7):
    """Plain number text: up to `sig` significant digits, no trailing zeros."""
    if x == 0:
        return "0"
    sign = "-" if x < 0 else ""
    mant, exp = ("%.*e" % (sig - 1, abs(x))).split('e')
    exp = int(exp)
    digits = mant.replace('.', '').rstrip('0') or '0'
    assert -4 <= exp < sig
    if exp >= 0:
        whole = digits[:exp + 1].ljust(exp + 1, '0')
        frac = digits[exp + 1:]
    else:
        whole = "0"
        frac = "0" * (-exp - 1) + digits
    return sign + whole + ("." + frac if frac else "")

class Bits:
    def __init__(self):
        self.b = ""
    def u(self, v, w):
        self.b += format(v & ((1 << w) - 1), '0%db' % w)
        return self
    def text(self, s, n):
        s = s.ljust(n, '@')[:n]
        for ch in s:
            c = ord(ch)
            self.u(c - 64 if c >= 64 else c, 6)
        return self

def armour(bits):
    fill = (-len(bits)) % 6
    bits += "0" * fill
    out = ""
    for i in range(0, len(bits), 6):
        v = int(bits[i:i + 6], 2)
        out += chr(v + 48 if v < 40 else v + 56)
    return out, fill

def checksum(body):
    c = 0
    for ch in body:
        c ^= ord(ch)
    return "%02X" % c

def sentence(count, number, seq, payload, fill, lower=False):
    body = "AIVDM,%d,%d,%s,B,%s,%d" % (count, number, seq, payload, fill)
    ck = checksum(body)
    return "!" + body + "*" + (ck.lower() if lower else ck)

def pos(raw, width):
    """The program's value of a signed field given its true value."""
    if raw < 0:
        raw += 1
    return f32(raw / 600000.0)

lines, expected = [], []

def emit(line, exp):
    lines.append(line)
    expected.append('{"line":%d%s}' % (len(lines), exp))

def pos_json(lat, lon):
    return ',"lat":%s,"long":%s' % (num(pos(lat, 27)), num(pos(lon, 28)))

def type1(t, mmsi, status, speed, lon, lat, course, second):
    b = Bits().u(t, 6).u(0, 2).u(mmsi, 30).u(status, 4).u(-128, 8).u(speed, 10).u(0, 1)
    b.u(lon, 28).u(lat, 27).u(course, 12).u(511, 9).u(second, 6).u(0, 4).u(0, 3).u(0, 1).u(0, 19)
    return b.b

def pos_report(t, mmsi, status, speed, lon, lat, course, second):
    p, f = armour(type1(t, mmsi, status, speed, lon, lat, course, second))
    emit(sentence(1, 1, "", p, f),
         ',"type":%d,"repeat":0,"mmsi":%d%s,"speed":%s,"course":%s,"second":%d,"status":0'
         % (t, mmsi, pos_json(lat, lon), num(f32(speed / 10.0)), num(f32(course / 10.0)), second))

# Types 1 and 2 around the Solent, both hemispheres, and the sign edges.
pos_report(1, 235012345, 5, 123, -(600000 + 234560), 50 * 600000 + 512060, 2705, 42)
pos_report(2, 235099999, 0, 0, 600000, -300000, 0, 0)
pos_report(1, 366000001, 7, 1023, -1, -1, 3599, 59)                       # all ones: 0, 0
pos_report(1, 366000002, 0, 55, 181 * 600000, 91 * 600000, 3600, 60)      # not available, stored
pos_report(1, 366000003, 0, 55, -(1 << 27), -(1 << 26), 1, 1)             # most negative

# Type 3: counted only.
p, f = armour(type1(3, 235000003, 0, 10, 0, 0, 0, 0))
emit(sentence(1, 1, "", p, f), ',"type":3,"ignored":"counted only"')

# Type 5 in two fragments, ETA month 7 (shown as "Jan"), code 34 in the name.
def type5(mmsi, callsign, name, shiptype, a, b_, c, d, month, day, hour, minute, draught, dest):
    b = Bits().u(5, 6).u(0, 2).u(mmsi, 30).u(0, 2).u(9123456, 30).text(callsign, 7).text(name, 20)
    b.u(shiptype, 8).u(a, 9).u(b_, 9).u(c, 6).u(d, 6).u(1, 4).u(month, 4).u(day, 5).u(hour, 5).u(minute, 6)
    b.u(draught, 8).text(dest, 20).u(0, 1).u(0, 1)
    return b.b

p, f = armour(type5(235000555, "2AB C", 'KELVANE "ONE"', 37, 8, 4, 2, 2, 7, 5, 7, 3, 18, "POOLE"))
emit(sentence(2, 1, "3", p[:60], 0), ',"fragment":1')
emit(sentence(2, 2, "3", p[60:], f),
     ',"type":5,"repeat":0,"mmsi":235000555,"aisVersion":0,"imo":9123456,"callsign":"2ABC@@",'
     '"vesselName":"KELVANE ONE@@@@@@@","shipTypeCode":37,"shipType":"Pleasure Craft",'
     '"dimensions":"12 x 4 x 1.8","eta":"05/Jan @ 07:03","draught":1.8,"destination":"POOLE@@@@@@@@@@@@@@@"')
p, f = armour(type5(235000556, "G1", "MONTH ZERO", 70, 100, 20, 5, 5, 0, 31, 23, 59, 65, "LE HAVRE"))
emit(sentence(2, 1, "4", p[:60], 0), ',"fragment":1')
emit(sentence(2, 2, "4", p[60:], f),
     ',"type":5,"repeat":0,"mmsi":235000556,"aisVersion":0,"imo":9123456,"callsign":"G1@@@@@",'
     '"vesselName":"MONTH ZERO@@@@@@@@@@","shipTypeCode":70,"shipType":"Cargo",'
     '"dimensions":"120 x 10 x 6.5","eta":"31/Dec @ 23:59","draught":6.5,"destination":"LE HAVRE@@@@@@@@@@@@"')

# Sequence numbers are not compared: a type 5 second fragment after the
# first fragment of another message joins it, and the pair, of type 1, is
# dropped.
p1, f1 = armour(type1(1, 1, 0, 0, 0, 0, 0, 0))
emit(sentence(2, 1, "5", p1, 0), ',"fragment":1')
emit(sentence(2, 2, "5", p[60:], f), ',"type":1,"ignored":"two fragments not of type 5"')

# Type 9: speed in knots as it stands, altitude.
b = Bits().u(9, 6).u(0, 2).u(111232511, 30).u(1500, 12).u(102, 10).u(0, 1).u(-(3 * 600000), 28)
b.u(49 * 600000 + 123456, 27).u(901, 12).u(33, 6).u(0, 8).u(0, 1).u(0, 3).u(0, 1).u(0, 1).u(0, 1).u(0, 19)
p, f = armour(b.b)
emit(sentence(1, 1, "", p, f),
     ',"type":9,"repeat":0,"mmsi":111232511%s,"speed":102,"course":90.1,"second":33,"altitude":1500'
     % pos_json(49 * 600000 + 123456, -(3 * 600000)))

# Type 18: class B position, status 1.
b = Bits().u(18, 6).u(0, 2).u(235099998, 30).u(0, 8).u(55, 10).u(0, 1).u(-(2 * 600000 + 12345), 28)
b.u(50 * 600000 + 654321, 27).u(100, 12).u(511, 9).u(12, 6).u(0, 2)
for _ in range(7):
    b.u(0, 1)
b.u(0, 20)
p, f = armour(b.b)
emit(sentence(1, 1, "", p, f),
     ',"type":18,"repeat":0,"mmsi":235099998%s,"speed":5.5,"course":10,"second":12,"status":1'
     % pos_json(50 * 600000 + 654321, -(2 * 600000 + 12345)))

# Type 21: the debug menu's aid, as received.
body = "AIVDM,1,1,,A,E3:G4RQVTR@1T0W72V@@@@@@@@@Oue;<>Lw;0:1IQ`r@1P,4"
emit("!" + body + "*" + checksum(body),
     ',"type":21,"repeat":0,"mmsi":212190346%s,"second":52,"status":100,"aidType":3,"aidTypeText":"Structure",'
     '"name":"MID CHANNEL         ","dimensions":"21 x 25","offPosition":1' % pos_json(30309976, -601396))

# Type 24, parts A and B.
b = Bits().u(24, 6).u(0, 2).u(235000777, 30).u(0, 2).text("SEA WITCH", 20)
p, f = armour(b.b)
emit(sentence(1, 1, "", p, f), ',"type":24,"repeat":0,"mmsi":235000777,"part":0,"name":"SEA WITCH@@@@@@@@@@@"')
b = Bits().u(24, 6).u(0, 2).u(235000777, 30).u(1, 2).u(36, 8).text("AB C", 7).text("M 123", 7)
b.u(6, 9).u(4, 9).u(1, 6).u(2, 6).u(0, 6)
p, f = armour(b.b)
emit(sentence(1, 1, "", p, f),
     ',"type":24,"repeat":0,"mmsi":235000777,"part":1,"shipTypeCode":36,"shipType":"Sailing",'
     '"vendor":"ABC@@@","callsign":"M123@@","dimensions":"10 x 3"')

# A type 1 payload cut after 9 characters (54 bits): the speed field keeps
# its first 4 bits (all ones: 1.5 knots), the position reads 0, 0.
p, f = armour(type1(1, 235012345, 0, 1023, -600000, 600000, 10, 10))
emit(sentence(1, 1, "", p[:9], 0),
     ',"type":1,"repeat":0,"mmsi":235012345,"lat":0,"long":0,"speed":1.5,"course":0,"second":0,"status":0')

# Bad input, each reported in place.
emit(sentence(1, 1, "", p, f, lower=True), ',"ignored":"checksum"')
emit("!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5D", ',"ignored":"checksum"')
emit("garbage without a sentence", ',"ignored":"checksum"')
emit("", ',"ignored":"checksum"')
commas = "," * 82
emit("!AIVDM" + commas + "*" + checksum("AIVDM" + commas), ',"ignored":"fragments or type not handled"')
emit(sentence(3, 1, "6", p, f), ',"ignored":"fragments or type not handled"')
emit("$GPRMC,124541,A,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*78", ',"ignored":"not AIVDM"')

with open("ais_sample.nmea", "w") as out:
    out.write("\n".join(lines) + "\n")
with open("ais_sample.expected", "w") as out:
    out.write("\n".join(expected) + "\n")
