#include "weave/cell/UnitCell.h"

#include <algorithm>
#include <optional>

namespace kx {

// Multiples of small primes in every direction: the transforms are fast.
CellResolution defaultResolution(const int tows) {
  if (tows == 2) {
    return {24, 18};
  }
  return {16, 12};
}

UnitCell::UnitCell(const WeaveGeometry& geometry, const CellResolution& resolution)
    : geometry_(geometry),
      resolution_{resolution.perTow,
                  resolution.throughThickness + resolution.throughThickness % 2} {
  const int tows = geometry.pattern().tows();
  const std::optional<int> step = geometry.pattern().step();
  shape_.n1 = (step ? 1 : tows) * resolution.perTow;
  shape_.n2 = tows * resolution.perTow;
  shape_.shift2 = step.value_or(0) * resolution.perTow;
  shape_.n3 = resolution_.throughThickness;
  shape_.h1 = 1.0 / resolution.perTow;
  shape_.h2 = 1.0 / resolution.perTow;
  shape_.h3 = geometry.thickness() / shape_.n3;
  columns_.reserve(shape_.rows());
  for (int i = 0; i < shape_.n1; ++i) {
    for (int j = 0; j < shape_.n2; ++j) {
      const WeaveColumn next = geometry_.column((i + 0.5) * shape_.h1, (j + 0.5) * shape_.h2);
      phaseFractions_[kFill] += next.fill.length();
      phaseFractions_[kWarp] += next.warp.length();
      columns_.push_back(next);
    }
  }
  const double total = static_cast<double>(shape_.rows()) * geometry.thickness();
  phaseFractions_[kFill] /= total;
  phaseFractions_[kWarp] /= total;
  phaseFractions_[kPocket] = 1.0 - phaseFractions_[kFill] - phaseFractions_[kWarp];
}

const WeaveColumn& UnitCell::column(const int i, const int j) const {
  return columns_[static_cast<std::size_t>(i) * static_cast<std::size_t>(shape_.n2) +
                  static_cast<std::size_t>(j)];
}

double UnitCell::overlap(const Interval& interval, const int k) const {
  const double floor = k * shape_.h3 - geometry_.thickness() / 2;
  const double upper = std::min(interval.upper, floor + shape_.h3);
  const double lower = std::max(interval.lower, floor);
  return std::clamp((upper - lower) / shape_.h3, 0.0, 1.0);
}

std::array<double, kCellPhases> UnitCell::fractions(const WeaveColumn& column, const int k) const {
  // A sliver of this size is rounding of the tow's surface against the voxel's face.
  constexpr double kSliver = 1e-9;
  const auto share = [&](const Interval& tow) {
    const double part = overlap(tow, k);
    return part < kSliver ? 0.0 : (part > 1.0 - kSliver ? 1.0 : part);
  };
  const double fill = share(column.fill);
  const double warp = std::min(share(column.warp), 1.0 - fill);
  const double rest = 1.0 - fill - warp;
  if (rest >= kSliver) {
    return {rest, fill, warp};
  }
  return {0.0, fill, 1.0 - fill};
}

}  // namespace kx
