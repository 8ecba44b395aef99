// The area databases (.l35) and the program's own databases.
//
// Every database the program reads is opened here and answers SQL through
// SQLite 3. A file is recognised by its first bytes, never by its name:
//   - "SQLite format 3" at offset 0: opened read-write as it stands;
//   - "Standard Jet DB" at offset 4 (Jet 3 when the version byte at 0x14 is
//     0, Jet 4 when it is 1): read through mdbtools' libmdb and every user
//     table copied into an in-memory SQLite database, so that the same SQL
//     text runs on files written by other programs. Such a copy is
//     read-only in effect: nothing is written back to the Jet file.
// Anything else, a missing file or a damaged one gives a clear message and
// an empty result; no query on a database that failed to open throws or
// crashes.
//
// Column values keep the types of the file: integers, reals (a Jet single
// is carried as the double of its exact value), text (UTF-8), blobs, NULL.
// Jet dates become text "YYYY-MM-DD HH:MM:SS". Names of tables and columns
// are compared without regard to case, as the Jet provider did.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

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

enum class DatabaseKind { Missing, Unknown, SQLite, Jet3, Jet4 };

// What the first bytes of a file say it is. Fewer bytes than a header are
// Unknown; an empty span is Unknown too.
DatabaseKind RecogniseDatabaseBytes(std::span<const std::uint8_t> header);
// The same for a file on disk; Missing when it can't be opened for reading.
DatabaseKind RecogniseDatabase(const std::filesystem::path& file);
const char* DatabaseKindName(DatabaseKind kind);

// ProgramFolder\Charts\<area>.l35: the path is formed with ".mdb" and that
// extension is replaced at once, so ".mdb" is never opened.
std::filesystem::path AreaDatabasePath(const std::filesystem::path& programFolder, std::string_view area);
// "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=<path>": the connection as
// the area databases name it, for messages and logs.
std::string AreaConnectionText(const std::filesystem::path& database);

using DbValue = std::variant<std::monostate, std::int64_t, double, std::string, std::vector<std::uint8_t>>;

// The result of one query: column names in order and the rows. message is
// empty on success and holds the reason otherwise (the rows are then
// empty).
struct [[nodiscard]] QueryResult {
  std::vector<std::string> columns;
  std::vector<std::vector<DbValue>> rows;
  std::string message;

  bool ok() const { return message.empty(); }
  // Index of a column by name, compared without case; -1 when absent.
  int Column(std::string_view name) const;
  // Field of a row by column name. An absent column or a NULL is 0 / "".
  double Number(std::size_t row, std::string_view name) const;
  std::int64_t Integer(std::size_t row, std::string_view name) const;
  std::string Text(std::size_t row, std::string_view name) const;
  bool IsNull(std::size_t row, std::string_view name) const;
};

// The number a value holds (text is read as a number, blobs and NULL are 0).
double ValueNumber(const DbValue& value);
// The text of a value: numbers in their plain form, NULL empty.
std::string ValueText(const DbValue& value);

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

// The text "YYYY-MM-DD HH:MM:SS" of a Jet date (days from 1899-12-30, the
// fraction the time of day); "" for a value no calendar can hold.
std::string JetDateText(double value);

// Quotes a name for SQL: "name" with inner quotes doubled.
std::string QuoteIdentifier(std::string_view name);

}  // namespace kelvane
