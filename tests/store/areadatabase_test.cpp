// The storage layer: recognition by header, the SQLite path, the Jet path
// through libmdb on two real Jet files, and damaged input.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>

#include <cstdlib>
#include <fstream>

#include "core/recordio.h"
#include "store/areadatabase.h"
#include "store/jetimport.h"
#include "support/shared_testdata.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

// The real Jet files kept beside the project (shared/testdata/jet).
std::filesystem::path JetFile(const char* name) { return test::SharedTestFile(std::string("jet/") + name); }

using test::WriteText;

TEST(Recognise, ByHeaderNotByName) {
  SKIP_WITHOUT_SHARED_FILE("jet/nwind.mdb");
  SKIP_WITHOUT_SHARED_FILE("jet/DateTestDatabase.mdb");
  TestFolder dir;
  auto sqlite = dir.path() / "area.mdb";  // an SQLite file with a Jet name
  ASSERT_TRUE(AreaDatabase::Create(sqlite).ok());
  EXPECT_EQ(RecogniseDatabase(sqlite), DatabaseKind::SQLite);
  EXPECT_EQ(RecogniseDatabase(JetFile("nwind.mdb")), DatabaseKind::Jet3);
  EXPECT_EQ(RecogniseDatabase(JetFile("DateTestDatabase.mdb")), DatabaseKind::Jet4);
  EXPECT_EQ(RecogniseDatabase(dir.path() / "none.l35"), DatabaseKind::Missing);
  WriteText(dir.path() / "text.l35", "hello, this is not a database at all");
  EXPECT_EQ(RecogniseDatabase(dir.path() / "text.l35"), DatabaseKind::Unknown);
  WriteText(dir.path() / "empty.l35", "");
  EXPECT_EQ(RecogniseDatabase(dir.path() / "empty.l35"), DatabaseKind::Unknown);
}

TEST(Paths, ConnectionOfTheAreaDatabase) {
  EXPECT_EQ(AreaDatabasePath("/data", "Sample Chart"), std::filesystem::path("/data/Charts/Sample Chart.l35"));
  EXPECT_EQ(AreaConnectionText("/data/Charts/Sample Chart.l35"),
            "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/data/Charts/Sample Chart.l35");
  EXPECT_STREQ(kAreaDatabasePassword, "QmT7305");
}

TEST(SQLite, SchemaHasEveryTableTheProgramReads) {
  TestFolder dir;
  AreaDatabase db = AreaDatabase::Create(dir.path() / "Charts" / "New.l35");
  ASSERT_TRUE(db.ok()) << db.message();
  EXPECT_EQ(db.Tables(), (std::vector<std::string>{"charts", "diamonds", "vesseltypes", "wrecks"}));
  struct Case { const char* table; std::vector<const char*> columns; } cases[] = {
      {"charts", {"iD", "chartName", "chartNumber", "chartScale", "rank", "TSArea", "issueDate", "UpperLat",
                  "UpperPixels", "LowerLat", "LowerPixels", "LeftLon", "LeftPixels", "rightLon", "RightPixels"}},
      {"diamonds", {"chartNumber", "DiaRef", "lat", "Lon", "RefPort", "NPRange", "SPRange", "dirM6", "spM6", "npm6",
                    "dir0", "sp0", "np0", "dirp1", "spP1", "npP1", "dirp6", "spP6", "npP6"}},
      {"wrecks", {"iD", "wreck_id", "latitude", "longitude", "name", "obstruction_category", "wreck_category",
                  "status", "classification", "type", "cargo", "circumstances_of_loss", "date_sunk", "depth",
                  "Flag", "Length", "width", "surveying_details"}},
      {"vesseltypes", {"iD", "description", "type"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.table);
    QueryResult r = db.Query(std::string("SELECT * FROM ") + c.table);
    ASSERT_TRUE(r.ok()) << r.message;
    for (const char* column : c.columns) {
      // Exact spelling, as the program names the fields.
      bool found = false;
      for (const auto& have : r.columns) found = found || have == column;
      EXPECT_TRUE(found) << column;
    }
  }
  // 7 leading columns and 13 triples of the diamond table.
  EXPECT_EQ(db.Query("SELECT * FROM diamonds").columns.size(), 1u + 7u + 39u);
  // Running the schema again leaves the tables as they are.
  EXPECT_EQ(db.Execute("INSERT INTO vesseltypes VALUES (1,'Cargo','070')"), "");
  EXPECT_EQ(CreateAreaSchema(db), "");
  EXPECT_EQ(db.Query("SELECT * FROM vesseltypes").rows.size(), 1u);
}

TEST(SQLite, ValuesByColumnNameWithoutCase) {
  TestFolder dir;
  AreaDatabase db = AreaDatabase::Create(dir.path() / "a.l35");
  ASSERT_EQ(db.Execute("INSERT INTO wrecks (iD, name, latitude, date_sunk) VALUES (5, 'Mary', 50.5, NULL)"), "");
  QueryResult r = db.Query("SELECT * FROM wrecks");
  ASSERT_EQ(r.rows.size(), 1u);
  EXPECT_EQ(r.Text(0, "NAME"), "Mary");
  EXPECT_EQ(r.Integer(0, "id"), 5);
  EXPECT_DOUBLE_EQ(r.Number(0, "Latitude"), 50.5);
  EXPECT_TRUE(r.IsNull(0, "date_sunk"));
  EXPECT_EQ(r.Text(0, "no_such_column"), "");
  QueryResult bad = db.Query("SELECT * FROM nowhere");
  EXPECT_FALSE(bad.ok());
  EXPECT_TRUE(bad.rows.empty());
  QueryResult p = db.Query("SELECT name FROM wrecks WHERE iD = ?1", {DbValue(std::int64_t{5})});
  ASSERT_EQ(p.rows.size(), 1u);
}

TEST(Jet, Jet3NorthwindTables) {
  SKIP_WITHOUT_SHARED_FILE("jet/nwind.mdb");
  AreaDatabase db = AreaDatabase::Open(JetFile("nwind.mdb"));
  ASSERT_TRUE(db.ok()) << db.message();
  EXPECT_EQ(db.kind(), DatabaseKind::Jet3);
  auto tables = db.Tables();
  for (const char* want : {"Categories", "Customers", "Employees", "Order Details", "Orders", "Products", "Shippers",
                           "Suppliers", "Umsätze"}) {
    EXPECT_NE(std::find(tables.begin(), tables.end(), want), tables.end()) << want;
  }
  // The three shippers of the Northwind sample.
  QueryResult r = db.Query("SELECT * FROM Shippers ORDER BY ShipperID");
  ASSERT_TRUE(r.ok()) << r.message;
  ASSERT_EQ(r.rows.size(), 3u);
  EXPECT_EQ(r.Text(0, "CompanyName"), "Speedy Express");
  EXPECT_EQ(r.Text(1, "CompanyName"), "United Package");
  EXPECT_EQ(r.Text(2, "CompanyName"), "Federal Shipping");
  EXPECT_EQ(r.Text(2, "Phone"), "(503) 555-9931");
  // A table whose name is not ASCII answers the same SQL.
  QueryResult u = db.Query("SELECT count(*) FROM \"Umsätze\"");
  ASSERT_TRUE(u.ok()) << u.message;
  EXPECT_GT(ValueNumber(u.rows[0][0]), 0);
  // A Jet single keeps every bit: the discount 0.15 is the single 0.15.
  QueryResult d = db.Query("SELECT Discount FROM \"Order Details\" WHERE Discount > 0.1 AND Discount < 0.2 LIMIT 1");
  ASSERT_EQ(d.rows.size(), 1u);
  EXPECT_EQ(static_cast<float>(ValueNumber(d.rows[0][0])), 0.15f);
  EXPECT_EQ(ValueNumber(d.rows[0][0]), static_cast<double>(0.15f));
  // Dates come out as text; Northwind's first order.
  QueryResult o = db.Query("SELECT OrderDate FROM Orders WHERE OrderID = 10330");
  ASSERT_EQ(o.rows.size(), 1u);
  EXPECT_EQ(ValueText(o.rows[0][0]), "1994-11-16 00:00:00");
}

TEST(Jet, Jet4DatesReadCorrectly) {
  SKIP_WITHOUT_SHARED_FILE("jet/DateTestDatabase.mdb");
  AreaDatabase db = AreaDatabase::Open(JetFile("DateTestDatabase.mdb"));
  ASSERT_TRUE(db.ok()) << db.message();
  EXPECT_EQ(db.kind(), DatabaseKind::Jet4);
  QueryResult r = db.Query("SELECT IDCol, DateTimeCol, DateCol, TimeCol, ShortTextCol FROM DateTest ORDER BY IDCol");
  ASSERT_TRUE(r.ok()) << r.message;
  ASSERT_EQ(r.rows.size(), 6u);
  // The rows name what they hold: 2021, year 9999, years before 1900 and
  // before 1000 (each column one year after the last).
  EXPECT_EQ(r.Text(0, "DateTimeCol"), "2021-12-02 00:00:00");
  EXPECT_EQ(r.Text(1, "DateTimeCol"), "9999-01-01 00:00:00");
  EXPECT_EQ(r.Text(2, "DateTimeCol"), "1898-01-01 00:00:00");
  EXPECT_EQ(r.Text(2, "DateCol"), "1899-01-01 00:00:00");
  EXPECT_EQ(r.Text(2, "TimeCol"), "1900-01-01 00:00:00");
  EXPECT_EQ(r.Text(3, "DateTimeCol"), "0632-01-01 00:00:00");
  EXPECT_EQ(r.Text(1, "ShortTextCol"), "Year 1999");
}

TEST(Jet, DateArithmetic) {
  // Day 0 is 1899-12-30; negative days count back with the time forward.
  struct Case { double days; const char* text; } cases[] = {
      {0.0, "1899-12-30 00:00:00"},  {1.0, "1899-12-31 00:00:00"}, {2.0, "1900-01-01 00:00:00"},
      {-1.25, "1899-12-29 06:00:00"}, {36526.5, "2000-01-01 12:00:00"},
      {2958465.0, "9999-12-31 00:00:00"}, {0.99999999, "1899-12-31 00:00:00"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.days);
    EXPECT_EQ(JetDateText(c.days), c.text);
  }
  EXPECT_EQ(JetDateText(std::nan("")), "");
}

TEST(Jet, ImportToSQLite) {
  SKIP_WITHOUT_SHARED_FILE("jet/nwind.mdb");
  TestFolder dir;
  AreaDatabase jet = AreaDatabase::Open(JetFile("nwind.mdb"));
  ASSERT_TRUE(jet.ok());
  auto out = dir.path() / "nwind.l35";
  ASSERT_EQ(jet.SaveAs(out), "");
  EXPECT_EQ(RecogniseDatabase(out), DatabaseKind::SQLite);
  AreaDatabase copy = AreaDatabase::Open(out);
  ASSERT_TRUE(copy.ok());
  EXPECT_EQ(copy.Query("SELECT * FROM Shippers").rows.size(), 3u);
}

TEST(BadInput, MessagesAndEmptyResultsNeverACrash) {
  TestFolder dir;
  // A real SQLite database cut short, and garbage after a true header.
  AreaDatabase good = AreaDatabase::Create(dir.path() / "good.l35");
  ASSERT_EQ(good.Execute("INSERT INTO charts (iD, chartName) VALUES (1, 'x')"), "");
  good = AreaDatabase();
  auto bytes = ReadFileBytes(dir.path() / "good.l35");
  ASSERT_TRUE(bytes);
  WriteText(dir.path() / "cut.l35", std::string(bytes->begin(), bytes->begin() + 100));
  WriteText(dir.path() / "garbage.l35", std::string("SQLite format 3") + '\0' + std::string(5000, '\x5a'));
  std::string jetHeader(0x20, '\0');
  jetHeader.replace(4, 15, "Standard Jet DB");
  WriteText(dir.path() / "jetcut.l35", jetHeader + std::string(3000, '\x01'));
  WriteText(dir.path() / "text.l35", "not a database");
  struct Case { const char* file; const char* reason; } cases[] = {
      {"missing.l35", "the file is missing or can't be read"},
      {"text.l35", "the file is neither an SQLite nor a Jet database"},
      {"jetcut.l35", "the Jet file is truncated"},
      {"cut.l35", ""},
      {"garbage.l35", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file);
    AreaDatabase db = AreaDatabase::Open(dir.path() / c.file);
    QueryResult r = db.Query("SELECT * FROM charts");
    EXPECT_FALSE(r.ok());
    EXPECT_TRUE(r.rows.empty());
    if (!db.ok()) {
      EXPECT_EQ(db.message().rfind("The database " + (dir.path() / c.file).string() + " could not be opened: ", 0), 0u)
          << db.message();
      if (*c.reason) {
        EXPECT_NE(db.message().find(c.reason), std::string::npos) << db.message();
      }
    }
    EXPECT_TRUE(db.Tables().empty() || !r.ok());
  }
}

// SQLite converts REAL and text by its own rules, not the C library's: a
// decimal-comma locale leaves them as they are.
TEST(SQLite, RealAndTextUnderADecimalCommaLocale) {
  const std::string previous = std::setlocale(LC_ALL, nullptr);
  TestFolder dir;
  AreaDatabase db = AreaDatabase::Create(dir.path() / "a.l35");
  for (const char* name : {"C.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
    SCOPED_TRACE(name);
    ASSERT_NE(std::setlocale(LC_ALL, name), nullptr);
    QueryResult r = db.Query("SELECT 0.4 AS a, CAST(0.4 AS TEXT) AS b, CAST('50.58233' AS REAL) AS c, printf('%.2f', 1.5) AS d");
    ASSERT_EQ(r.rows.size(), 1u) << r.message;
    EXPECT_EQ(r.Number(0, "a"), 0.4);
    EXPECT_EQ(r.Text(0, "b"), "0.4");
    EXPECT_EQ(r.Number(0, "c"), 50.58233);
    EXPECT_EQ(r.Text(0, "d"), "1.50");
  }
  std::setlocale(LC_ALL, previous.c_str());
}

TEST(BadInput, BytesInMemory) {
  std::vector<std::uint8_t> garbage(10000, 0xA5);
  AreaDatabase db = AreaDatabase::OpenBytes(garbage);
  EXPECT_FALSE(db.ok());
  SKIP_WITHOUT_SHARED_FILE("jet/DateTestDatabase.mdb");
  auto jet = ReadFileBytes(JetFile("DateTestDatabase.mdb"));
  ASSERT_TRUE(jet);
  AreaDatabase fromBytes = AreaDatabase::OpenBytes(*jet);
  ASSERT_TRUE(fromBytes.ok()) << fromBytes.message();
  EXPECT_EQ(fromBytes.Query("SELECT * FROM DateTest").rows.size(), 6u);
  // Half a Jet file: whatever libmdb makes of it, no crash and no rows
  // beyond what the pages hold.
  std::vector<std::uint8_t> half(jet->begin(), jet->begin() + jet->size() / 2);
  AreaDatabase partial = AreaDatabase::OpenBytes(half);
  (void)partial.Query("SELECT * FROM DateTest");
}

}  // namespace
}  // namespace kelvane
