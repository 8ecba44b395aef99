// The polar database reader on arbitrary bytes: the set-up list, every
// table read as a set-up's, and the lookups over whatever rows came back.
#include <cstddef>
#include <cstdint>
#include <span>

#include "store/polars.h"
#include "wind/polars.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kelvane;
  AreaDatabase db = AreaDatabase::OpenBytes(std::span<const std::uint8_t>(data, size), "fuzz Polars.mdb");
  PolarSetUps setUps = ListPolarSetUps(db);
  std::vector<std::string> names = setUps.names;
  for (const std::string& t : db.Tables()) names.push_back(t);
  for (const std::string& name : names) {
    PolarTable table = ReadPolarTable(db, name);
    for (std::int16_t row : {std::int16_t{0}, std::int16_t{1}, std::int16_t{7}, std::int16_t{31}})
      for (float w : {0.0f, 2.0f, 13.5f, 41.0f}) (void)BoatSpeedFromWindEntryAndSpeed(table, row, w);
    for (float angle : {31.0f, 42.5f, 90.0f, 180.0f}) (void)PolarBoatSpeed(table, 9.0f, angle, 40.0f);
  }
  return 0;
}
