#include "store/areadatabase.h"

#include <sqlite3.h>

#include <cstring>
#include <system_error>

#include "core/text.h"
#include "store/jetimport.h"
#include "store/statement.h"

namespace kelvane {
namespace {

std::string OpenFailure(const std::string& name, const std::string& reason) {
  return "The database " + name + " could not be opened: " + reason;
}

}  // namespace

// ---- names ---------------------------------------------------------------------

std::filesystem::path AreaDatabasePath(const std::filesystem::path& programFolder, std::string_view area) {
  std::string name = std::string(area) + ".mdb";
  name.replace(name.size() - 4, 4, kAreaDatabaseExtension);
  return programFolder / "Charts" / name;
}

std::string AreaConnectionText(const std::filesystem::path& database) {
  return std::string(kJetProviderText) + "Data Source=" + database.string();
}

// ---- AreaDatabase ------------------------------------------------------------

AreaDatabase::AreaDatabase() = default;
AreaDatabase::~AreaDatabase() {
  if (db_) sqlite3_close_v2(db_);
}
AreaDatabase::AreaDatabase(AreaDatabase&& other) noexcept { *this = std::move(other); }
AreaDatabase& AreaDatabase::operator=(AreaDatabase&& other) noexcept {
  if (this != &other) {
    if (db_) sqlite3_close_v2(db_);
    db_ = other.db_;
    other.db_ = nullptr;
    message_ = std::move(other.message_);
    kind_ = other.kind_;
    file_ = std::move(other.file_);
    jetTables_ = std::move(other.jetTables_);
  }
  return *this;
}

AreaDatabase AreaDatabase::Open(const std::filesystem::path& file) {
  AreaDatabase result;
  result.file_ = file;
  result.kind_ = RecogniseDatabase(file);
  const std::string name = file.string();
  switch (result.kind_) {
    case DatabaseKind::Missing:
      result.message_ = OpenFailure(name, "the file is missing or can't be read");
      return result;
    case DatabaseKind::Unknown:
      result.message_ = OpenFailure(name, "the file is neither an SQLite nor a Jet database");
      return result;
    case DatabaseKind::SQLite: {
      sqlite3* db = nullptr;
      int rc = sqlite3_open_v2(name.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
      if (rc != SQLITE_OK) {
        result.message_ = OpenFailure(name, db ? sqlite3_errmsg(db) : "out of memory");
        sqlite3_close_v2(db);
        return result;
      }
      // A damaged file opens lazily: ask for the catalogue now, so that the
      // failure is reported here and not by the first query.
      char* error = nullptr;
      if (sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, &error) != SQLITE_OK) {
        result.message_ = OpenFailure(name, error ? error : "damaged file");
        sqlite3_free(error);
        sqlite3_close_v2(db);
        return result;
      }
      result.db_ = db;
      return result;
    }
    case DatabaseKind::Jet3:
    case DatabaseKind::Jet4: {
      JetCopy copy = CopyJetFile(file, result.kind_);
      result.db_ = copy.db;
      result.jetTables_ = std::move(copy.tables);
      if (!result.db_) result.message_ = OpenFailure(name, copy.reason);
      return result;
    }
  }
  return result;
}

AreaDatabase AreaDatabase::OpenBytes(std::span<const std::uint8_t> bytes, std::string_view name) {
  AreaDatabase result;
  result.file_ = std::string(name);
  result.kind_ = RecogniseDatabaseBytes(bytes);
  const std::string label(name);
  if (result.kind_ == DatabaseKind::SQLite) {
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(":memory:", &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
      sqlite3_close_v2(db);
      result.message_ = OpenFailure(label, "out of memory");
      return result;
    }
    auto* copy = static_cast<unsigned char*>(sqlite3_malloc64(bytes.size()));
    if (!copy && !bytes.empty()) {
      sqlite3_close_v2(db);
      result.message_ = OpenFailure(label, "out of memory");
      return result;
    }
    std::memcpy(copy, bytes.data(), bytes.size());
    int rc = sqlite3_deserialize(db, "main", copy, static_cast<sqlite3_int64>(bytes.size()),
                                 static_cast<sqlite3_int64>(bytes.size()),
                                 SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE);
    char* error = nullptr;
    if (rc != SQLITE_OK ||
        sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, &error) != SQLITE_OK) {
      result.message_ = OpenFailure(label, error ? error : "damaged file");
      sqlite3_free(error);
      sqlite3_close_v2(db);
      return result;
    }
    result.db_ = db;
    return result;
  }
  if (result.kind_ == DatabaseKind::Jet3 || result.kind_ == DatabaseKind::Jet4) {
    JetCopy copy = CopyJetBytes(bytes, result.kind_);
    result.db_ = copy.db;
    result.jetTables_ = std::move(copy.tables);
    if (!result.db_) result.message_ = OpenFailure(label, copy.reason);
    return result;
  }
  result.message_ = OpenFailure(label, "the file is neither an SQLite nor a Jet database");
  return result;
}

AreaDatabase AreaDatabase::Create(const std::filesystem::path& file) {
  AreaDatabase result;
  result.file_ = file;
  std::error_code ec;
  if (std::filesystem::exists(file, ec)) {
    result = Open(file);
    if (result.ok() && result.kind_ == DatabaseKind::SQLite) {
      std::string error = CreateAreaSchema(result);
      if (!error.empty()) {
        result = AreaDatabase();
        result.file_ = file;
        result.message_ = OpenFailure(file.string(), error);
      }
    }
    return result;
  }
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(file.string().c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
    result.message_ = OpenFailure(file.string(), db ? sqlite3_errmsg(db) : "out of memory");
    sqlite3_close_v2(db);
    return result;
  }
  result.db_ = db;
  result.kind_ = DatabaseKind::SQLite;
  std::string error = CreateAreaSchema(result);
  if (!error.empty()) {
    result = AreaDatabase();
    result.file_ = file;
    result.message_ = OpenFailure(file.string(), error);
  }
  return result;
}

QueryResult AreaDatabase::Query(std::string_view sql) const { return Query(sql, {}); }

QueryResult AreaDatabase::Query(std::string_view sql, const std::vector<DbValue>& parameters) const {
  if (!db_) {
    QueryResult empty;
    empty.message = message_.empty() ? "No database is open" : message_;
    return empty;
  }
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v2(db_, sql.data(), static_cast<int>(sql.size()), &stmt, nullptr) != SQLITE_OK || !stmt) {
    QueryResult failed;
    failed.message = stmt ? sqlite3_errmsg(db_) : (sqlite3_errcode(db_) == SQLITE_OK ? "empty statement" : sqlite3_errmsg(db_));
    sqlite3_finalize(stmt);
    return failed;
  }
  for (std::size_t i = 0; i < parameters.size(); ++i) BindValue(stmt, static_cast<int>(i) + 1, parameters[i]);
  QueryResult result = CollectRows(db_, stmt, file_);
  sqlite3_finalize(stmt);
  return result;
}

std::string AreaDatabase::Execute(std::string_view sql) const {
  if (!db_) return message_.empty() ? "No database is open" : message_;
  char* error = nullptr;
  std::string text(sql);
  if (sqlite3_exec(db_, text.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
    std::string reason = error ? error : sqlite3_errmsg(db_);
    sqlite3_free(error);
    return reason;
  }
  return "";
}

std::vector<std::string> AreaDatabase::Tables() const {
  if (!jetTables_.empty()) return jetTables_;
  std::vector<std::string> names;
  QueryResult r = Query("SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite_%' ORDER BY name");
  for (const auto& row : r.rows) names.push_back(ValueText(row[0]));
  return names;
}

bool AreaDatabase::HasTable(std::string_view name) const {
  for (const std::string& t : Tables())
    if (EqualNoCase(t, name)) return true;
  return false;
}

std::string AreaDatabase::SaveAs(const std::filesystem::path& file) const {
  if (!db_) return message_.empty() ? "No database is open" : message_;
  std::filesystem::path temp = file;
  temp += ".tmp";
  std::error_code ec;
  std::filesystem::remove(temp, ec);
  sqlite3* out = nullptr;
  if (sqlite3_open_v2(temp.string().c_str(), &out, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
    std::string reason = out ? sqlite3_errmsg(out) : "out of memory";
    sqlite3_close_v2(out);
    return reason;
  }
  sqlite3_backup* backup = sqlite3_backup_init(out, "main", db_, "main");
  std::string reason;
  if (!backup) {
    reason = sqlite3_errmsg(out);
  } else {
    if (sqlite3_backup_step(backup, -1) != SQLITE_DONE) reason = sqlite3_errmsg(out);
    sqlite3_backup_finish(backup);
  }
  sqlite3_close_v2(out);
  if (reason.empty()) {
    std::filesystem::rename(temp, file, ec);
    if (ec) reason = ec.message();
  }
  if (!reason.empty()) std::filesystem::remove(temp, ec);
  return reason;
}

// ---- schema ---------------------------------------------------------------------

std::string AreaSchemaSql() {
  // charts: the catalogue of the area's raster charts and their calibration
  // lines.
  std::string sql =
      "CREATE TABLE IF NOT EXISTS charts (iD INTEGER PRIMARY KEY, chartName TEXT, chartNumber TEXT, "
      "chartScale REAL, rank INTEGER, TSArea TEXT, issueDate REAL, UpperLat REAL, UpperPixels REAL, "
      "LowerLat REAL, LowerPixels REAL, LeftLon REAL, LeftPixels REAL, rightLon REAL, RightPixels REAL);\n";
  // diamonds: one row per tidal diamond, thirteen hourly triples of
  // direction, spring rate and neap rate, six hours either side of HW.
  sql += "CREATE TABLE IF NOT EXISTS diamonds (iD INTEGER PRIMARY KEY, chartNumber REAL, DiaRef REAL, lat REAL, "
         "Lon REAL, RefPort REAL, NPRange REAL, SPRange REAL";
  static const char* const kSlots[13][3] = {
      {"dirM6", "spM6", "npm6"}, {"dirM5", "spM5", "npm5"}, {"dirM4", "spM4", "npm4"}, {"dirM3", "spM3", "npm3"},
      {"dirM2", "spM2", "npm2"}, {"dirM1", "spM1", "npm1"}, {"dir0", "sp0", "np0"},    {"dirp1", "spP1", "npP1"},
      {"dirp2", "spP2", "npP2"}, {"dirp3", "spP3", "npP3"}, {"dirp4", "spP4", "npP4"}, {"dirp5", "spP5", "npP5"},
      {"dirp6", "spP6", "npP6"}};
  for (const auto& slot : kSlots)
    for (const char* column : slot) sql += std::string(", ") + column + " REAL";
  sql += ");\n";
  // wrecks: the hydrographic office's wreck and obstruction records.
  sql +=
      "CREATE TABLE IF NOT EXISTS wrecks (iD INTEGER PRIMARY KEY, wreck_id TEXT, latitude REAL, longitude REAL, "
      "name TEXT, obstruction_category INTEGER, wreck_category INTEGER, status INTEGER, classification INTEGER, "
      "type TEXT, cargo TEXT, circumstances_of_loss TEXT, date_sunk REAL, depth REAL, magnetic_anomaly INTEGER, "
      "Flag TEXT, bottom_texture TEXT, position_method INTEGER, depth_method INTEGER, depth_quality INTEGER, "
      "depth_accuracy REAL, water_level_effect INTEGER, vertical_datum INTEGER, reported_year INTEGER, "
      "Length REAL, width REAL, draught REAL, sonar_length REAL, sonar_width REAL, shadow_height REAL, "
      "orientation REAL, tonnage REAL, surveying_details TEXT);\n";
  sql += "CREATE TABLE IF NOT EXISTS vesseltypes (iD INTEGER PRIMARY KEY, description TEXT, type TEXT);\n";
  return sql;
}

std::string CreateAreaSchema(const AreaDatabase& db) { return db.Execute(AreaSchemaSql()); }

}  // namespace kelvane
