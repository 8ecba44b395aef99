#include "core/windconfig.h"

#include "core/format.h"
#include "core/recordio.h"

namespace kelvane {

WindConfig FirstRunWindConfig() { return WindConfig{}; }

WindConfig RestoredWindConfig() {
  WindConfig c;
  c.CalcWindSpeed = "5.0";
  c.CalcWindDir = "225";
  c.RouteWindSpeed = "5.0";
  c.RouteWindDir = "290";
  return c;
}

std::vector<std::uint8_t> EncodeWindConfig(const WindConfig& c) {
  Bytes bytes(kWindConfigSize, 0);
  RecordWriter w(bytes);
  w.I16(0, c.WindFormState1);
  w.I16(2, c.WindFormState2);
  w.Text(4, 4, c.CalcWindSpeed);
  w.Text(8, 3, c.CalcWindDir);
  w.I16(11, c.WindFormState3);
  w.I16(13, c.WindFormState4);
  w.Text(15, 4, c.RouteWindSpeed);
  w.Text(19, 3, c.RouteWindDir);
  w.I16(22, c.PolarSetUpIndex);
  return bytes;
}

WindConfig DecodeWindConfig(const std::vector<std::uint8_t>& bytes) {
  RecordReader r(bytes);
  WindConfig c;
  c.WindFormState1 = r.I16(0);
  c.WindFormState2 = r.I16(2);
  c.CalcWindSpeed = r.Text(4, 4);
  c.CalcWindDir = r.Text(8, 3);
  c.WindFormState3 = r.I16(11);
  c.WindFormState4 = r.I16(13);
  c.RouteWindSpeed = r.Text(15, 4);
  c.RouteWindDir = r.Text(19, 3);
  c.PolarSetUpIndex = r.I16(22);
  return c;
}

WindConfig ReadWindConfig(const std::filesystem::path& file) {
  std::optional<Bytes> bytes = ReadFileBytes(file, 1u << 20);
  return DecodeWindConfig(bytes ? *bytes : Bytes{});
}

bool WriteWindConfig(const std::filesystem::path& file, const WindConfig& config) {
  return WriteFileAtomic(file, EncodeWindConfig(config));
}

WorkingWind WorkingWindFrom(const WindConfig& config) {
  WorkingWind w;
  w.speed = static_cast<float>(TextValue(config.RouteWindSpeed));
  w.direction = static_cast<float>(TextValue(config.RouteWindDir));
  for (WindSlot& s : w.windSlots) s = {w.speed, w.direction};
  return w;
}

}  // namespace kelvane
