#include "store/statement.h"

#include <sqlite3.h>

namespace kelvane {
namespace {

// Two limits, both counted and not timed: the rows kept, and the work
// SQLite does (its virtual machine steps, checked every kProgressStep of
// them). The largest real tables hold some tens of thousands of rows and
// take a few million steps, far inside both.
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

}  // namespace

std::string QuoteIdentifier(std::string_view name) {
  std::string quoted = "\"";
  for (char c : name) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + "\"";
}

void BindValue(sqlite3_stmt* stmt, int index, const DbValue& value) {
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

QueryResult CollectRows(sqlite3* db, sqlite3_stmt* stmt, const std::filesystem::path& file) {
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

}  // namespace kelvane
