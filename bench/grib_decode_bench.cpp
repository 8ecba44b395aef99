// Decoding a large GRIB edition 1 file: DecodeGrib's walk over 10 MB of
// wind messages, beside ecCodes' own decode of the same bytes (when the
// library is there: it is a yardstick here, never a part of the program).
// A wide GRIB-by-mail reply runs to a few megabytes; the import must not
// keep the skipper waiting, and the two decodes must give the same numbers.
//
// The file is built here, message by message, as a weather service writes
// it: U and V at 10 m on a 0.25 degree lat/lon grid of 101 x 101 points,
// 12-bit simple packing with one decimal (D = 1, E = 0), 3-hourly steps.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "wind/grib.h"

#ifdef KELVANE_HAVE_ECCODES
#include <eccodes.h>
#endif

namespace {

using Bytes = std::vector<std::uint8_t>;

void Put(Bytes& b, std::uint32_t value, int count) {
  for (int i = count - 1; i >= 0; --i) b.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}
// Sign and magnitude, the sign in the top bit.
void PutSigned(Bytes& b, std::int32_t value, int count) {
  std::uint32_t magnitude = static_cast<std::uint32_t>(value < 0 ? -value : value);
  if (value < 0) magnitude |= 1u << (8 * count - 1);
  Put(b, magnitude, count);
}
// IBM single precision: sign, 7-bit base-16 exponent biased by 64, 24-bit fraction.
void PutIbm(Bytes& b, double value) {
  std::uint32_t sign = value < 0 ? 0x80000000u : 0;
  double m = std::fabs(value);
  std::uint32_t word = sign;
  if (m > 0) {
    int exponent = 64;
    while (m >= 1.0) { m /= 16.0; ++exponent; }
    while (m < 1.0 / 16.0) { m *= 16.0; --exponent; }
    word |= static_cast<std::uint32_t>(exponent) << 24 | static_cast<std::uint32_t>(m * 16777216.0);
  }
  Put(b, word, 4);
}

constexpr int kNi = 101, kNj = 101, kBits = 12;

Bytes Message(int parameter, int step, int seed) {
  Bytes pds;
  Put(pds, 28, 3);
  for (int v : {3, 7, 81, 255, 128, parameter, 105}) pds.push_back(static_cast<std::uint8_t>(v));
  Put(pds, 10, 2);  // 10 m
  for (int v : {26, 11, 25, 12, 0, 1, step, 0, 0}) pds.push_back(static_cast<std::uint8_t>(v));
  Put(pds, 0, 2);
  for (int v : {0, 21, 0}) pds.push_back(static_cast<std::uint8_t>(v));
  PutSigned(pds, 1, 2);  // D = 1

  Bytes gds;
  Put(gds, 32, 3);
  for (int v : {0, 255, 0}) gds.push_back(static_cast<std::uint8_t>(v));
  Put(gds, kNi, 2);
  Put(gds, kNj, 2);
  PutSigned(gds, 60000, 3);   // La1 60N
  PutSigned(gds, -20000, 3);  // Lo1 20W
  gds.push_back(128);
  PutSigned(gds, 35000, 3);   // La2 35N
  PutSigned(gds, 5000, 3);    // Lo2 5E
  Put(gds, 250, 2);
  Put(gds, 250, 2);
  gds.push_back(0);
  Put(gds, 0, 4);

  // Winds of -30 .. 30 m/s in tenths: R = -300, X = value - R.
  const int count = kNi * kNj;
  const std::size_t dataBytes = (static_cast<std::size_t>(count) * kBits + 7) / 8;
  std::size_t length = 11 + dataBytes;
  if (length % 2) ++length;
  const int unused = static_cast<int>(8 * (length - 11) - static_cast<std::size_t>(count) * kBits);
  Bytes bds;
  Put(bds, static_cast<std::uint32_t>(length), 3);
  bds.push_back(static_cast<std::uint8_t>(unused));
  PutSigned(bds, 0, 2);
  PutIbm(bds, -300.0);
  bds.push_back(kBits);
  std::uint64_t acc = 0;
  int held = 0;
  for (int k = 0; k < count; ++k) {
    const double wave = std::sin((k + seed) * 0.013) * std::cos(k * 0.0071 + seed);
    const std::uint32_t x = static_cast<std::uint32_t>(std::lround(300 + 299 * wave));
    acc = acc << kBits | x;
    held += kBits;
    while (held >= 8) {
      held -= 8;
      bds.push_back(static_cast<std::uint8_t>(acc >> held));
    }
  }
  if (held > 0) bds.push_back(static_cast<std::uint8_t>(acc << (8 - held)));
  bds.resize(length, 0);

  Bytes m = {'G', 'R', 'I', 'B'};
  Put(m, static_cast<std::uint32_t>(8 + pds.size() + gds.size() + bds.size() + 4), 3);
  m.push_back(1);
  m.insert(m.end(), pds.begin(), pds.end());
  m.insert(m.end(), gds.begin(), gds.end());
  m.insert(m.end(), bds.begin(), bds.end());
  for (char c : {'7', '7', '7', '7'}) m.push_back(static_cast<std::uint8_t>(c));
  return m;
}

// About 10 MB: U and V pairs, step after step.
const Bytes& TenMegabytes() {
  static const Bytes file = [] {
    Bytes f;
    for (int n = 0; f.size() < 10u * 1000 * 1000; ++n) {
      Bytes u = Message(33, (n % 40) * 3, n);
      Bytes v = Message(34, (n % 40) * 3, n + 7);
      f.insert(f.end(), u.begin(), u.end());
      f.insert(f.end(), v.begin(), v.end());
    }
    return f;
  }();
  return file;
}

void BM_DecodeGrib(benchmark::State& state) {
  const Bytes& file = TenMegabytes();
  std::size_t messages = 0;
  for (auto _ : state) {
    kelvane::GribReadResult read = kelvane::DecodeGrib(file);
    if (!read.ok) state.SkipWithError(read.message.c_str());
    messages = read.GribRecords.size();
    benchmark::DoNotOptimize(read);
  }
  state.counters["messages"] = static_cast<double>(messages);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}
BENCHMARK(BM_DecodeGrib)->Unit(benchmark::kMillisecond);

#ifdef KELVANE_HAVE_ECCODES
// ecCodes over the same bytes: a handle on each message in place (no copy),
// the keys the program reads and the values.
void BM_EcCodesDecode(benchmark::State& state) {
  const Bytes& file = TenMegabytes();
  // The same numbers first: the first message's values, point by point.
  {
    kelvane::GribReadResult read = kelvane::DecodeGrib(file);
    const std::size_t length = static_cast<std::size_t>(file[4]) << 16 | file[5] << 8 | file[6];
    codes_handle* h = codes_handle_new_from_message(nullptr, file.data(), length);
    std::size_t size = 0;
    codes_get_size(h, "values", &size);
    std::vector<double> values(size);
    codes_get_double_array(h, "values", values.data(), &size);
    codes_handle_delete(h);
    if (!read.ok || read.GribRecords.empty() || read.GribRecords[0].Values.size() != size) {
      state.SkipWithError("the two decodes disagree on the first message's size");
      return;
    }
    for (std::size_t k = 0; k < size; ++k)
      if (std::fabs(values[k] - read.GribRecords[0].Values[k]) > 1e-4) {
        state.SkipWithError("the two decodes disagree on a value");
        return;
      }
  }
  std::size_t messages = 0;
  std::vector<double> values;
  for (auto _ : state) {
    messages = 0;
    std::size_t at = 0;
    while (at + 8 <= file.size()) {
      const std::size_t length = static_cast<std::size_t>(file[at + 4]) << 16 | file[at + 5] << 8 | file[at + 6];
      codes_handle* h = codes_handle_new_from_message(nullptr, file.data() + at, length);
      long parameter = 0, ni = 0, nj = 0, date = 0, time = 0, p1 = 0;
      double la1 = 0, lo1 = 0, la2 = 0, lo2 = 0;
      codes_get_long(h, "indicatorOfParameter", &parameter);
      codes_get_long(h, "Ni", &ni);
      codes_get_long(h, "Nj", &nj);
      codes_get_long(h, "dataDate", &date);
      codes_get_long(h, "dataTime", &time);
      codes_get_long(h, "P1", &p1);
      codes_get_double(h, "latitudeOfFirstGridPointInDegrees", &la1);
      codes_get_double(h, "longitudeOfFirstGridPointInDegrees", &lo1);
      codes_get_double(h, "latitudeOfLastGridPointInDegrees", &la2);
      codes_get_double(h, "longitudeOfLastGridPointInDegrees", &lo2);
      std::size_t size = 0;
      codes_get_size(h, "values", &size);
      values.resize(size);
      codes_get_double_array(h, "values", values.data(), &size);
      benchmark::DoNotOptimize(values.data());
      codes_handle_delete(h);
      ++messages;
      at += length;
    }
  }
  state.counters["messages"] = static_cast<double>(messages);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}
BENCHMARK(BM_EcCodesDecode)->Unit(benchmark::kMillisecond);
#endif

}  // namespace
