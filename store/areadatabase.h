// The area databases (.l35) and the program's own databases.
//
// Every database the program reads is opened here and answers SQL through
// SQLite 3. A file is recognised by its first bytes, never by its name
// (store/databasekind.h): an SQLite file is opened read-write as it stands;
// a Jet 3 or Jet 4 file is copied table by table into an in-memory SQLite
// database (store/jetimport.h), so that the same SQL text runs on files
// written by other programs, and nothing is written back to it.
// Anything else, a missing file or a damaged one gives a clear message and
// an empty result; no query on a database that failed to open throws or
// crashes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/databasekind.h"
#include "store/dbvalue.h"

struct sqlite3;

namespace kelvane {

// The connection of the Windows program, kept where a connection is
// formed. The provider text and the password are those the area databases
// were written with; the password protects nothing on this platform (the
// Jet reader does not need it), but a database made by our tools is the
// same file to the program that wrote the originals.
inline constexpr const char* kJetProviderText = "Provider=Microsoft.Jet.OLEDB.4.0;";
inline constexpr const char* kJetPasswordProperty = "Jet OLEDB:Database Password";
inline constexpr const char* kAreaDatabasePassword = "QmT7305";
inline constexpr const char* kAreaDatabaseExtension = ".l35";

// ProgramFolder\Charts\<area>.l35: the path is formed with ".mdb" and that
// extension is replaced at once, so ".mdb" is never opened.
std::filesystem::path AreaDatabasePath(const std::filesystem::path& programFolder, std::string_view area);
// "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=<path>": the connection as
// the area databases name it, for messages and logs.
std::string AreaConnectionText(const std::filesystem::path& database);

class AreaDatabase {
 public:
  AreaDatabase();
  ~AreaDatabase();
  AreaDatabase(AreaDatabase&&) noexcept;
  AreaDatabase& operator=(AreaDatabase&&) noexcept;
  AreaDatabase(const AreaDatabase&) = delete;
  AreaDatabase& operator=(const AreaDatabase&) = delete;

  // Opens an existing database of either kind. Never throws; on failure
  // ok() is false and message() says why.
  static AreaDatabase Open(const std::filesystem::path& file);
  // Opens a database from bytes in memory (a copy is made): SQLite bytes
  // are deserialised, Jet bytes are read through libmdb. For tests and the
  // fuzz target.
  static AreaDatabase OpenBytes(std::span<const std::uint8_t> bytes, std::string_view name = "<memory>");
  // Creates a new SQLite database at file (which must not exist) with the
  // area schema. A file that exists is opened instead and its schema
  // completed with whatever tables it lacks.
  static AreaDatabase Create(const std::filesystem::path& file);

  bool ok() const { return db_ != nullptr; }
  const std::string& message() const { return message_; }
  DatabaseKind kind() const { return kind_; }
  const std::filesystem::path& file() const { return file_; }

  // Runs one statement and collects every row. On a closed database the
  // result carries the open failure as its message.
  QueryResult Query(std::string_view sql) const;
  // Runs one statement with positional parameters (?1, ?2 ...).
  QueryResult Query(std::string_view sql, const std::vector<DbValue>& parameters) const;
  // Runs statements that return nothing; returns the error text or "".
  std::string Execute(std::string_view sql) const;

  // User tables, in the order of the file's catalogue (Jet) or by name
  // (SQLite).
  std::vector<std::string> Tables() const;
  bool HasTable(std::string_view name) const;

  // Writes the whole database (a Jet copy included) to an SQLite file by
  // temporary file and rename. Returns the error text or "".
  std::string SaveAs(const std::filesystem::path& file) const;

  sqlite3* handle() const { return db_; }

 private:
  sqlite3* db_ = nullptr;
  std::string message_;
  DatabaseKind kind_ = DatabaseKind::Missing;
  std::filesystem::path file_;
  std::vector<std::string> jetTables_;
};

// The one place the tables of an area database are defined: `charts`,
// `diamonds`, `wrecks` and `vesseltypes`, with the column names the program
// reads, exactly as it spells them. Tables that exist are left alone.
// Returns the error text or "".
std::string CreateAreaSchema(const AreaDatabase& db);
// The SQL that CreateAreaSchema runs, for tools that print it.
std::string AreaSchemaSql();

}  // namespace kelvane
