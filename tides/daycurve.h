// Height curves of a port for a day: the simplified harmonic method in the
// numbered lines of its hand form, and the search for high and low water.
//
// One run covers 50 hours from 00:00 of the day before the wanted day, in
// steps of ten minutes: the first day is lead-in, and the wanted day is cut
// out of the run from sample 145 (t = 24 h). With summer time the cut starts
// at sample 139, one hour earlier, so that the first sample of the day is
// 23:00 of the previous day in the port's standard time and reads as 00:00.
//
// Sample arrays are numbered from 1 as the program numbers them (sample 1 is
// t = 0); element 0 is not used.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tides/harmonicfile.h"

namespace kelvane {

inline constexpr int kCurveCapacity = 641;      // entries of a port curve array
inline constexpr int kRefDaySamples = 148;      // samples copied for a reference day
inline constexpr int kTurningSearchSamples = 146;
inline constexpr int kMaxTurningPoints = 15;

// PortDayCurve: one day of samples, time in hours of the day and height in
// metres above chart datum, samples 1..count.
struct DayCurve {
  std::array<float, kCurveCapacity + 1> time{};
  std::array<float, kCurveCapacity + 1> height{};
  int count = 0;
};

// The month whose MonthM2 and dZ0 serve day-of-year `day` in the reference
// port curves: 0-31 January, 32-59 February, 60-90 March, 91-120 April,
// 121-151 May, 152-182 June, 183-212 July, 213-243 August, 244-273
// September, 274-304 October, 305-334 November, 335-366 December. These
// bands sit a few days off the calendar months and are kept so. 0 for a day
// outside 0..366 (the record's own M2 Hm and no change of mean level).
int SeasonalMonth(int day);

// The reference-port day curve: 148 samples of day `day` of `year` (the day
// may be 0 or 367, as the day before 1 January and the day after 31
// December are asked for). Seasonal values by SeasonalMonth.
DayCurve RefPortDayCurve(const HarmonicPortRecord& port, std::int16_t year, std::int16_t day, bool summerTime);

// The terms of the sum, one layer each, for the tide window's layer view.
enum Layer {
  kLayerTotal = 0,
  kLayerMeanLevel,
  kLayerM2,
  kLayerS2,
  kLayerK1,
  kLayerO1,
  kLayerQuarterDiurnal,
  kLayerSixthDiurnal,
  kLayerCount
};

// The tide window's day: samples 1..count of time (hours from the day's
// local midnight, with the summer hour when it is on) and, per layer, the
// height in metres. 148 samples, or 154 under summer time (run samples 139
// to 292).
struct DayPrediction {
  int count = 0;
  std::array<float, kCurveCapacity + 1> time{};
  std::array<std::array<float, kCurveCapacity + 1>, kLayerCount> layer{};
  const std::array<float, kCurveCapacity + 1>& height() const { return layer[kLayerTotal]; }
};

// PredictHeights: the same method for a port of an area file. `month` (1 to
// 12, from the calendar date) picks MonthM2 and dZ0; any other month keeps
// the record's M2 Hm with no change of mean level. `day` is the day of the
// year.
DayPrediction PredictHeights(const HarmonicPortRecord& port, std::int16_t year, std::int16_t day, int month,
                             bool summerTime);

struct TurningPoint {
  float time = 0;    // hours
  float height = 0;  // metres
  bool high = false; // high water when true, low water when false
};

struct TurningPoints {
  std::vector<TurningPoint> points;  // in time order, at most 15
  float range = 0;                   // largest less smallest height of the day, metres
};

// High and low waters over samples 1..n of a day (n = 146 in every caller).
// Sample i+1 for i = 2 .. n-2 is a turning point when strictly above or
// strictly below both neighbours; at most 15 are kept. If the last one kept
// lies later than 24.0844 h it is dropped. The range is taken over samples
// 1..n-1. Arrays are numbered from 1 and must hold n+1 elements.
TurningPoints FindTurningPoints(const float* time, const float* height, int n = kTurningSearchSamples);

}  // namespace kelvane
