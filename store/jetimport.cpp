#include "store/jetimport.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <system_error>

#include "core/format.h"
#include "core/timetext.h"
#include "store/statement.h"

extern "C" {
#include <mdbtools.h>
}

namespace kelvane {
namespace {

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
      BindValue(stmt, static_cast<int>(c) + 1, JetValue(mdb, col, buffers[c], lengths[c]));
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

JetCopy CopyFromHandle(MdbHandle* mdb) {
  JetCopy copy;
  if (!mdb) {
    copy.reason = "the Jet file could not be read";
    return copy;
  }
  copy.db = CopyJet(mdb, copy.tables, copy.reason);
  return copy;
}

}  // namespace

JetCopy CopyJetFile(const std::filesystem::path& file, DatabaseKind kind) {
  std::error_code ec;
  auto size = std::filesystem::file_size(file, ec);
  JetCopy copy;
  copy.reason = JetSanity(ec ? 0 : size, kind);
  if (!copy.reason.empty()) return copy;
  MdbPtr mdb(mdb_open(file.string().c_str(), MDB_NOFLAGS));
  return CopyFromHandle(mdb.get());
}

JetCopy CopyJetBytes(std::span<const std::uint8_t> bytes, DatabaseKind kind) {
  JetCopy copy;
  copy.reason = JetSanity(bytes.size(), kind);
  if (!copy.reason.empty()) return copy;
  // libmdb keeps the buffer for the life of the handle.
  std::vector<std::uint8_t> buffer(bytes.begin(), bytes.end());
  MdbPtr mdb(mdb_open_buffer(buffer.data(), buffer.size(), MDB_NOFLAGS));
  return CopyFromHandle(mdb.get());
}

}  // namespace kelvane
