// The polar database: set-ups and their tables from SQLite files, damaged
// and incomplete ones, the Jet import, and the sample shipped in data/.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

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

}  // namespace
}  // namespace kelvane
