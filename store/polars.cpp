#include "store/polars.h"

#include <system_error>

#include "core/text.h"
#include "store/statement.h"

namespace kelvane {
namespace fs = std::filesystem;

fs::path PolarDatabasePath(const fs::path& dataRoot) { return dataRoot / kPolarDatabaseName; }

fs::path PolarJetOriginalPath(const fs::path& database) {
  const fs::path folder = database.parent_path();
  std::error_code ec;
  fs::path candidate = folder / "Polars (Jet original).mdb";
  for (int n = 2; fs::exists(candidate, ec) && n < 1000; ++n)
    candidate = folder / ("Polars (Jet original " + std::to_string(n) + ").mdb");
  return candidate;
}

PolarDatabase OpenPolarDatabase(const fs::path& file) {
  PolarDatabase result;
  result.db = AreaDatabase::Open(file);
  if (!result.db.ok()) {
    result.message = result.db.message();
    return result;
  }
  if (result.db.kind() != DatabaseKind::Jet3 && result.db.kind() != DatabaseKind::Jet4) return result;

  // A Jet file: keep its bytes under another name first, then put the SQLite
  // copy in its place by temporary file and rename, so that Polars.mdb is
  // at every moment either the old file or the whole new one.
  const fs::path original = PolarJetOriginalPath(file);
  std::error_code ec;
  fs::copy_file(file, original, fs::copy_options::none, ec);
  if (ec) {
    result.message = "The Jet polar database " + file.string() + " is read from memory: its original could not be kept as " +
                     original.string() + " (" + ec.message() + ")";
    return result;
  }
  if (std::string error = result.db.SaveAs(file); !error.empty()) {
    fs::remove(original, ec);
    result.message = "The Jet polar database " + file.string() + " is read from memory: it could not be written as SQLite (" +
                     error + ")";
    return result;
  }
  result.jetOriginal = original;
  result.message = "The Jet polar database " + file.string() + " was imported; the original is kept as " + original.string();
  return result;
}

PolarSetUps ListPolarSetUps(const AreaDatabase& db) {
  PolarSetUps result;
  if (!db.ok()) {
    result.message = db.message();
    return result;
  }
  if (!db.HasTable(kPolarSetUpsTable)) {
    result.message = "The polar database " + db.file().string() + " has no table " + kPolarSetUpsTable;
    return result;
  }
  QueryResult q = db.Query("SELECT * FROM " + QuoteIdentifier(kPolarSetUpsTable));
  if (!q.ok()) {
    result.message = q.message;
    return result;
  }
  if (q.Column(kPolarSetUpField) < 0) {
    result.message = std::string("The table ") + kPolarSetUpsTable + " of " + db.file().string() + " has no field " +
                     kPolarSetUpField;
    return result;
  }
  for (std::size_t r = 0; r < q.rows.size(); ++r) {
    std::string name = Trim(q.Text(r, kPolarSetUpField));
    if (!name.empty()) result.names.push_back(std::move(name));
  }
  return result;
}

PolarTable ReadPolarTable(const AreaDatabase& db, std::string_view setUp) {
  PolarTable table;
  table.setUp = std::string(setUp);
  if (!db.ok()) {
    table.message = db.message();
    return table;
  }
  if (setUp.empty() || !db.HasTable(setUp)) {
    table.message = "The polar database " + db.file().string() + " has no table for the set up \"" + table.setUp + "\"";
    return table;
  }
  QueryResult q = db.Query("SELECT * FROM " + QuoteIdentifier(setUp));
  if (!q.ok()) {
    table.message = q.message;
    return table;
  }
  const int angleColumn = q.Column(kPolarAngleField);
  if (angleColumn < 0) table.missingColumns.push_back(kPolarAngleField);
  std::array<int, 16> speedColumns{};
  for (std::size_t k = 0; k < kPolarSpeedColumns.size(); ++k) {
    speedColumns[k] = q.Column(kPolarSpeedColumns[k]);
    if (speedColumns[k] < 0) table.missingColumns.push_back(kPolarSpeedColumns[k]);
  }
  auto field = [](const std::vector<DbValue>& row, int column) -> std::optional<std::string> {
    if (column < 0 || std::holds_alternative<std::monostate>(row[static_cast<std::size_t>(column)])) return std::nullopt;
    return ValueText(row[static_cast<std::size_t>(column)]);
  };
  table.rows.reserve(q.rows.size());
  for (const auto& row : q.rows) {
    PolarRow out;
    out.windangle = field(row, angleColumn);
    for (std::size_t k = 0; k < speedColumns.size(); ++k) out.speeds[k] = field(row, speedColumns[k]);
    table.rows.push_back(std::move(out));
  }
  return table;
}

}  // namespace kelvane
