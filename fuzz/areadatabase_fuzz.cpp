// The database opener on arbitrary bytes: recognition by header, SQLite
// deserialisation, and the Jet reader, then the queries the program runs on
// an area database.
#include <cstddef>
#include <cstdint>
#include <span>

#include "chart/catalogue.h"
#include "store/areadatabase.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kelvane;
  AreaDatabase db = AreaDatabase::OpenBytes(std::span<const std::uint8_t>(data, size), "fuzz.l35");
  (void)db.Tables();
  ChartCatalogue charts = ReadChartsTable(db);
  (void)db.Query("SELECT * FROM diamonds");
  (void)db.Query("SELECT * FROM wrecks");
  (void)charts;
  return 0;
}
