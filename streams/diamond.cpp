#include "streams/diamond.h"

#include "core/text.h"
#include "store/areadatabase.h"

namespace kelvane {
namespace {

constexpr std::size_t kRatesOffset = 28;

std::size_t RateOffset(int slot, int row) {
  return kRatesOffset + 4u * static_cast<std::size_t>(slot + kDiamondSlots * row);
}

// The slot names of the table, M6 (slot 1) to P6 (slot 13), with the
// table's own mixed case kept.
constexpr const char* kSlotColumns[13][3] = {
    {"dirM6", "spM6", "npm6"}, {"dirM5", "spM5", "npm5"}, {"dirM4", "spM4", "npm4"}, {"dirM3", "spM3", "npm3"},
    {"dirM2", "spM2", "npm2"}, {"dirM1", "spM1", "npm1"}, {"dir0", "sp0", "np0"},    {"dirp1", "spP1", "npP1"},
    {"dirp2", "spP2", "npP2"}, {"dirp3", "spP3", "npP3"}, {"dirp4", "spP4", "npP4"}, {"dirp5", "spP5", "npP5"},
    {"dirp6", "spP6", "npP6"}};

}  // namespace

Diamond DiamondFromBytes(const Bytes& bytes, std::size_t base) {
  RecordReader r(bytes, base);
  Diamond d;
  d.chartNumber = r.F32(0);
  d.DiaRef = r.F32(4);
  d.RefPort = r.F32(8);
  d.Sprange = r.F32(12);
  d.Nprange = r.F32(16);
  d.lat = r.F32(20);
  d.Lon = r.F32(24);
  for (int row = 0; row < 3; ++row)
    for (int slot = 0; slot < kDiamondSlots; ++slot) d.Rate(slot, row) = r.F32(RateOffset(slot, row));
  return d;
}

Bytes DiamondToBytes(const Diamond& d) {
  Bytes bytes(kDiamondBytes, 0);
  RecordWriter w(bytes);
  w.F32(0, d.chartNumber);
  w.F32(4, d.DiaRef);
  w.F32(8, d.RefPort);
  w.F32(12, d.Sprange);
  w.F32(16, d.Nprange);
  w.F32(20, d.lat);
  w.F32(24, d.Lon);
  for (int row = 0; row < 3; ++row)
    for (int slot = 0; slot < kDiamondSlots; ++slot) w.F32(RateOffset(slot, row), d.Rate(slot, row));
  return bytes;
}

std::vector<Diamond> DiamondsFromBytes(const Bytes& bytes) {
  const std::size_t count = bytes.size() / kDiamondBytes;
  std::vector<Diamond> out;
  out.reserve(count);
  for (std::size_t i = 0; i < count; ++i) out.push_back(DiamondFromBytes(bytes, i * kDiamondBytes));
  return out;
}

std::filesystem::path StreamFilePath(const std::filesystem::path& programFolder, std::string_view name) {
  return programFolder / "TS" / (TrimSpaces(name) + ".l25");
}

StreamFileRead ReadStreamFile(const std::filesystem::path& programFolder, std::string_view name) {
  StreamFileRead result;
  const auto file = StreamFilePath(programFolder, name);
  auto bytes = ReadFileBytes(file);
  if (!bytes) {
    result.message = "Stream file " + file.string() + "\r\ncannot be read.";
    return result;
  }
  result.diamonds = DiamondsFromBytes(*bytes);
  return result;
}

bool WriteStreamFile(const std::filesystem::path& file, const std::vector<Diamond>& diamonds) {
  Bytes all;
  all.reserve(diamonds.size() * kDiamondBytes);
  for (const Diamond& d : diamonds) {
    Bytes one = DiamondToBytes(d);
    all.insert(all.end(), one.begin(), one.end());
  }
  return WriteFileAtomic(file, all);
}

const std::vector<std::string>& DiamondColumns() {
  static const std::vector<std::string> columns = [] {
    std::vector<std::string> c = {"chartNumber", "DiaRef", "lat", "Lon", "RefPort", "NPRange", "SPRange"};
    for (const auto& slot : kSlotColumns)
      for (const char* name : slot) c.emplace_back(name);
    return c;
  }();
  return columns;
}

std::vector<double> DiamondColumnValues(const Diamond& d) {
  std::vector<double> v = {d.chartNumber, d.DiaRef, d.lat, d.Lon, d.RefPort, d.Nprange, d.Sprange};
  for (int slot = 1; slot <= 13; ++slot)
    for (int row = 0; row < 3; ++row) v.push_back(d.Rate(slot, row));
  return v;
}

DiamondsRead ReadDiamondsFromDatabaseFile(const std::filesystem::path& database) {
  DiamondsRead result;
  AreaDatabase db = AreaDatabase::Open(database);
  if (!db.ok()) {
    result.message = db.message();
    return result;
  }
  const QueryResult q = db.Query("SELECT * FROM diamonds");
  if (!q.ok()) {
    result.message = q.message;
    return result;
  }
  result.diamonds.reserve(q.rows.size());
  for (std::size_t row = 0; row < q.rows.size(); ++row) {
    Diamond d;
    auto f = [&](const char* name) { return static_cast<float>(q.Number(row, name)); };
    d.chartNumber = f("chartNumber");
    d.DiaRef = f("DiaRef");
    d.lat = f("lat");
    d.Lon = f("Lon");
    d.RefPort = f("RefPort");
    d.Nprange = f("NPRange");
    d.Sprange = f("SPRange");
    for (int slot = 1; slot <= 13; ++slot)
      for (int r = 0; r < 3; ++r) d.Rate(slot, r) = f(kSlotColumns[slot - 1][r]);
    result.diamonds.push_back(d);
  }
  return result;
}

DiamondsRead ReadDiamondsFromDatabase(const std::filesystem::path& programFolder, std::string_view area) {
  return ReadDiamondsFromDatabaseFile(AreaDatabasePath(programFolder, TrimSpaces(area)));
}

}  // namespace kelvane
