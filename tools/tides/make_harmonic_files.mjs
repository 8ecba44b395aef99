// Builds data/Refports.hc and data/TS/UK.hc from the published harmonic
// constants of the @neaps/tide-database package, and writes the
// attribution file data/TIDES-SOURCES.md beside them.
//
// Run through tools/tides/make_harmonic_files.sh, which installs the pinned
// package version into a temporary folder and passes it here:
//   node make_harmonic_files.mjs <node_modules folder> <data folder>
//
// The constants of the simplified harmonic method are derived per station:
//   Z0        mean sea level above chart datum: datums.MSL - datums[chart_datum]
//             (TICON-4 stations: chart datum LAT; NOAA stations: MLLW)
//   g, Hm     of M2, S2, K1, O1, the phase lags referred to the port's zone
//             time: g(zone) = g(Greenwich) + speed x hours the zone is ahead of UT
//   f4, F4    g(M4) - 2 g(M2) and H(M4) / H(M2)^2
//   f6, F6    g(M6) - 3 g(M2) and H(M6) / H(M2)^3
//   dZ0[m]    Sa and Ssa at the middle of month m: H(Sa) cos(h - g(Sa)) + H(Ssa) cos(2h - g(Ssa))
//   MonthM2[m] |H(M2) e^-i g(M2) + H(MA2) e^-i(g(MA2)+h) + H(MB2) e^i(h-g(MB2))| at mid-month,
//             or H(M2) where MA2 and MB2 are not given
// with h the sun's mean longitude at the middle of the month.
import fs from "node:fs";
import path from "node:path";
import { pathToFileURL } from "node:url";

const [modulesDir, dataDir] = process.argv.slice(2);
if (!modulesDir || !dataDir) {
  console.error("usage: node make_harmonic_files.mjs <node_modules> <data folder>");
  process.exit(2);
}
const db = await import(pathToFileURL(path.join(modulesDir, "@neaps/tide-database/dist/node/index.js")).href);
const pkg = JSON.parse(fs.readFileSync(path.join(modulesDir, "@neaps/tide-database/package.json"), "utf8"));
const byId = db.stationsById;

// Zone letters: L = UT, A = Central European time (one hour ahead of UT),
// T = US Eastern standard time (five hours behind UT).
const ZONE_AHEAD = { L: 0, A: 1, T: -5 };
const SPEED = { M2: 28.9841042, S2: 30.0, K1: 15.0410686, O1: 13.9430356 };

// Refports.hc: the standard ports of the stream tables that the data covers,
// in the order of that table, then the US reference ports of the sample
// stream area. [port number, name (35 characters at most), station id, zone]
const REFPORTS = [
  ["0014", "PLYMOUTH (DEVONPORT)", "ticon/devonport-dev-gbr-bodc", "L"],
  ["0062", "SOUTHAMPTON", "ticon/southampton-sou-gbr-da_idh", "L"],
  ["0065", "PORTSMOUTH", "ticon/portsmouth-ptm-gbr-bodc", "L"],
  ["0089", "DOVER", "ticon/dover-dov-gbr-bodc", "L"],
  ["0108", "SHEERNESS", "ticon/sheerness-she-gbr-cmems", "L"],
  ["0131", "HARWICH", "ticon/harwich-har-gbr-bodc", "L"],
  ["0141", "LOWESTOFT", "ticon/lowestoft-low-gbr-bodc", "L"],
  ["0173", "IMMINGHAM", "ticon/immingham-imm-gbr-bodc", "L"],
  ["0202", "RIVER TYNE (NORTH SHIELDS)", "ticon/north_shields-nsh-gbr-bodc", "L"],
  ["0225", "LEITH", "ticon/leith-lei-gbr-bodc", "L"],
  ["0244", "ABERDEEN", "ticon/aberdeen-abe-gbr-bodc", "L"],
  ["0267", "WICK", "ticon/wick-wic-gbr-bodc", "L"],
  ["0287", "LERWICK", "ticon/lerwick-ler-gbr-bodc", "L"],
  ["0334", "ULLAPOOL", "ticon/ullapool-ull-gbr-bodc", "L"],
  ["0451", "LIVERPOOL (GLADSTONE DOCK)", "ticon/liverpool_gladstone_dock-liv-gbr-bodc", "L"],
  ["0478", "HOLYHEAD", "ticon/holyhead-hol-gbr-bodc", "L"],
  ["0496", "MILFORD HAVEN", "ticon/milford_haven-mha-gbr-bodc", "L"],
  ["0523", "PORT OF BRISTOL (AVONMOUTH)", "ticon/avonmouth-avo-gbr-bodc", "L"],
  ["0617", "DUBLIN (NORTH WALL)", "ticon/dublin_port-dub-irl-mi_c", "L"],
  ["0709", "GALWAY", "ticon/galway_port-gal-irl-mi_c", "L"],
  ["0819", "REYKJAVIK", "ticon/reykjavik-reyk-isl-icg", "L"],
  ["1188", "NARVIK", "kartverket/NVK", "A"],
  ["1431", "HELGOLAND", "ticon/helgolandbinnenhafen-9510070-deu-wsv", "A"],
  ["1505", "HOEK VAN HOLLAND", "ticon/hoekvanhollandtg-hoe-nld-cmems", "A"],
  ["1534", "VLISSINGEN (FLUSHING)", "ticon/vlissingen-vlis-nld-rws", "A"],
  ["1562", "ZEEBRUGGE", "ticon/zeebruggetg-zee-bel-cmems", "A"],
  ["1568", "DUNKERQUE", "ticon/dunkerque-2-fra-refmar", "A"],
  ["1572", "BOULOGNE-SUR-MER", "ticon/boulogne_sur_mer-111-fra-refmar", "A"],
  ["1605", "ST. HELIER", "ticon/st_helier_jersey-jer-gbr-bodc", "L"],
  ["1614", "ST. MALO", "ticon/saint_malo-410-fra-refmar", "A"],
  ["1638", "BREST", "ticon/brest-822-fra-uhslc_fd", "A"],
  ["1770", "GIBRALTAR", "ticon/gibraltar-289-gbr-uhslc_fd", "A"],
  ["", "WOODS HOLE", "noaa/8447930", "T"],
  ["", "NANTUCKET", "noaa/8449130", "T"],
  ["", "NEWPORT (RHODE ISLAND)", "noaa/8452660", "T"],
  ["", "BOSTON", "noaa/8443970", "T"],
];

// TS/UK.hc: a walk round Ireland, Scotland, the west and south coasts of
// Britain to Dover (record 76, the factory setting), then the Thames, the
// east coast and the near Continent. [port number, name (31 at most), id, zone]
const UK = [
  ["0617", "Dublin", "ticon/dublin_port-dub-irl-mi_c", "L"],
  ["", "Howth", "ticon/howth-how-irl-cmems", "L"],
  ["", "Skerries", "ticon/skerries_harbour-ske-irl-mi_c", "L"],
  ["", "Port Oriel", "ticon/portoriel-por-irl-cmems", "L"],
  ["", "Dundalk", "ticon/dundalk-dun-irl-cmems", "L"],
  ["", "Arklow", "ticon/arklowharbour-ark-irl-cmems", "L"],
  ["", "Rosslare", "ticon/rosslare-ros-irl-cmems", "L"],
  ["", "Wexford Harbour", "ticon/wexford_harbour-wex-irl-mi_c", "L"],
  ["", "Dunmore East", "ticon/dunmore_east_harbour-dun-irl-mi_c", "L"],
  ["", "Ballycotton", "ticon/ballycotton_harbour-bal-irl-mi_c", "L"],
  ["", "Ringaskiddy (Cork Harbour)", "ticon/ringaskiddynmci-rin-irl-cmems", "L"],
  ["", "Union Hall", "ticon/union_hall_harbor_2-uni-irl-mi_c", "L"],
  ["", "Castletownbere", "ticon/castletownbere-835-irl-uhslc_fd", "L"],
  ["", "Dingle", "ticon/dingle_harbour-din-irl-mi_c", "L"],
  ["", "Fenit", "ticon/fenit-fen-irl-cmems", "L"],
  ["", "Kilrush", "ticon/kilrush_lough-kil-irl-mi_c", "L"],
  ["0709", "Galway", "ticon/galway_port-gal-irl-mi_c", "L"],
  ["", "Inishmore", "ticon/inishmore-ini-irl-mi_c", "L"],
  ["", "Rossaveel", "ticon/rossaveelpier-ros-irl-cmems", "L"],
  ["", "Roonagh Pier", "ticon/roonagh_pier-roo-irl-mi_c", "L"],
  ["", "Ballyglass", "ticon/ballyglass-bal-irl-cmems", "L"],
  ["", "Sligo", "ticon/sligo-sli-irl-cmems", "L"],
  ["", "Killybegs", "ticon/killybegs_port-kil-irl-mi_c", "L"],
  ["", "Aranmore", "ticon/aranmore_island_leabgarrow-ara-irl-mi_c", "L"],
  ["", "Malin Head", "ticon/malin_head-834-irl-uhslc_fd", "L"],
  ["", "Portrush", "ticon/portrush-pru-gbr-bodc", "L"],
  ["", "Bangor (Belfast Lough)", "ticon/bangor-ban-gbr-cmems", "L"],
  ["", "Portpatrick", "ticon/portpatrick-por-gbr-bodc", "L"],
  ["", "Millport", "ticon/millport-mil-gbr-bodc", "L"],
  ["", "Port Ellen (Islay)", "ticon/port_ellen_islay-isl-gbr-bodc", "L"],
  ["", "Tobermory", "ticon/tobermory-tob-gbr-bodc", "L"],
  ["", "Stornoway", "ticon/stornoway-sto-gbr-bodc", "L"],
  ["0334", "Ullapool", "ticon/ullapool-ull-gbr-bodc", "L"],
  ["", "Kinlochbervie", "ticon/kinlochbervie-kin-gbr-bodc", "L"],
  ["0267", "Wick", "ticon/wick-wic-gbr-bodc", "L"],
  ["0287", "Lerwick", "ticon/lerwick-ler-gbr-bodc", "L"],
  ["", "Moray Firth", "ticon/moray_firth-mor-gbr-bodc", "L"],
  ["0244", "Aberdeen", "ticon/aberdeen-abe-gbr-bodc", "L"],
  ["0225", "Leith", "ticon/leith-lei-gbr-bodc", "L"],
  ["", "Workington", "ticon/workington-wor-gbr-bodc", "L"],
  ["", "Port Erin (Isle of Man)", "ticon/port_eri_isle_of_man-iom-gbr-bodc", "L"],
  ["", "Heysham", "ticon/heysham-hey-gbr-bodc", "L"],
  ["0451", "Liverpool (Gladstone Dock)", "ticon/liverpool_gladstone_dock-liv-gbr-bodc", "L"],
  ["", "Llandudno", "ticon/llandudno-lla-gbr-bodc", "L"],
  ["0478", "Holyhead", "ticon/holyhead-hol-gbr-bodc", "L"],
  ["", "Barmouth", "ticon/barmouth-bar-gbr-cmems", "L"],
  ["", "Fishguard", "ticon/fishguard-fis-gbr-bodc", "L"],
  ["0496", "Milford Haven", "ticon/milford_haven-mha-gbr-bodc", "L"],
  ["", "Mumbles", "ticon/mumbles-mum-gbr-bodc", "L"],
  ["", "Penarth", "ticon/penarth-pen-gbr-cco", "L"],
  ["", "Newport (Gwent)", "ticon/newport-npo-gbr-bodc", "L"],
  ["0523", "Avonmouth", "ticon/avonmouth-avo-gbr-bodc", "L"],
  ["", "Portbury", "ticon/portbury-por-gbr-cmems", "L"],
  ["", "Severn Bridge", "ticon/severn_bridge-ssc-gbr-cco", "L"],
  ["", "Hinkley Point", "ticon/hinkley_point-hin-gbr-bodc", "L"],
  ["", "Ilfracombe", "ticon/ilfracombe-ilf-gbr-bodc", "L"],
  ["", "Port Isaac", "ticon/port_isaac-pti-gbr-cco", "L"],
  ["", "St Mary's (Scilly)", "ticon/st_marys-stm-gbr-da_idh", "L"],
  ["", "Newlyn", "ticon/newlyn-new-gbr-bodc", "L"],
  ["0014", "Plymouth (Devonport)", "ticon/devonport-dev-gbr-bodc", "L"],
  ["1605", "St Helier (Jersey)", "ticon/st_helier_jersey-jer-gbr-bodc", "L"],
  ["", "Teignmouth", "ticon/teignmouth_pier-tnp-gbr-cco", "L"],
  ["", "Exmouth", "ticon/exmouthtg-exm-gbr-cmems", "L"],
  ["", "West Bay", "ticon/west_bay_harbour-wbh-gbr-cco", "L"],
  ["", "Weymouth", "ticon/weymouth-wey-gbr-bodc", "L"],
  ["", "Swanage", "ticon/swanage_pier-swp-gbr-cco", "L"],
  ["", "Bournemouth", "ticon/bournemouth-bou-gbr-bodc", "L"],
  ["", "Lymington", "ticon/lymingtontg-lym-gbr-cmems", "L"],
  ["0062", "Southampton", "ticon/southampton-sou-gbr-da_idh", "L"],
  ["0065", "Portsmouth", "ticon/portsmouth-ptm-gbr-bodc", "L"],
  ["", "Sandown", "ticon/sandown_pier-sdp-gbr-cco", "L"],
  ["", "Arun Platform", "ticon/arunplatformtg-aru-gbr-cmems", "L"],
  ["", "Brighton", "ticon/brighton-btn-gbr-cco", "L"],
  ["", "Newhaven", "ticon/newhaven-nha-gbr-bodc", "L"],
  ["", "Hastings", "ticon/hastings_pier-hgp-gbr-cco", "L"],
  ["0089", "Dover", "ticon/dover-dov-gbr-bodc", "L"],
  ["", "Deal", "ticon/deal_pier-dlp-gbr-cco", "L"],
  ["", "Herne Bay", "ticon/herne_bay-hby-gbr-cco", "L"],
  ["0108", "Sheerness", "ticon/sheerness-she-gbr-cmems", "L"],
  ["", "Felixstowe", "ticon/felixstowe-fel-gbr-bodc", "L"],
  ["0131", "Harwich", "ticon/harwich-har-gbr-bodc", "L"],
  ["0141", "Lowestoft", "ticon/lowestoft-low-gbr-bodc", "L"],
  ["", "Cromer", "ticon/cromer-cro-gbr-bodc", "L"],
  ["0173", "Immingham", "ticon/immingham-imm-gbr-bodc", "L"],
  ["", "Scarborough", "ticon/scarborough-sca-gbr-cco", "L"],
  ["", "Whitby", "ticon/whitby-whi-gbr-bodc", "L"],
  ["0202", "North Shields", "ticon/north_shields-nsh-gbr-bodc", "L"],
  ["", "Calais", "ticon/calais-55-fra-refmar", "A"],
  ["1572", "Boulogne-sur-Mer", "ticon/boulogne_sur_mer-111-fra-refmar", "A"],
  ["", "Dieppe", "ticon/dieppe-24-fra-refmar", "A"],
  ["", "Le Havre", "ticon/le_havre-4-fra-refmar", "A"],
  ["", "Ouistreham", "ticon/ouistreham-311-fra-refmar", "A"],
  ["", "Cherbourg", "ticon/cherbourg-13-fra-refmar", "A"],
  ["1614", "St Malo", "ticon/saint_malo-410-fra-refmar", "A"],
  ["", "St Quay Portrieux", "ticon/saint_quay_portrieux-506-fra-refmar", "A"],
  ["", "Roscoff", "ticon/roscoff-54-fra-refmar", "A"],
  ["1638", "Brest", "ticon/brest-822-fra-uhslc_fd", "A"],
  ["", "Concarneau", "ticon/concarneau-160-fra-refmar", "A"],
  ["1568", "Dunkerque", "ticon/dunkerque-2-fra-refmar", "A"],
  ["", "Nieuwpoort", "ticon/nieuwpoorttg-nie-bel-cmems", "A"],
  ["", "Oostende", "ticon/oostendetg-oos-bel-cmems", "A"],
  ["1562", "Zeebrugge", "ticon/zeebruggetg-zee-bel-cmems", "A"],
  ["1534", "Vlissingen", "ticon/vlissingen-vlis-nld-rws", "A"],
  ["1505", "Hoek van Holland", "ticon/hoekvanhollandtg-hoe-nld-cmems", "A"],
  ["", "IJmuiden", "ticon/ijmuiden_buitenhaven-ijmdbthvn-nld-rws", "A"],
  ["", "Den Helder", "ticon/denheldertg-den-nld-cmems", "A"],
  ["1431", "Helgoland", "ticon/helgolandbinnenhafen-9510070-deu-wsv", "A"],
];

const RECORD = 197;
const norm = (x) => ((x % 360) + 360) % 360;
const rad = (d) => (d * Math.PI) / 180;

function constituents(station) {
  const map = new Map();
  for (const c of station.harmonic_constituents) map.set(c.name.toUpperCase(), c);
  return map;
}

// The sun's mean longitude at the middle of each month of a common year,
// degrees (280 degrees at the start of January, 0.9856474 a day).
const MID_MONTH_DAY = [15.5, 45, 74.5, 105, 135.5, 166, 196.5, 227.5, 258, 288.5, 319, 349.5];
const sunLongitude = (m) => norm(280.0 + 0.9856474 * MID_MONTH_DAY[m]);

function simplifiedConstants(station, zoneLetter) {
  const c = constituents(station);
  const get = (n) => c.get(n) ?? { amplitude: 0, phase: 0 };
  const ahead = ZONE_AHEAD[zoneLetter];
  const zoneG = (n) => norm(get(n).phase + SPEED[n] * ahead);
  const datumLevel = station.datums[station.chart_datum];
  if (typeof station.datums.MSL !== "number" || typeof datumLevel !== "number")
    throw new Error(`${station.id}: no MSL or chart datum level`);
  const M2 = get("M2"), M4 = get("M4"), M6 = get("M6");
  const out = {
    Z0: station.datums.MSL - datumLevel,
    M2g: zoneG("M2"), M2Hm: M2.amplitude,
    S2g: zoneG("S2"), S2Hm: get("S2").amplitude,
    K1g: zoneG("K1"), K1Hm: get("K1").amplitude,
    O1g: zoneG("O1"), O1Hm: get("O1").amplitude,
    f4: M4.amplitude ? norm(M4.phase - 2 * M2.phase) : 0,
    F4: M2.amplitude ? M4.amplitude / M2.amplitude ** 2 : 0,
    f6: M6.amplitude ? norm(M6.phase - 3 * M2.phase) : 0,
    F6: M2.amplitude ? M6.amplitude / M2.amplitude ** 3 : 0,
    dZ0: [], MonthM2: [],
  };
  const Sa = get("SA"), Ssa = get("SSA"), MA2 = c.get("MA2"), MB2 = c.get("MB2");
  for (let m = 0; m < 12; m++) {
    const h = sunLongitude(m);
    out.dZ0.push(Sa.amplitude * Math.cos(rad(h - Sa.phase)) + Ssa.amplitude * Math.cos(rad(2 * h - Ssa.phase)));
    if (MA2 && MB2) {
      let re = M2.amplitude * Math.cos(rad(-M2.phase)), im = M2.amplitude * Math.sin(rad(-M2.phase));
      re += MA2.amplitude * Math.cos(rad(-(MA2.phase + h))); im += MA2.amplitude * Math.sin(rad(-(MA2.phase + h)));
      re += MB2.amplitude * Math.cos(rad(h - MB2.phase)); im += MB2.amplitude * Math.sin(rad(h - MB2.phase));
      out.MonthM2.push(Math.hypot(re, im));
    } else {
      out.MonthM2.push(M2.amplitude);
    }
  }
  return out;
}

function record(portNo, name, station, zone, nameWidth) {
  const buf = Buffer.alloc(RECORD, 0);
  const text = (offset, width, s) => {
    if (!/^[\x20-\x7e]*$/.test(s) || s.length > width) throw new Error(`bad text ${s}`);
    buf.write(s.padEnd(width, " "), offset, "latin1");
  };
  const k = simplifiedConstants(station, zone);
  text(0, 5, portNo);
  text(5, nameWidth, name);
  // In the 31-character layout bytes 36..39 hold the spare single: zero here.
  buf.writeFloatLE(station.latitude, 40);
  buf.writeFloatLE(station.longitude, 44);
  text(48, 1, zone);
  const singles = [k.Z0, k.M2g, k.M2Hm, k.S2g, k.S2Hm, k.K1g, k.K1Hm, k.O1g, k.O1Hm, k.f4, k.F4, k.f6, k.F6];
  singles.forEach((v, i) => buf.writeFloatLE(v, 49 + 4 * i));
  k.dZ0.forEach((v, i) => buf.writeFloatLE(v, 101 + 4 * i));
  k.MonthM2.forEach((v, i) => buf.writeFloatLE(v, 149 + 4 * i));
  for (const v of singles.concat(k.dZ0, k.MonthM2)) if (!Number.isFinite(v)) throw new Error(`${station.id}: ${v}`);
  return buf;
}

function build(list, nameWidth) {
  const used = [];
  const bytes = Buffer.concat(list.map(([no, name, id, zone]) => {
    const s = byId.get(id);
    if (!s) throw new Error(`station ${id} not in the database`);
    used.push(s);
    return record(no, name, s, zone, nameWidth);
  }));
  return { bytes, used };
}

const ref = build(REFPORTS, 35);
const uk = build(UK, 31);
const dover = UK.findIndex((row) => row[1] === "Dover") + 1;
if (dover !== 76) throw new Error(`Dover is record ${dover}, not 76`);

fs.mkdirSync(path.join(dataDir, "TS"), { recursive: true });
fs.writeFileSync(path.join(dataDir, "Refports.hc"), ref.bytes);
fs.writeFileSync(path.join(dataDir, "TS", "UK.hc"), uk.bytes);

// The attribution file: sources, licences, conventions, and the list of
// records of both files.
const all = new Map();
for (const s of ref.used.concat(uk.used)) all.set(s.id, s);
const sources = new Map();
for (const s of all.values()) {
  const key = s.source.name;
  if (!sources.has(key)) sources.set(key, { licence: s.license.type, url: s.license.url, attribution: s.attribution, stations: [] });
  sources.get(key).stations.push(s.id);
}
const lines = [];
lines.push("# Harmonic constants: sources and conventions", "");
lines.push(`Refports.hc and TS/UK.hc are generated by tools/tides/make_harmonic_files.sh from the npm package @neaps/tide-database ${pkg.version} (${pkg.license} licence, Copyright (c) Sailing Naturali; https://github.com/openwatersio/tide-database). The constants themselves come from the sources below; the generated files are a derived work of them and carry their licences.`, "");
lines.push("## Sources", "");
for (const [name, s] of sources) {
  lines.push(`- ${name}: licence ${s.licence} (${s.url}), ${s.stations.length} stations.`);
  lines.push(`  ${s.attribution}`);
}
lines.push("", "TICON-4: Hart-Davis, M., Dettmering, D., Seitz, F. (2025), TICON-4: TIdal CONstants based on GESLA-4 sea-level records, SEANOE, https://doi.org/10.17882/109129, CC BY 4.0. NOAA CO-OPS harmonic constants are in the public domain. Kartverket (Norwegian Mapping Authority) data are CC BY 4.0.", "");
lines.push("## Conventions", "");
lines.push("- Z0: mean sea level (the database's MSL datum) above the station's chart datum: Lowest Astronomical Tide (LAT) for the TICON-4 and Kartverket stations, Mean Lower Low Water (MLLW) for the NOAA stations. Heights predicted from these files are above that datum.");
lines.push("- g of M2, S2, K1, O1: the database gives Greenwich phase lags (referred to UT). They are referred to the port's zone time by g(zone) = g(UT) + speed x (hours the zone time is ahead of UT): zone letter L (UT, 0 h) for the British Isles and Iceland, A (Central European time, 1 h ahead) for France, Belgium, the Netherlands, Germany, Norway and Gibraltar, T (US Eastern standard time, 5 h behind) for the US ports. Times predicted are in that standard time, without summer time.");
lines.push("- f4 = g(M4) - 2 g(M2), F4 = H(M4) / H(M2)^2; f6 = g(M6) - 3 g(M2), F6 = H(M6) / H(M2)^3 (zone-independent). A missing M4 or M6 gives 0.");
lines.push("- dZ0 (12 months): H(Sa) cos(h - g(Sa)) + H(Ssa) cos(2h - g(Ssa)) with h the sun's mean longitude at mid-month (280 degrees at 1 January, 0.9856474 degrees a day).");
lines.push("- MonthM2 (12 months): the M2 amplitude modulated by its annual sidelines MA2 and MB2 at mid-month where the station has them, else H(M2).");
lines.push("- Port numbers are the UKHO numbers of the standard ports; ports without a known standard-port number have a blank number.");
lines.push("- Station names are the program's own (several names in the database are attached to the wrong station; the station ids and positions were checked).", "");
const table = (title, list) => {
  lines.push(`## ${title}`, "", "| Record | Port no. | Name | Station | Zone |", "|---|---|---|---|---|");
  list.forEach(([no, name, id, zone], i) => lines.push(`| ${i + 1} | ${no} | ${name} | ${id} | ${zone} |`));
  lines.push("");
};
table("Refports.hc (35-character names)", REFPORTS);
table("TS/UK.hc (31-character names)", UK);
fs.writeFileSync(path.join(dataDir, "TIDES-SOURCES.md"), lines.join("\n"));
console.log(`Refports.hc: ${REFPORTS.length} records; TS/UK.hc: ${UK.length} records, Dover at ${dover}`);
