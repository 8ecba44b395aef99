// Sunrise, sunset and moon phases of kelvane-cli against astronomy-engine.
//
//   node compare_almanac.mjs <node_modules> <kelvane-cli> [year]
// (tools/tides/compare_almanac.sh installs the package and runs it.)
// For three latitudes on the Greenwich meridian (zone 0), every day of the
// year: the differences of sunrise and sunset from astronomy-engine's
// SearchRiseSet; and for each month the moon phases against SearchMoonQuarter.
import { execFileSync } from "node:child_process";
import path from "node:path";
import { pathToFileURL } from "node:url";

const [modulesDir, cli, yearText] = process.argv.slice(2);
const year = Number(yearText ?? 2025);
const Astronomy = await import(pathToFileURL(path.join(modulesDir, "astronomy-engine/esm/astronomy.js")).href);

const minutesOfDay = (date) => date.getUTCHours() * 60 + date.getUTCMinutes() + date.getUTCSeconds() / 60;
const clock = (text) => Number(text.slice(0, 2)) * 60 + Number(text.slice(3, 5));

for (const [lat, lon] of [[36.1, -5.35], [50.8, -1.1], [60.15, -1.14]]) {
  const observer = new Astronomy.Observer(lat, lon, 0);
  let worst = 0, worstWhen = "";
  for (let m = 1; m <= 12; m++) {
    const out = execFileSync(cli, ["sun", "--lat", String(lat), "--lon", String(lon), "--month", `${year}-${String(m).padStart(2, "0")}`], { encoding: "utf8" });
    for (const line of out.trim().split("\n")) {
      const f = line.split(" ");
      const date = f[0];
      const start = Astronomy.MakeTime(new Date(`${date}T00:00:00Z`));
      const rise = Astronomy.SearchRiseSet(Astronomy.Body.Sun, observer, +1, start, 1);
      const set = Astronomy.SearchRiseSet(Astronomy.Body.Sun, observer, -1, start, 1);
      for (const [text, ev, what] of [[f[4], rise, "rise"], [f[5], set, "set"]]) {
        if (text === "None" || !ev) continue;
        const d = Math.abs(clock(text) - minutesOfDay(ev.date));
        if (d > worst) { worst = d; worstWhen = `${date} ${what}`; }
      }
    }
  }
  console.log(`sun lat ${lat} lon ${lon}: worst |difference| of sunrise/sunset over ${year}: ${worst.toFixed(1)} min (${worstWhen})`);
}

let worstMoon = 0, count = 0;
const names = { 0: "NEW MOON", 1: "FIRST QUARTER", 2: "FULL MOON", 3: "LAST QUARTER" };
let q = Astronomy.SearchMoonQuarter(new Date(Date.UTC(year, 0, 1)));
const reference = [];
while (q.time.date < new Date(Date.UTC(year + 1, 0, 1))) { reference.push(q); q = Astronomy.NextMoonQuarter(q); }
for (let m = 1; m <= 12; m++) {
  const out = execFileSync(cli, ["moon", "--year", String(year), "--month", String(m)], { encoding: "utf8" });
  for (const line of out.trim().split("\n")) {
    const day = Number(line.slice(0, 2));
    const [h, mi] = line.slice(7).split(" ")[0].split(":").map(Number);
    const phase = line.slice(7).split(" ").slice(1).join(" ").trim();
    const t = Date.UTC(year, m - 1, day, h, mi);
    const ref = reference.find((r) => names[r.quarter] === phase && Math.abs(r.time.date - t) < 2 * 86400000);
    if (!ref) { console.log(`no reference for ${line}`); continue; }
    worstMoon = Math.max(worstMoon, Math.abs(ref.time.date - t) / 60000);
    count++;
  }
}
console.log(`moon phases ${year}: ${count} listed of ${reference.length}; worst |difference| ${worstMoon.toFixed(1)} min`);
