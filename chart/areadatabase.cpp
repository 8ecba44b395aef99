#include "chart/areadatabase.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <system_error>

#include "core/format.h"
#include "core/text.h"
#include "core/timetext.h"

extern "C" {
#include <mdbtools.h>
}

namespace kelvane {
namespace {

constexpr char kSQLiteMagic[] = "SQLite format 3";  // 16 bytes with its NUL
constexpr char kJetMagic[] = "Standard Jet DB";     // at offset 4, 16 bytes with its NUL
constexpr std::size_t kJetVersionOffset = 0x14;

std::string OpenFailure(const std::string& name, const std::string& reason) {
  return "The database " + name + " could not be opened: " + reason;
}

// A query over an area database is cut short rather than left to run for
// ever: a `charts` or `wrecks` "table" can be a view that never ends (a
// recursive one, say), and a chart load must come back with a message, not
// hang the program. Two limits, both counted and not timed: the rows kept,
// and the work SQLite does (its virtual machine steps, checked every
// kProgressStep of them). The largest real tables hold some tens of
// thousands of rows and take a few million steps, far inside both.
constexpr std::size_t kMaxQueryRows = 250000;
constexpr int kProgressStep = 10000;
constexpr long kMaxProgressCalls = 3000;  // 30 million steps

struct QueryBudget {
  long calls = 0;
};

int SpendBudget(void* budget) {
  auto* b = static_cast<QueryBudget*>(budget);
  return ++b->calls > kMaxProgressCalls ? 1 : 0;  // non-zero interrupts
}

std::string TooLongMessage(const std::filesystem::path& file) {
  return "The database " + file.string() + " did not finish the query: it yields more than " +
         std::to_string(kMaxQueryRows) + " rows or more work than any table of charts, diamonds or wrecks needs";
}

// Runs a prepared statement to its end and collects the rows.
QueryResult Collect(sqlite3* db, sqlite3_stmt* stmt, const std::filesystem::path& file) {
  QueryResult result;
  QueryBudget budget;
  sqlite3_progress_handler(db, kProgressStep, SpendBudget, &budget);
  int columns = sqlite3_column_count(stmt);
  for (int c = 0; c < columns; ++c) {
    const char* name = sqlite3_column_name(stmt, c);
    result.columns.emplace_back(name ? name : "");
  }
  for (;;) {
    int rc = sqlite3_step(stmt);
    if (rc == SQLITE_DONE) break;
    if (rc != SQLITE_ROW || result.rows.size() >= kMaxQueryRows) {
      result.rows.clear();
      result.message = rc == SQLITE_INTERRUPT || rc == SQLITE_ROW ? TooLongMessage(file) : sqlite3_errmsg(db);
      break;
    }
    std::vector<DbValue> row(static_cast<std::size_t>(columns));
    for (int c = 0; c < columns; ++c) {
      switch (sqlite3_column_type(stmt, c)) {
        case SQLITE_INTEGER: row[c] = static_cast<std::int64_t>(sqlite3_column_int64(stmt, c)); break;
        case SQLITE_FLOAT: row[c] = sqlite3_column_double(stmt, c); break;
        case SQLITE_TEXT: {
          const unsigned char* text = sqlite3_column_text(stmt, c);
          row[c] = std::string(text ? reinterpret_cast<const char*>(text) : "",
                               static_cast<std::size_t>(sqlite3_column_bytes(stmt, c)));
          break;
        }
        case SQLITE_BLOB: {
          const auto* blob = static_cast<const std::uint8_t*>(sqlite3_column_blob(stmt, c));
          int size = sqlite3_column_bytes(stmt, c);
          row[c] = std::vector<std::uint8_t>(blob, blob + (blob ? size : 0));
          break;
        }
        default: break;
      }
    }
    result.rows.push_back(std::move(row));
  }
  sqlite3_progress_handler(db, 0, nullptr, nullptr);
  return result;
}

void Bind(sqlite3_stmt* stmt, int index, const DbValue& value) {
  if (const auto* i = std::get_if<std::int64_t>(&value)) {
    sqlite3_bind_int64(stmt, index, *i);
  } else if (const auto* d = std::get_if<double>(&value)) {
    sqlite3_bind_double(stmt, index, *d);
  } else if (const auto* s = std::get_if<std::string>(&value)) {
    sqlite3_bind_text(stmt, index, s->data(), static_cast<int>(s->size()), SQLITE_TRANSIENT);
  } else if (const auto* b = std::get_if<std::vector<std::uint8_t>>(&value)) {
    sqlite3_bind_blob(stmt, index, b->data(), static_cast<int>(b->size()), SQLITE_TRANSIENT);
  } else {
    sqlite3_bind_null(stmt, index);
  }
}

// ---- Jet through libmdb ----------------------------------------------------

// The SQLite type a Jet column is copied into.
const char* SqliteTypeOf(int jetType) {
  switch (jetType) {
    case MDB_BOOL:
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT: return "INTEGER";
    case MDB_MONEY:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_NUMERIC: return "REAL";
    case MDB_OLE:
    case MDB_BINARY: return "BLOB";
    default: return "TEXT";
  }
}

struct MdbCloser {
  void operator()(MdbHandle* mdb) const {
    if (mdb) mdb_close(mdb);
  }
};
using MdbPtr = std::unique_ptr<MdbHandle, MdbCloser>;

struct TableDefCloser {
  void operator()(MdbTableDef* table) const {
    if (table) mdb_free_tabledef(table);
  }
};

}  // namespace

// A Jet date is a double of days from 1899-12-30. Before that day the
// whole part counts the days back and the fraction is still the time of
// day forward: -1.25 is 1899-12-29 06:00. Seconds are rounded.
std::string JetDateText(double value) {
  if (!std::isfinite(value) || std::fabs(value) > 1e7) return "";
  double whole = std::trunc(value);
  double fraction = std::fabs(value - whole);
  std::int64_t days = static_cast<std::int64_t>(whole);
  std::int64_t seconds = static_cast<std::int64_t>(std::llround(fraction * 86400.0));
  if (seconds >= 86400) {
    seconds -= 86400;
    days += 1;
  }
  const CivilDate date = SerialDayToDate(days);
  char text[96];  // room for any 64-bit year the arithmetic could give
  std::snprintf(text, sizeof(text), "%04lld-%02d-%02d %02lld:%02lld:%02lld", static_cast<long long>(date.year),
                date.month, date.day, static_cast<long long>(seconds / 3600), static_cast<long long>(seconds / 60 % 60),
                static_cast<long long>(seconds % 60));
  return text;
}

namespace {

// One column value of the row just fetched, as SQLite will hold it.
// Singles and doubles are read from the row's own bytes when libmdb reports
// where they lie, so that a calibration line keeps every bit it was stored
// with; the text form libmdb prints has too few digits for that. The raw
// value is taken only when it agrees with the text, as a guard against a
// reader that left the offset stale.
// The text libmdb gives for a number. libmdb prints through the C library,
// so inside a program running under a decimal-comma locale the text can read
// "50,5": the comma is taken as the point it stands for (libmdb never groups
// thousands), and the digits are read the same way in every locale.
double LibraryNumber(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  return TextValue(text);
}

DbValue JetValue(MdbHandle* mdb, MdbColumn* col, const std::vector<char>& bound, int length) {
  if (col->col_type == MDB_BOOL) {
    std::string text(bound.data(), strnlen(bound.data(), bound.size()));
    return static_cast<std::int64_t>(text == "1" || text == "True" || text == "-1" ? -1 : 0);
  }
  if (length <= 0) return std::monostate{};
  std::string text(bound.data(), std::min<std::size_t>(static_cast<std::size_t>(length), strnlen(bound.data(), bound.size())));
  switch (col->col_type) {
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT: return static_cast<std::int64_t>(std::strtoll(text.c_str(), nullptr, 10));
    case MDB_FLOAT:
    case MDB_DOUBLE: {
      double printed = LibraryNumber(text);
      int start = col->cur_value_start;
      int width = col->col_type == MDB_FLOAT ? 4 : 8;
      if (col->cur_value_len == width && start >= 0 && start + width <= static_cast<int>(MDB_PGSIZE)) {
        double raw = col->col_type == MDB_FLOAT ? static_cast<double>(mdb_pg_get_single(mdb, start))
                                                : mdb_pg_get_double(mdb, start);
        double tolerance = 1e-5 * std::max(1.0, std::fabs(printed));
        if (std::isfinite(raw) && std::fabs(raw - printed) <= tolerance) return raw;
      }
      return printed;
    }
    case MDB_DATETIME: {
      // libmdb's own text goes through the C library's calendar and fails
      // before 1900 and after 2038 on some systems: read the stored days.
      int start = col->cur_value_start;
      if (col->cur_value_len == 8 && start >= 0 && start + 8 <= static_cast<int>(MDB_PGSIZE)) {
        std::string iso = JetDateText(mdb_pg_get_double(mdb, start));
        if (!iso.empty()) return iso;
      }
      return text;
    }
    case MDB_MONEY:
    case MDB_NUMERIC: return LibraryNumber(text);
    case MDB_OLE: return std::monostate{};  // OLE objects are not carried over
    case MDB_BINARY: return std::vector<std::uint8_t>(text.begin(), text.end());
    default: return text;
  }
}

// Copies one Jet table into the SQLite database. Returns "" or the reason.
std::string CopyJetTable(MdbHandle* mdb, MdbCatalogEntry* entry, sqlite3* db) {
  std::unique_ptr<MdbTableDef, TableDefCloser> table(mdb_read_table(entry));
  if (!table) return std::string("table ") + entry->object_name + " could not be read";
  if (!mdb_read_columns(table.get()) || table->num_cols == 0 || !table->columns)
    return std::string("table ") + entry->object_name + " has no columns";
  std::size_t columns = std::min<std::size_t>(table->num_cols, table->columns->len);

  std::string create = "CREATE TABLE " + QuoteIdentifier(entry->object_name) + " (";
  std::string insert = "INSERT INTO " + QuoteIdentifier(entry->object_name) + " VALUES (";
  std::vector<std::vector<char>> buffers(columns);
  std::vector<int> lengths(columns, 0);
  for (std::size_t c = 0; c < columns; ++c) {
    auto* col = static_cast<MdbColumn*>(g_ptr_array_index(table->columns, c));
    if (c) {
      create += ", ";
      insert += ", ";
    }
    create += QuoteIdentifier(col->name) + " " + SqliteTypeOf(col->col_type);
    insert += "?";
    buffers[c].assign(mdb->bind_size + 1, '\0');
    mdb_bind_column(table.get(), static_cast<int>(c) + 1, buffers[c].data(), &lengths[c]);
  }
  create += ")";
  insert += ")";
  char* error = nullptr;
  if (sqlite3_exec(db, create.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
    std::string reason = error ? error : "create failed";
    sqlite3_free(error);
    return reason;
  }
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v2(db, insert.c_str(), -1, &stmt, nullptr) != SQLITE_OK) return sqlite3_errmsg(db);
  mdb_rewind_table(table.get());
  // A damaged file can claim any number of rows; the pages run out first,
  // but a bound keeps a looping page chain from running forever.
  std::size_t limit = 10'000'000;
  while (limit-- && mdb_fetch_row(table.get())) {
    for (std::size_t c = 0; c < columns; ++c) {
      auto* col = static_cast<MdbColumn*>(g_ptr_array_index(table->columns, c));
      Bind(stmt, static_cast<int>(c) + 1, JetValue(mdb, col, buffers[c], lengths[c]));
      std::fill(buffers[c].begin(), buffers[c].end(), '\0');
      lengths[c] = 0;
    }
    sqlite3_step(stmt);
    sqlite3_reset(stmt);
  }
  sqlite3_finalize(stmt);
  return "";
}

// Checks the parts of a Jet header that libmdb trusts before it reads a
// page: the magic, the version byte and enough bytes for the catalogue.
std::string JetSanity(std::uintmax_t size, DatabaseKind kind) {
  std::uintmax_t page = kind == DatabaseKind::Jet3 ? 2048 : 4096;
  if (size < page * 3) return "the Jet file is truncated";
  return "";
}

}  // namespace

// ---- recognition and names -----------------------------------------------

DatabaseKind RecogniseDatabaseBytes(std::span<const std::uint8_t> header) {
  if (header.size() >= sizeof(kSQLiteMagic) && std::memcmp(header.data(), kSQLiteMagic, sizeof(kSQLiteMagic)) == 0)
    return DatabaseKind::SQLite;
  if (header.size() > kJetVersionOffset && std::memcmp(header.data() + 4, kJetMagic, sizeof(kJetMagic)) == 0) {
    switch (header[kJetVersionOffset]) {
      case 0: return DatabaseKind::Jet3;
      case 1: return DatabaseKind::Jet4;
      default: return DatabaseKind::Unknown;  // Access 2007 and later are not area databases
    }
  }
  return DatabaseKind::Unknown;
}

DatabaseKind RecogniseDatabase(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return DatabaseKind::Missing;
  std::uint8_t header[32] = {};
  in.read(reinterpret_cast<char*>(header), sizeof(header));
  return RecogniseDatabaseBytes(std::span<const std::uint8_t>(header, static_cast<std::size_t>(in.gcount())));
}

const char* DatabaseKindName(DatabaseKind kind) {
  switch (kind) {
    case DatabaseKind::Missing: return "missing";
    case DatabaseKind::Unknown: return "unknown";
    case DatabaseKind::SQLite: return "SQLite 3";
    case DatabaseKind::Jet3: return "Jet 3";
    case DatabaseKind::Jet4: return "Jet 4";
  }
  return "unknown";
}

std::filesystem::path AreaDatabasePath(const std::filesystem::path& programFolder, std::string_view area) {
  std::string name = std::string(area) + ".mdb";
  name.replace(name.size() - 4, 4, kAreaDatabaseExtension);
  return programFolder / "Charts" / name;
}

std::string AreaConnectionText(const std::filesystem::path& database) {
  return std::string(kJetProviderText) + "Data Source=" + database.string();
}

std::string QuoteIdentifier(std::string_view name) {
  std::string quoted = "\"";
  for (char c : name) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + "\"";
}

// ---- QueryResult -----------------------------------------------------------

int QueryResult::Column(std::string_view name) const {
  for (std::size_t c = 0; c < columns.size(); ++c)
    if (EqualNoCase(columns[c], name)) return static_cast<int>(c);
  return -1;
}

double ValueNumber(const DbValue& value) {
  if (const auto* i = std::get_if<std::int64_t>(&value)) return static_cast<double>(*i);
  if (const auto* d = std::get_if<double>(&value)) return *d;
  if (const auto* s = std::get_if<std::string>(&value)) return TextValue(*s);
  return 0;
}

std::string ValueText(const DbValue& value) {
  if (const auto* i = std::get_if<std::int64_t>(&value)) return std::to_string(*i);
  if (const auto* d = std::get_if<double>(&value)) return NumberText(*d);
  if (const auto* s = std::get_if<std::string>(&value)) return *s;
  if (const auto* b = std::get_if<std::vector<std::uint8_t>>(&value)) return std::string(b->begin(), b->end());
  return "";
}

double QueryResult::Number(std::size_t row, std::string_view name) const {
  int c = Column(name);
  if (c < 0 || row >= rows.size()) return 0;
  return ValueNumber(rows[row][static_cast<std::size_t>(c)]);
}

std::int64_t QueryResult::Integer(std::size_t row, std::string_view name) const {
  int c = Column(name);
  if (c < 0 || row >= rows.size()) return 0;
  const DbValue& v = rows[row][static_cast<std::size_t>(c)];
  if (const auto* i = std::get_if<std::int64_t>(&v)) return *i;
  return RoundToInt(ValueNumber(v));
}

std::string QueryResult::Text(std::size_t row, std::string_view name) const {
  int c = Column(name);
  if (c < 0 || row >= rows.size()) return "";
  return ValueText(rows[row][static_cast<std::size_t>(c)]);
}

bool QueryResult::IsNull(std::size_t row, std::string_view name) const {
  int c = Column(name);
  if (c < 0 || row >= rows.size()) return true;
  return std::holds_alternative<std::monostate>(rows[row][static_cast<std::size_t>(c)]);
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

namespace {

// Reads a Jet database (already opened by libmdb) into a fresh in-memory
// SQLite database.
sqlite3* CopyJet(MdbHandle* mdb, std::vector<std::string>& tables, std::string& reason) {
  mdb_set_date_fmt(mdb, "%Y-%m-%d %H:%M:%S");
  mdb_set_shortdate_fmt(mdb, "%Y-%m-%d %H:%M:%S");
  mdb_set_boolean_fmt_numbers(mdb);
  mdb_set_bind_size(mdb, 65536);
  if (!mdb_read_catalog(mdb, MDB_TABLE) || !mdb->catalog) {
    reason = "the Jet catalogue could not be read";
    return nullptr;
  }
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(":memory:", &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
    reason = "no memory for the copy";
    sqlite3_close_v2(db);
    return nullptr;
  }
  sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
  for (unsigned i = 0; i < mdb->num_catalog && i < mdb->catalog->len; ++i) {
    auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
    if (entry->object_type != MDB_TABLE || mdb_is_system_table(entry)) continue;
    std::string name = entry->object_name;
    if (name.rfind("MSys", 0) == 0) continue;
    if (CopyJetTable(mdb, entry, db).empty()) tables.push_back(name);
  }
  sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
  return db;
}

}  // namespace

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
      std::error_code ec;
      auto size = std::filesystem::file_size(file, ec);
      std::string sanity = JetSanity(ec ? 0 : size, result.kind_);
      if (!sanity.empty()) {
        result.message_ = OpenFailure(name, sanity);
        return result;
      }
      MdbPtr mdb(mdb_open(name.c_str(), MDB_NOFLAGS));
      if (!mdb) {
        result.message_ = OpenFailure(name, "the Jet file could not be read");
        return result;
      }
      std::string reason;
      result.db_ = CopyJet(mdb.get(), result.jetTables_, reason);
      if (!result.db_) result.message_ = OpenFailure(name, reason);
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
    std::string sanity = JetSanity(bytes.size(), result.kind_);
    if (!sanity.empty()) {
      result.message_ = OpenFailure(label, sanity);
      return result;
    }
    // libmdb keeps the buffer for the life of the handle.
    std::vector<std::uint8_t> copy(bytes.begin(), bytes.end());
    MdbPtr mdb(mdb_open_buffer(copy.data(), copy.size(), MDB_NOFLAGS));
    if (!mdb) {
      result.message_ = OpenFailure(label, "the Jet file could not be read");
      return result;
    }
    std::string reason;
    result.db_ = CopyJet(mdb.get(), result.jetTables_, reason);
    if (!result.db_) result.message_ = OpenFailure(label, reason);
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
  for (std::size_t i = 0; i < parameters.size(); ++i) Bind(stmt, static_cast<int>(i) + 1, parameters[i]);
  QueryResult result = Collect(db_, stmt, file_);
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
