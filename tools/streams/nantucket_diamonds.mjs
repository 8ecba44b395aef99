// Tidal diamonds of the "Nantucket Sound" area from NOAA tidal-current
// harmonic constants, tabulated as a hydrographic office tabulates a diamond.
//
// For every current station of the area's charts (71.2W to 69.9W, 41.2N to
// 41.75N) in @neaps/tide-database:
//  - a harmonic (reference) station is predicted by @neaps/tide-predictor
//    from its constituents plus its mean flow: the speed along the flood
//    axis, positive flooding, negative ebbing, knots;
//  - a subordinate station takes its reference's prediction shifted by the
//    flood or ebb time offset and scaled by the flood or ebb speed ratio, as
//    the tidal current tables direct.
// Its reference port is NEWPORT (RHODE ISLAND), record 35 of Refports.hc,
// west of 70.55W (Vineyard Sound, Buzzards Bay) and NANTUCKET, record 34,
// east of it. Sprange and Nprange are the port's mean spring and neap ranges,
// 2(M2 + S2) and 2(M2 - S2). The port's high waters of a year are found
// from its full constants; the twelve tides whose range lies nearest the
// spring range (and the twelve nearest the neap range) are the mean spring
// (and neap) tide. At each hour from HW-6 to HW+6 the station's signed
// speed is averaged over those tides; the direction of the slot is the
// flood direction when the spring mean floods and the ebb direction when it
// ebbs, and the rates are the magnitudes along it (a neap rate against the
// spring direction, at the turn, is written 0).
//
//   node nantucket_diamonds.mjs <node_modules> <out.csv> [check.csv]
// Writes one CSV row per diamond in the column order of the diamonds table.
// With check.csv it also writes, for the comparison script, the station
// behind each diamond.
import fs from "node:fs";
import path from "node:path";
import { pathToFileURL } from "node:url";

const [modulesDir, outCsv] = process.argv.slice(2);
const isMain = import.meta.url === pathToFileURL(process.argv[1] ?? "").href;
const load = (p) => import(pathToFileURL(path.join(modulesDir, p)).href);
const db = await load("@neaps/tide-database/dist/node/index.js");
const { createTidePredictor } = await load("@neaps/tide-predictor/dist/index.js");

export const AREA = { west: -71.2, east: -69.9, south: 41.2, north: 41.75 };
const YEAR = 2025;
const PORTS = {
  35: { id: "noaa/8452660", name: "NEWPORT (RHODE ISLAND)" },
  34: { id: "noaa/8449130", name: "NANTUCKET" },
};
const HOUR = 3600000;

const amp = (station, name) => station.harmonic_constituents.find((c) => c.name === name)?.amplitude ?? 0;

// Along-axis speed of a current station at time t (ms), knots, flood positive.
const predictors = new Map();
function referenceSpeed(id, t) {
  if (!predictors.has(id)) {
    const s = db.stationsById.get(id);
    predictors.set(id, createTidePredictor(s.harmonic_constituents, { offset: s.current?.mean_flow ?? 0 }));
  }
  const p = predictors.get(id);
  return p.getWaterLevelAtTime({ time: new Date(t) }).level;
}
export function stationSpeed(station, t) {
  const o = station.current.offsets;
  if (!o) return referenceSpeed(station.id, t);
  const flood = referenceSpeed(o.reference, t - (o.flood_time ?? 0) * 60000);
  if (flood > 0) return flood * (o.flood_speed_ratio ?? 1);
  const ebb = referenceSpeed(o.reference, t - (o.ebb_time ?? 0) * 60000);
  if (ebb < 0) return ebb * (o.ebb_speed_ratio ?? 1);
  return 0;
}

function portTides(portId) {
  const s = db.stationsById.get(portId);
  const p = createTidePredictor(s.harmonic_constituents);
  const ex = p.getExtremesPrediction({ start: new Date(Date.UTC(YEAR, 0, 1)), end: new Date(Date.UTC(YEAR + 1, 0, 1)) });
  const tides = [];
  for (let i = 1; i + 1 < ex.length; ++i) {
    if (!ex[i].high || !ex[i - 1].low || !ex[i + 1].low) continue;
    tides.push({ time: ex[i].time.getTime(), range: ex[i].level - (ex[i - 1].level + ex[i + 1].level) / 2 });
  }
  const m2 = amp(s, "M2"), s2 = amp(s, "S2");
  return { tides, sprange: 2 * (m2 + s2), nprange: 2 * (m2 - s2) };
}

const nearest = (tides, target, n) =>
  [...tides].sort((a, b) => Math.abs(a.range - target) - Math.abs(b.range - target) || a.time - b.time).slice(0, n);

const round = (x, d) => Math.round(x * 10 ** d) / 10 ** d;

const stations = db.allStations
  .filter((s) => s.kind === "current" && db.qualityFilter(s))
  .filter((s) => s.latitude > AREA.south && s.latitude < AREA.north && s.longitude > AREA.west && s.longitude < AREA.east)
  .filter((s) => (s.harmonic_constituents?.length ?? 0) > 0 || s.current?.offsets)
  .sort((a, b) => a.id.localeCompare(b.id));

if (isMain) {
const portData = Object.fromEntries(Object.entries(PORTS).map(([no, p]) => [no, portTides(p.id)]));
const header = ["chartNumber", "DiaRef", "lat", "Lon", "RefPort", "NPRange", "SPRange"];
for (const s of ["M6", "M5", "M4", "M3", "M2", "M1"]) header.push(`dir${s}`, `sp${s}`, `np${s.toLowerCase()}`);
header.push("dir0", "sp0", "np0");
for (const s of ["1", "2", "3", "4", "5", "6"]) header.push(`dirp${s}`, `spP${s}`, `npP${s}`);
const rows = [header.concat(["station"]).join(",")];
let ref = 0;
for (const st of stations) {
  const refPort = st.longitude < -70.55 ? 35 : 34;
  const pd = portData[refPort];
  const springs = nearest(pd.tides, pd.sprange, 12);
  const neaps = nearest(pd.tides, pd.nprange, 12);
  const mean = (set, h) => set.reduce((a, t) => a + stationSpeed(st, t.time + h * HOUR), 0) / set.length;
  const row = [9998, ++ref, round(st.latitude, 5), round(st.longitude, 5), refPort, round(pd.nprange, 2), round(pd.sprange, 2)];
  for (let h = -6; h <= 6; ++h) {
    const sp = mean(springs, h), np = mean(neaps, h);
    const flooding = sp >= 0;
    const dir = Math.round(flooding ? st.current.flood_direction : st.current.ebb_direction) % 360;
    const sign = flooding ? 1 : -1;
    // A slot of direction 000 and no stream would read as no data: 360.
    row.push(dir === 0 ? 360 : dir, round(Math.abs(sp), 2), round(Math.max(0, sign * np), 2));
  }
  row.push(st.id);
  rows.push(row.join(","));
}
fs.writeFileSync(outCsv, rows.join("\n") + "\n");
console.error(`${stations.length} diamonds; ports ${Object.entries(portData).map(([no, p]) => `${no}: springs ${p.sprange.toFixed(2)} m, neaps ${p.nprange.toFixed(2)} m`).join("; ")}`);
}
