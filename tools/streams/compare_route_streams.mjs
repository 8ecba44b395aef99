// A check on the data, not a test: each stream sample of a kelvane-cli route
// through the Nantucket Sound diamonds against the full prediction of the
// current station behind the sample's diamond at that moment. Prints the
// mean and the worst vector difference (knots).
//   node compare_route_streams.mjs <node_modules> <kelvane-cli> <data> <route.gpx> "YYYY-MM-DD HH:MM"...
import { execFileSync } from "node:child_process";
import fs from "node:fs";
import path from "node:path";
import { pathToFileURL } from "node:url";

const [modulesDir, cli, data, gpx, ...departures] = process.argv.slice(2);
process.argv = [process.argv[0], "x", modulesDir, "/dev/null"];
const here = path.dirname(new URL(import.meta.url).pathname);
const load = (p) => import(pathToFileURL(path.join(modulesDir, p)).href);
const db = await load("@neaps/tide-database/dist/node/index.js");
const { stationSpeed } = await import(pathToFileURL(path.join(here, "nantucket_diamonds.mjs")).href);
const stationOf = new Map();
for (const line of fs.readFileSync(path.join(here, "Nantucket Sound.csv"), "utf8").trim().split("\n").slice(1)) {
  const f = line.split(",");
  stationOf.set(`${f[0]}, ${f[1]}`, db.stationsById.get(f[f.length - 1]));
}
const diffs = [];
for (const depart of departures) {
  const out = execFileSync(cli, ["--data-root", data, "route", gpx, "--area", "Nantucket Sound", "--depart", depart, "--details"], { encoding: "utf8" });
  const rows = out.split("Time\tPredicted Position\tStream\tTidal Stream ID\n")[1].trim().split("\n");
  const [date] = depart.split(" ");
  for (const row of rows) {
    const [clock, , stream, id] = row.split("\t");
    if (id === "NONE") continue;
    const m = stream.match(/([\d.]+)kn @ (\d+)/);
    const rate = Number(m[1]), dir = Number(m[2]) * Math.PI / 180;
    const st = stationOf.get(id);
    // Zone time T: US Eastern standard time, UT - 5 h.
    const t = Date.parse(`${date}T${clock.trim().padStart(5, "0")}:00Z`) + 5 * 3600000;
    const v = stationSpeed(st, t);
    const fd = (v >= 0 ? st.current.flood_direction : st.current.ebb_direction) * Math.PI / 180;
    const dx = rate * Math.sin(dir) - Math.abs(v) * Math.sin(fd), dy = rate * Math.cos(dir) - Math.abs(v) * Math.cos(fd);
    diffs.push(Math.hypot(dx, dy));
  }
}
const mean = diffs.reduce((a, b) => a + b, 0) / diffs.length;
console.log(`${diffs.length} samples: mean vector difference ${mean.toFixed(2)} kn, worst ${Math.max(...diffs).toFixed(2)} kn`);
