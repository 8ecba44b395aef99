// The polar database: set-ups and their tables from SQLite files, damaged
// and incomplete ones, the Jet import, and the sample shipped in data/.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <unistd.h>
#include <sqlite3.h>

#include "store/polars.h"
#include "support/shared_testdata.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

std::string Bytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// An SQLite database at file holding what sql makes.
void MakeDatabase(const std::filesystem::path& file, const std::string& sql) {
  AreaDatabase db = AreaDatabase::Create(file);
  ASSERT_TRUE(db.ok()) << db.message();
  ASSERT_EQ(db.Execute(sql), "");
}

TEST(PolarDatabase, SetUpsAndTablesGoodAndBad) {
  test::TempFolder dir;
  const auto good = dir / "good.mdb";
  MakeDatabase(good,
               "CREATE TABLE SetUps (SetUp TEXT); INSERT INTO SetUps VALUES ('Full main'), ('  '), (NULL), ('Bare');"
               "CREATE TABLE \"Full main\" (windangle INTEGER, Wind0kn REAL, wind2kn REAL, wind4kn REAL, wind6kn REAL,"
               " wind8kn REAL, wind10kn REAL, Wind12kn REAL, wind14kn REAL, wind16kn REAL, wind18kn REAL,"
               " wind20kn REAL, Wind22kn REAL, Wind24kn REAL, Wind26kn REAL, Wind28kn REAL, Wind30kn TEXT);"
               "INSERT INTO \"Full main\" (windangle, wind2kn, Wind30kn) VALUES (30, 1.5, '6.25'), (35, 2, NULL);"
               "CREATE TABLE Bare (windangle, WIND2KN);  INSERT INTO Bare VALUES (30, '1.1');");
  PolarDatabase polars = OpenPolarDatabase(good);
  ASSERT_EQ(polars.message, "");
  PolarSetUps setUps = ListPolarSetUps(polars.db);
  EXPECT_EQ(setUps.message, "");
  EXPECT_EQ(setUps.names, (std::vector<std::string>{"Full main", "Bare"}));  // blanks left out

  PolarTable full = ReadPolarTable(polars.db, "full MAIN");  // names without case, as Jet
  EXPECT_EQ(full.message, "");
  EXPECT_TRUE(full.missingColumns.empty());
  ASSERT_EQ(full.rows.size(), 2u);
  EXPECT_EQ(full.rows[0].windangle, "30");
  EXPECT_EQ(full.rows[0].speeds[1], "1.5");    // a number, as its text
  EXPECT_EQ(full.rows[0].speeds[15], "6.25");  // text, as it stands
  EXPECT_EQ(full.rows[1].speeds[15], std::nullopt);  // NULL: the read fails
  EXPECT_EQ(full.rows[0].speeds[0], std::nullopt);

  // Missing columns are named; the ones present still answer.
  PolarTable bare = ReadPolarTable(polars.db, "Bare");
  EXPECT_EQ(bare.message, "");
  EXPECT_EQ(bare.missingColumns.size(), 15u);
  EXPECT_EQ(bare.missingColumns.front(), "Wind0kn");
  ASSERT_EQ(bare.rows.size(), 1u);
  EXPECT_EQ(bare.rows[0].speeds[1], "1.1");

  EXPECT_EQ(ReadPolarTable(polars.db, "Reefed").message,
            "The polar database " + good.string() + " has no table for the set up \"Reefed\"");

  // Damaged or incomplete files: a message each, never a crash.
  const auto empty = dir / "empty.mdb";
  std::ofstream(empty).close();
  PolarDatabase none = OpenPolarDatabase(empty);
  EXPECT_EQ(none.message, "The database " + empty.string() +
                              " could not be opened: the file is neither an SQLite nor a Jet database");
  EXPECT_EQ(ListPolarSetUps(none.db).message, none.message);
  EXPECT_EQ(ReadPolarTable(none.db, "Bare").message, none.message);

  const auto noSetUps = dir / "nosetups.mdb";
  MakeDatabase(noSetUps, "CREATE TABLE Other (x);");
  EXPECT_EQ(ListPolarSetUps(OpenPolarDatabase(noSetUps).db).message,
            "The polar database " + noSetUps.string() + " has no table SetUps");
  const auto noField = dir / "nofield.mdb";
  MakeDatabase(noField, "CREATE TABLE SetUps (Name TEXT);");
  EXPECT_EQ(ListPolarSetUps(OpenPolarDatabase(noField).db).message,
            "The table SetUps of " + noField.string() + " has no field SetUp");
}

TEST(PolarDatabase, JetFileIsImportedOnceAndItsOriginalKept) {
  SKIP_WITHOUT_SHARED_FILE("jet/nwind.mdb");
  test::TempFolder dir;
  const auto polars = PolarDatabasePath(dir.path());
  std::filesystem::copy_file(test::SharedTestFile("jet/nwind.mdb"), polars);
  const std::string jetBytes = Bytes(polars);

  PolarDatabase first = OpenPolarDatabase(polars);
  ASSERT_TRUE(first.db.ok()) << first.message;
  EXPECT_EQ(first.jetOriginal, dir / "Polars (Jet original).mdb");
  EXPECT_EQ(first.message, "The Jet polar database " + polars.string() +
                               " was imported; the original is kept as " + first.jetOriginal.string());
  EXPECT_EQ(Bytes(first.jetOriginal), jetBytes);
  EXPECT_EQ(RecogniseDatabase(polars), DatabaseKind::SQLite);
  EXPECT_FALSE(std::filesystem::exists(dir / "Polars.mdb.tmp"));

  // The second opening reads the SQLite file: no second import.
  PolarDatabase second = OpenPolarDatabase(polars);
  EXPECT_EQ(second.message, "");
  EXPECT_EQ(second.db.kind(), DatabaseKind::SQLite);
  std::vector<std::string> before = first.db.Tables(), after = second.db.Tables();
  std::sort(before.begin(), before.end());  // the catalogue's order becomes the names' order
  EXPECT_EQ(after, before);
  // A second Jet file brought later keeps the first original too.
  std::filesystem::copy_file(test::SharedTestFile("jet/nwind.mdb"), polars, std::filesystem::copy_options::overwrite_existing);
  EXPECT_EQ(OpenPolarDatabase(polars).jetOriginal, dir / "Polars (Jet original 2).mdb");
}

TEST(PolarDatabase, ShippedSampleIsASyntheticFullTable) {
  PolarDatabase polars = OpenPolarDatabase(PolarDatabasePath(std::filesystem::path(KELVANE_SOURCE_DIR) / "data"));
  ASSERT_EQ(polars.message, "");
  PolarSetUps setUps = ListPolarSetUps(polars.db);
  ASSERT_EQ(setUps.names, (std::vector<std::string>{"Synthetic sample sloop (not a real boat)"}));
  PolarTable table = ReadPolarTable(polars.db, setUps.names[0]);
  EXPECT_EQ(table.message, "");
  EXPECT_TRUE(table.missingColumns.empty());
  ASSERT_EQ(table.rows.size(), 31u);  // 30 to 180 degrees by 5
  EXPECT_EQ(table.rows.front().windangle, "30");
  EXPECT_EQ(table.rows.back().windangle, "180");
}

// The wind2kn column of a set-up read straight through SQLite, not through
// the store, as text of each row in rowid order.
std::vector<std::string> Wind2Column(const std::filesystem::path& file) {
  std::vector<std::string> values;
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(file.string().c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, "SELECT wind2kn FROM \"Boat\" ORDER BY rowid", -1, &stmt, nullptr);
    while (stmt && sqlite3_step(stmt) == SQLITE_ROW)
      values.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
    sqlite3_finalize(stmt);
  }
  sqlite3_close(db);
  return values;
}

TEST(PolarDatabase, ColumnAndCellWriteBackIsAllOrNothing) {
  test::TempFolder dir;
  const auto file = PolarDatabasePath(dir.path());
  // Three rows; a trigger refuses a speed of 99 the way a damaged or
  // foreign file can refuse a write halfway down the column.
  MakeDatabase(file,
               "CREATE TABLE SetUps (SetUp TEXT); INSERT INTO SetUps VALUES ('Boat');"
               "CREATE TABLE Boat (windangle INTEGER, Wind0kn REAL, wind2kn REAL);"
               "INSERT INTO Boat VALUES (30, 0, 1.5), (35, 0, 1.75), (40, 0, 2);"
               "CREATE TRIGGER refuse BEFORE UPDATE ON Boat WHEN NEW.wind2kn = 99 BEGIN SELECT RAISE(ABORT, 'refused'); END;");
  const std::string jet = "a Jet original kept beside it";
  std::ofstream(dir / "Polars (Jet original).mdb", std::ios::binary) << jet;
  const std::vector<std::string> before = {"1.5", "1.75", "2.0"};
  ASSERT_EQ(Wind2Column(file), before);
  const std::string what = "The polar table \"Boat\" could not be written to " + file.string();

  // Refused: nothing of the column is written, even the rows before the fault.
  EXPECT_EQ(WritePolarColumn(file, "Boat", 1, {3, 3, 99}), what + " (refused); nothing was changed");
  EXPECT_EQ(WritePolarColumn(file, "Boat", 1, {3, 3}), what + " (the table has 3 rows, not 2); nothing was changed");
  EXPECT_EQ(WritePolarColumn(file, "Boat", 2, {3, 3, 3}), what + " (the table has no column wind4kn)");
  EXPECT_EQ(WritePolarColumn(file, "Nobody", 1, {3, 3, 3}),
            "The polar table \"Nobody\" could not be written to " + file.string() + " (the file has no table for it)");
  EXPECT_EQ(WritePolarCell(file, "Boat", 3, 1, 3), what + " (the table has no row 4); nothing was changed");
  {
    // Another program holds the file for writing.
    AreaDatabase other = AreaDatabase::Open(file);
    ASSERT_EQ(other.Execute("BEGIN IMMEDIATE"), "");
    EXPECT_EQ(WritePolarColumn(file, "Boat", 1, {3, 3, 3}), what + " (database is locked)");
    ASSERT_EQ(other.Execute("ROLLBACK"), "");
  }
  if (geteuid() != 0) {  // the superuser writes to a read-only file regardless
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_NE(WritePolarCell(file, "Boat", 0, 1, 3), "");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  }
  EXPECT_EQ(Wind2Column(file), before);
  const auto missing = dir / "none" / "Polars.mdb";
  EXPECT_EQ(WritePolarCell(missing, "Boat", 0, 1, 3),
            "The polar table \"Boat\" could not be written to " + missing.string() + " (the file is missing)");
  EXPECT_FALSE(std::filesystem::exists(missing));

  // Accepted: the whole column, then one cell; the Jet original untouched.
  EXPECT_EQ(WritePolarColumn(file, "boat", 1, {2.5, 3.25, 4}), "");
  EXPECT_EQ(Wind2Column(file), (std::vector<std::string>{"2.5", "3.25", "4.0"}));
  EXPECT_EQ(WritePolarCell(file, "Boat", 1, 1, 3.5), "");
  EXPECT_EQ(Wind2Column(file), (std::vector<std::string>{"2.5", "3.5", "4.0"}));
  EXPECT_EQ(Bytes(dir / "Polars (Jet original).mdb"), jet);
}

}  // namespace
}  // namespace kelvane
