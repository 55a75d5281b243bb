// SPDX-License-Identifier: BSD-3-Clause
#include "weave/cell/UnitCell.h"

#include <algorithm>
#include <optional>

namespace kx {

namespace {

// Of a voxel's height: a sliver of this size is rounding of the tow's surface against the voxel's
// face.
constexpr double kSliver = 1e-9;

}  // namespace

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

Frame UnitCell::interfaceFrame(const WeaveColumn& column, const int k) const {
  const double floor = k * shape_.h3 - geometry_.thickness() / 2;
  Eigen::Vector2d slopes = Eigen::Vector2d::Zero();
  int surfaces = 0;
  // Surfaces on a face of the voxel do not divide it; rounding must not decide.
  const double margin = kSliver * shape_.h3;
  const auto meet = [&](const double height, const double along1, const double along2) {
    if (height > floor + margin && height < floor + shape_.h3 - margin) {
      slopes += Eigen::Vector2d(along1, along2);
      ++surfaces;
    }
  };
  if (column.fill.length() > 0.0) {
    meet(column.fill.lower, column.fillSlope, -column.fillFlank);
    meet(column.fill.upper, column.fillSlope, column.fillFlank);
  }
  if (column.warp.length() > 0.0) {
    meet(column.warp.lower, -column.warpFlank, column.warpSlope);
    meet(column.warp.upper, column.warpFlank, column.warpSlope);
  }
  slopes /= std::max(1, surfaces);
  const Eigen::Vector3d normal = Eigen::Vector3d(-slopes(0), -slopes(1), 1.0).normalized();
  const Eigen::Vector3d first = Eigen::Vector3d(normal(2), 0.0, -normal(0)).normalized();
  Frame frame;
  frame << first.transpose(), normal.cross(first).transpose(), normal.transpose();
  return frame;
}

std::array<double, kCellPhases> UnitCell::fractions(const WeaveColumn& column, const int k) const {
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
