// The polar database, Polars.mdb in the data root: a boat's speed through
// the water against true wind angle and true wind speed, one table per
// named set-up of the boat (full main and genoa, reefed, and so on).
//
// Table `SetUps` lists the set-ups by name in its text field `SetUp`; the
// name is the name of that set-up's own table. A set-up table has one row
// per 5 degrees of true wind angle, ascending (`windangle`), and one speed
// column in knots per true wind speed, in the file's own mixed case:
//   Wind0kn wind2kn wind4kn wind6kn wind8kn wind10kn Wind12kn wind14kn
//   wind16kn wind18kn wind20kn Wind22kn Wind24kn Wind26kn Wind28kn Wind30kn
// Speeds may be held as numbers or as text; they are kept here as the text
// of the field, since the lookups hand the field's text to their caller.
//
// The file is SQLite. A Jet file that a user brings from the Windows
// program is imported once: its tables are copied into a new SQLite
// Polars.mdb and the Jet file is kept, byte for byte, beside it under the
// name "Polars (Jet original).mdb".
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/areadatabase.h"

namespace kelvane {

inline constexpr const char* kPolarDatabaseName = "Polars.mdb";
inline constexpr const char* kPolarSetUpsTable = "SetUps";
inline constexpr const char* kPolarSetUpField = "SetUp";
inline constexpr const char* kPolarAngleField = "windangle";

// The speed columns in order of wind speed: index k holds the speeds at
// 2k knots of true wind, 0 to 30.
inline constexpr std::array<const char*, 16> kPolarSpeedColumns = {
    "Wind0kn",  "wind2kn",  "wind4kn",  "wind6kn",  "wind8kn",  "wind10kn", "Wind12kn", "wind14kn",
    "wind16kn", "wind18kn", "wind20kn", "Wind22kn", "Wind24kn", "Wind26kn", "Wind28kn", "Wind30kn"};

// DataRoot/Polars.mdb.
std::filesystem::path PolarDatabasePath(const std::filesystem::path& dataRoot);
// Where an imported Jet original is kept: "Polars (Jet original).mdb"
// beside the database, or "Polars (Jet original 2).mdb" and so on when an
// earlier import already holds that name.
std::filesystem::path PolarJetOriginalPath(const std::filesystem::path& database);

// One row of a set-up's table. A field is empty (nullopt) when its column
// is missing from the table or holds NULL: the read of it fails.
struct PolarRow {
  std::optional<std::string> windangle;
  std::array<std::optional<std::string>, 16> speeds;
};

// A set-up's table, rows in the file's order. missingColumns names the
// columns the table lacks (their reads fail, the others still answer);
// message is "" or says why nothing could be read.
struct [[nodiscard]] PolarTable {
  std::string setUp;
  std::vector<PolarRow> rows;
  std::vector<std::string> missingColumns;
  std::string message;
};

// The polar database opened for reading. message is "" or what the user is
// told: why it could not be opened, or that a Jet file was imported (or
// could not be written back as SQLite, in which case its tables are read
// from memory this once and the file is left as it was).
struct [[nodiscard]] PolarDatabase {
  AreaDatabase db;
  std::string message;
  std::filesystem::path jetOriginal;  // set when this opening imported a Jet file
};

PolarDatabase OpenPolarDatabase(const std::filesystem::path& file);

// The set-up names of `SetUps`, in the file's order, blanks left out.
struct [[nodiscard]] PolarSetUps {
  std::vector<std::string> names;
  std::string message;
};
PolarSetUps ListPolarSetUps(const AreaDatabase& db);

// The table of the set-up named setUp (names compared without case, as Jet
// compared them).
PolarTable ReadPolarTable(const AreaDatabase& db, std::string_view setUp);

// Writes boat speeds (knots) back to the set-up's table in the SQLite
// Polars.mdb `file`: a whole speed column (index into kPolarSpeedColumns),
// speeds[i] into the i-th row in the file's order, or a single cell. Each
// call is one transaction, all or nothing: a refused write leaves every
// cell as it was. The Jet original kept beside the database is never
// touched, and a Polars.mdb that is still a Jet file (read from memory) is
// refused rather than written where nobody will read it back. Returns ""
// or what the user is told: a missing, read-only or damaged file, a
// set-up without a table or column, a column whose row count has changed.
std::string WritePolarColumn(const std::filesystem::path& file, std::string_view setUp, std::size_t column,
                             const std::vector<double>& speeds);
std::string WritePolarCell(const std::filesystem::path& file, std::string_view setUp, std::size_t row,
                           std::size_t column, double speed);

}  // namespace kelvane
