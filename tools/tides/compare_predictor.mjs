// Accuracy of the simplified method against a full harmonic prediction.
//
// For each port, predicts a year of high and low waters twice: with
// kelvane-cli (the simplified method on the area file's constants) and with
// @neaps/tide-predictor from all the station's constituents in
// @neaps/tide-database, on the same datum (the station's MSL above its chart
// datum added to the predictor's level). Each kelvane high water is matched
// to the predictor's nearest high water, and the median and 95th percentile
// of the differences in time (minutes) and height (metres) are printed.
//
//   node compare_predictor.mjs <node_modules> <kelvane-cli> <area.hc> <year>
// (tools/tides/compare_predictor.sh installs the packages and runs it.)
import { execFileSync } from "node:child_process";
import path from "node:path";
import { pathToFileURL } from "node:url";

const [modulesDir, cli, area, yearText] = process.argv.slice(2);
const year = Number(yearText ?? 2025);
const load = (p) => import(pathToFileURL(path.join(modulesDir, p)).href);
const db = await load("@neaps/tide-database/dist/node/index.js");
const { createTidePredictor } = await load("@neaps/tide-predictor/dist/index.js");

const PORTS = [
  ["Dover", "ticon/dover-dov-gbr-bodc"],
  ["Portsmouth", "ticon/portsmouth-ptm-gbr-bodc"],
  ["Plymouth (Devonport)", "ticon/devonport-dev-gbr-bodc"],
  ["Sheerness", "ticon/sheerness-she-gbr-cmems"],
];

const quantile = (xs, q) => {
  const s = [...xs].sort((a, b) => a - b);
  return s[Math.min(s.length - 1, Math.floor(q * (s.length - 1) + 0.5))];
};

const days = (Date.UTC(year + 1, 0, 1) - Date.UTC(year, 0, 1)) / 86400000;
console.log(`Year ${year}, ${days} days; high waters; |difference| kelvane - full harmonic prediction`);
console.log("port                  n     time median  time p95  time max   height median  height p95  height max");
for (const [name, id] of PORTS) {
  const station = db.stationsById.get(id);
  const z0 = station.datums.MSL - station.datums[station.chart_datum];
  const predictor = createTidePredictor(station.harmonic_constituents, { offset: z0 });
  const full = predictor
    .getExtremesPrediction({ start: new Date(Date.UTC(year, 0, 1) - 86400000), end: new Date(Date.UTC(year + 1, 0, 2)) })
    .filter((e) => e.high);
  const csv = execFileSync(cli, ["tides", "--area", area, "--port", name, "--date", `${year}-01-01`, "--days", String(days), "--csv"], { encoding: "utf8" });
  const dt = [], dh = [], sdt = [], sdh = [];
  for (const line of csv.trim().split("\n").slice(1)) {
    const [date, time, height, type] = line.split(",");
    if (type !== "HW") continue;
    const t = Date.parse(`${date}T${time}:00Z`);
    let best = null;
    for (const e of full) if (!best || Math.abs(e.time - t) < Math.abs(best.time - t)) best = e;
    if (!best || Math.abs(best.time - t) > 3 * 3600000) continue;
    dt.push(Math.abs(best.time - t) / 60000);
    sdt.push((t - best.time) / 60000);
    sdh.push(Number(height) - best.level);
    dh.push(Math.abs(best.level - Number(height)));
  }
  const f = (x, d) => x.toFixed(d).padStart(9);
  const mean = (x) => x.reduce((a, b) => a + b, 0) / x.length;
  console.log(`${name.padEnd(20)} ${String(dt.length).padStart(4)} ${f(quantile(dt, 0.5), 1)} min ${f(quantile(dt, 0.95), 1)} min ${f(Math.max(...dt), 1)} min ${f(quantile(dh, 0.5), 2)} m ${f(quantile(dh, 0.95), 2)} m ${f(Math.max(...dh), 2)} m   mean signed ${mean(sdt).toFixed(1)} min ${mean(sdh).toFixed(2)} m`);
}
