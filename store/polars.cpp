#include "store/polars.h"

#include <system_error>
#include <utility>
#include <vector>

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

namespace {

// The cells to write: (row from 0 in the file's order, speed).
using PolarCells = std::vector<std::pair<std::size_t, double>>;

std::string WritePolarCells(const fs::path& file, std::string_view setUp, std::size_t column,
                            std::size_t expectedRows, const PolarCells& cells) {
  const std::string what = "The polar table \"" + std::string(setUp) + "\" could not be written to " + file.string();
  if (column >= kPolarSpeedColumns.size()) return what + " (no such wind speed column)";
  switch (RecogniseDatabase(file)) {
    case DatabaseKind::SQLite:
      break;
    case DatabaseKind::Missing:
      return what + " (the file is missing)";
    case DatabaseKind::Jet3:
    case DatabaseKind::Jet4:
      return what + " (it is a Jet file read from memory; nothing is written to it)";
    case DatabaseKind::Unknown:
      return what + " (it is not a polar database)";
  }
  AreaDatabase db = AreaDatabase::Open(file);
  if (!db.ok()) return what + " (" + db.message() + ")";
  if (!db.HasTable(setUp)) return what + " (the file has no table for it)";
  const std::string table = QuoteIdentifier(setUp);
  const QueryResult shape = db.Query("SELECT * FROM " + table + " LIMIT 0");
  if (!shape.ok()) return what + " (" + shape.message + ")";
  if (shape.Column(kPolarSpeedColumns[column]) < 0)
    return what + " (the table has no column " + kPolarSpeedColumns[column] + ")";

  // BEGIN IMMEDIATE takes the write lock at once, so a read-only file or
  // folder is refused before anything is changed.
  if (std::string error = db.Execute("BEGIN IMMEDIATE"); !error.empty()) return what + " (" + error + ")";
  auto fail = [&](const std::string& reason) {
    (void)db.Execute("ROLLBACK");
    return what + " (" + reason + "); nothing was changed";
  };
  // The rows in the order the table is read (a full scan goes by rowid).
  const QueryResult rowids = db.Query("SELECT rowid FROM " + table + " ORDER BY rowid");
  if (!rowids.ok()) return fail(rowids.message);
  if (expectedRows != 0 && rowids.rows.size() != expectedRows)
    return fail("the table has " + std::to_string(rowids.rows.size()) + " rows, not " + std::to_string(expectedRows));
  const std::string update =
      "UPDATE " + table + " SET " + QuoteIdentifier(kPolarSpeedColumns[column]) + " = ?1 WHERE rowid = ?2";
  for (const auto& [row, speed] : cells) {
    if (row >= rowids.rows.size()) return fail("the table has no row " + std::to_string(row + 1));
    const QueryResult done = db.Query(update, {DbValue(speed), rowids.rows[row][0]});
    if (!done.ok()) return fail(done.message);
  }
  if (std::string error = db.Execute("COMMIT"); !error.empty()) return fail(error);
  return "";
}

}  // namespace

std::string WritePolarColumn(const fs::path& file, std::string_view setUp, std::size_t column,
                             const std::vector<double>& speeds) {
  PolarCells cells;
  for (std::size_t i = 0; i < speeds.size(); ++i) cells.emplace_back(i, speeds[i]);
  if (speeds.empty()) return "The polar table \"" + std::string(setUp) + "\" could not be written: no speeds were given";
  return WritePolarCells(file, setUp, column, speeds.size(), cells);
}

std::string WritePolarCell(const fs::path& file, std::string_view setUp, std::size_t row, std::size_t column,
                           double speed) {
  return WritePolarCells(file, setUp, column, 0, {{row, speed}});
}

}  // namespace kelvane
