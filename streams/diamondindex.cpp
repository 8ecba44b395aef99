#include <algorithm>
#include <cmath>

#include "core/positions.h"
#include "streams/streamcaches.h"

namespace kelvane {
namespace {

// Margins on the lower bound of a cell: relative and absolute (miles).
// Single-precision ranges are good to a few parts in ten million; these
// margins are a thousand times wider.
constexpr double kRelativeMargin = 1e-4;
constexpr double kAbsoluteMargin = 0.01;
// A grid wider than this in cells is not worth keeping; the scan serves.
constexpr long kMaxCells = 4'000'000;

}  // namespace

void DiamondIndex::Build(const std::vector<Diamond>& diamonds) {
  built_ = true;
  usable_ = false;
  count_ = diamonds.size();
  source_ = diamonds.data();
  cells_.clear();
  if (diamonds.empty()) return;
  double minLat = 1e9, maxLat = -1e9, minLon = 1e9, maxLon = -1e9;
  maxAbsLat_ = 0;
  for (const Diamond& d : diamonds) {
    if (!std::isfinite(d.lat) || !std::isfinite(d.Lon)) return;  // the scan copes with anything
    minLat = std::min(minLat, double(d.lat));
    maxLat = std::max(maxLat, double(d.lat));
    minLon = std::min(minLon, double(d.Lon));
    maxLon = std::max(maxLon, double(d.Lon));
    maxAbsLat_ = std::max(maxAbsLat_, std::fabs(double(d.lat)));
  }
  if (maxAbsLat_ >= 89.0) return;
  // About one diamond a cell over the area they cover, between a minute and
  // a quarter of a degree: a query then evaluates the few diamonds of the
  // cells around it rather than the crowd of a wide cell.
  cell_ = std::clamp(std::sqrt((maxLat - minLat) * (maxLon - minLon) / static_cast<double>(diamonds.size())),
                     1.0 / 60.0, 0.25);
  lat0_ = std::floor(minLat / cell_) * cell_;
  lon0_ = std::floor(minLon / cell_) * cell_;
  rows_ = static_cast<int>(std::floor((maxLat - lat0_) / cell_)) + 1;
  cols_ = static_cast<int>(std::floor((maxLon - lon0_) / cell_)) + 1;
  if (static_cast<long>(rows_) * cols_ > kMaxCells) return;
  cosAtMax_ = std::cos(DegToRad(maxAbsLat_ + cell_));
  diamondCos_.resize(diamonds.size());
  for (std::size_t i = 0; i < diamonds.size(); ++i) diamondCos_[i] = std::cos(DegToRad(std::fabs(double(diamonds[i].lat))));
  // The cosine of the higher latitude edge of each row of cells.
  rowCos_.resize(static_cast<std::size_t>(rows_));
  for (int r = 0; r < rows_; ++r) {
    const double la0 = lat0_ + r * cell_, la1 = la0 + cell_;
    rowCos_[static_cast<std::size_t>(r)] = std::cos(DegToRad(std::max(std::fabs(la0), std::fabs(la1))));
  }
  cells_.assign(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols_), {});
  for (std::size_t i = 0; i < diamonds.size(); ++i) {
    int r = std::clamp(static_cast<int>(std::floor((diamonds[i].lat - lat0_) / cell_)), 0, rows_ - 1);
    int c = std::clamp(static_cast<int>(std::floor((diamonds[i].Lon - lon0_) / cell_)), 0, cols_ - 1);
    cells_[static_cast<std::size_t>(r) * static_cast<std::size_t>(cols_) + static_cast<std::size_t>(c)].push_back(
        static_cast<int>(i));
  }
  usable_ = true;
}

NearestDiamond DiamondIndex::Nearest(const std::vector<Diamond>& diamonds, float lat, float lon, float reach) const {
  NearestDiamond best;
  auto consider = [&](int i) {
    const Diamond& d = diamonds[static_cast<std::size_t>(i)];
    // The range is never below the difference of latitude in minutes: a
    // diamond already further north or south than the best range cannot
    // win, not even a tie.
    if (std::fabs(lat - d.lat) * 60.0f > best.range) return;
    const float r = PlaneSailingRange(lat, lon, d.lat, d.Lon);
    if (r < best.range || (r == best.range && best.index >= 0 && i < best.index)) {
      best.range = r;
      best.index = i;
    }
  };
  if (!usable_ || !std::isfinite(lat) || !std::isfinite(lon) || std::fabs(lat) >= 89.0) {
    for (int i = 0; i < static_cast<int>(diamonds.size()); ++i) consider(i);
    return best;
  }
  const double q = lat, p = lon;
  const double cosMin =
      std::fabs(q) <= maxAbsLat_ ? cosAtMax_ : std::cos(DegToRad(std::max(std::fabs(q), maxAbsLat_) + cell_));
  const int qr = static_cast<int>(std::floor((q - lat0_) / cell_));
  const int qc = static_cast<int>(std::floor((p - lon0_) / cell_));
  // No more than the cosine of the query's latitude: that of its row's
  // higher edge, or its own outside the grid.
  const double cosQuery =
      qr >= 0 && qr < rows_ ? rowCos_[static_cast<std::size_t>(qr)] : std::cos(DegToRad(std::fabs(q)));
  // Furthest ring that can still touch the grid.
  const int maxRing = std::max({std::abs(qr), std::abs(qc), std::abs(qr - (rows_ - 1)), std::abs(qc - (cols_ - 1))});
  auto limit = [&] { return std::min(double(best.range), double(reach)); };
  auto cellBound = [&](int r, int c) {
    const double la0 = lat0_ + r * cell_, la1 = la0 + cell_;
    const double lo0 = lon0_ + c * cell_, lo1 = lo0 + cell_;
    const double dLat = std::max({0.0, la0 - q, q - la1});
    const double dLon = std::max({0.0, lo0 - p, p - lo1});
    // The cosine of the highest latitude involved: the lesser of the
    // query's and the row's (the cosine falls towards the pole).
    const double cosF = std::min(cosQuery, rowCos_[static_cast<std::size_t>(r)]);
    const double x = dLon * 60.0 * cosF, y = dLat * 60.0;
    return std::sqrt(x * x + y * y) * (1.0 - kRelativeMargin) - kAbsoluteMargin;
  };
  // The same lower bound for one diamond: the mean latitude lies between
  // the query's and the diamond's, so its cosine is at least the lesser of
  // theirs. A diamond whose bound exceeds the best range is not asked.
  auto beyondBest = [&](int i) {
    const Diamond& d = diamonds[static_cast<std::size_t>(i)];
    const double y = std::fabs(q - double(d.lat)) * 60.0;
    const double x = std::fabs(p - double(d.Lon)) * 60.0 * std::min(cosQuery, diamondCos_[static_cast<std::size_t>(i)]);
    return std::sqrt(x * x + y * y) * (1.0 - kRelativeMargin) - kAbsoluteMargin > double(best.range);
  };
  for (int ring = 0; ring <= maxRing; ++ring) {
    const double ringBound = std::max(0, ring - 1) * cell_ * 60.0 * cosMin * (1.0 - kRelativeMargin) - kAbsoluteMargin;
    if (ringBound > limit()) break;
    for (int r = qr - ring; r <= qr + ring; ++r) {
      if (r < 0 || r >= rows_) continue;
      const bool edgeRow = (r == qr - ring || r == qr + ring);
      for (int c = qc - ring; c <= qc + ring; c += (edgeRow ? 1 : 2 * ring)) {
        if (c >= 0 && c < cols_) {
          const auto& cell = cells_[static_cast<std::size_t>(r) * static_cast<std::size_t>(cols_) + static_cast<std::size_t>(c)];
          if (!cell.empty() && cellBound(r, c) <= limit())
            for (int i : cell)
              if (!beyondBest(i)) consider(i);
        }
        if (ring == 0) break;
      }
    }
  }
  return best;
}

}  // namespace kelvane
