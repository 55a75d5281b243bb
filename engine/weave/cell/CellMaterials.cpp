// SPDX-License-Identifier: BSD-3-Clause
#include "weave/cell/CellMaterials.h"

#include <utility>

namespace kx {

namespace {

InclinedTow incline(const PhaseStiffness& tow, const Frame& frame) {
  InclinedTow result;
  result.toLocal = strainTransform(frame);
  result.composite.c = rotateStiffness(tow.c, result.toLocal);
  result.composite.beta = rotateStress(tow.beta, result.toLocal);
  return result;
}

}  // namespace

bool isPure(const std::array<double, kCellPhases>& fractions, std::size_t& phase) {
  for (phase = 0; phase < kCellPhases; ++phase) {
    if (fractions[phase] == 1.0) {
      return true;
    }
  }
  return false;
}

CellMaterials::CellMaterials(const UnitCell& cell, CellConstituents constituents)
    : cell_(cell), constituents_(std::move(constituents)), field_(cell.shape()) {
  inclineTows();
  fillVoxels();
}

std::size_t CellMaterials::fillIndex(const int i, const int j) const {
  const int tow = j / cell_.resolution().perTow;
  return static_cast<std::size_t>(tow) * static_cast<std::size_t>(cell_.shape().n1) +
         static_cast<std::size_t>(i);
}

std::size_t CellMaterials::warpIndex(const int i, const int j) const {
  const int tow = i / cell_.resolution().perTow;
  return static_cast<std::size_t>(tow) * static_cast<std::size_t>(cell_.shape().n2) +
         static_cast<std::size_t>(j);
}

const InclinedTow& CellMaterials::fill(const int i, const int j) const {
  return fill_[fillIndex(i, j)];
}

const InclinedTow& CellMaterials::warp(const int i, const int j) const {
  return warp_[warpIndex(i, j)];
}

std::array<const PhaseStiffness*, kCellPhases> CellMaterials::phasesAt(const int i,
                                                                       const int j) const {
  return {&constituents_.phases[kPocket], &fill(i, j).composite, &warp(i, j).composite};
}

void CellMaterials::inclineTows() {
  const int perTow = cell_.resolution().perTow;
  for (int j = 0; j < cell_.shape().n2; j += perTow) {
    for (int i = 0; i < cell_.shape().n1; ++i) {
      const double slope = cell_.column(i, j).fillSlope;
      fill_.push_back(incline(constituents_.phases[kFill], fillFrame(slope)));
    }
  }
  for (int i = 0; i < cell_.shape().n1; i += perTow) {
    for (int j = 0; j < cell_.shape().n2; ++j) {
      const double slope = cell_.column(i, j).warpSlope;
      warp_.push_back(incline(constituents_.phases[kWarp], warpFrame(slope)));
    }
  }
}

void CellMaterials::fillVoxels() {
  const auto add = [this](const PhaseStiffness& phase) {
    return field_.addMaterial(phase.c, phase.beta);
  };
  const std::int32_t pocket = add(constituents_.phases[kPocket]);
  for (const InclinedTow& tow : fill_) {
    add(tow.composite);
  }
  for (const InclinedTow& tow : warp_) {
    add(tow.composite);
  }
  for (int i = 0; i < cell_.shape().n1; ++i) {
    for (int j = 0; j < cell_.shape().n2; ++j) {
      const WeaveColumn& column = cell_.column(i, j);
      const auto fill = pocket + 1 + static_cast<std::int32_t>(fillIndex(i, j));
      const auto warp = pocket + 1 + static_cast<std::int32_t>(fill_.size() + warpIndex(i, j));
      const std::array<std::int32_t, kCellPhases> pure{pocket, fill, warp};
      for (int k = 0; k < cell_.shape().n3; ++k) {
        const auto fractions = cell_.fractions(column, k);
        std::size_t phase = 0;
        const bool single = isPure(fractions, phase);
        field_.addVoxel(
            single ? pure[phase]
                   : add(CompositeVoxel(fractions, phasesAt(i, j), cell_.interfaceFrame(column, k))
                             .overall()));
      }
    }
  }
}

}  // namespace kx
