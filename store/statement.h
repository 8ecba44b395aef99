// One SQL statement on an SQLite connection: names quoted into its text,
// parameters bound to it, and its rows collected within a budget.
//
// A query is cut short rather than left to run for ever: a `charts` or
// `wrecks` "table" can be a view that never ends (a recursive one, say),
// and a chart load must come back with a message, not hang the program.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "store/dbvalue.h"

struct sqlite3;
struct sqlite3_stmt;

namespace kelvane {

// Quotes a name for SQL: "name" with inner quotes doubled.
std::string QuoteIdentifier(std::string_view name);

// Binds one value to the parameter at index (from 1).
void BindValue(sqlite3_stmt* stmt, int index, const DbValue& value);

// Runs a prepared statement to its end and collects the rows. A statement
// that yields too many rows or does too much work gives no rows and a
// message naming the database file.
QueryResult CollectRows(sqlite3* db, sqlite3_stmt* stmt, const std::filesystem::path& file);

}  // namespace kelvane
