// SPDX-License-Identifier: BSD-3-Clause
#include "weave/model/WeaveDescription.h"

#include <algorithm>
#include <cmath>

#include "lamina/UnidirectionalLamina.h"

namespace kx {

namespace {

bool isFraction(const double value) {
  return value > 0.0 && value < 1.0;
}

}  // namespace

bool WeaveDescription::isSensible() const {
  constexpr double kFull = 1.0 - 1e-9;  // less than a deck's digits, more than a sum's rounding
  return InterlacingPattern::ofHarness(harness).has_value() && isFraction(fillFraction) &&
         isFraction(warpFraction) && isFraction(fiberFraction) &&
         fillFraction + warpFraction < kFull;
}

std::vector<CellResolution> WeaveDescription::grids() const {
  if (resolution.perTow > 0) {
    return {resolution};
  }
  return {kFineGrid, kCoarseGrid};
}

UnitCell WeaveDescription::unitCell(const CellResolution& grid) const {
  const InterlacingPattern pattern = *InterlacingPattern::ofHarness(harness);
  const int tows = pattern.tows();
  const double thickness =
      thicknessOverPitch > 0.0 ? thicknessOverPitch : WeaveGeometry::defaultThickness(tows);
  return {WeaveGeometry(pattern, fillFraction, warpFraction, thickness), grid};
}

std::array<TransverselyIsotropic, kCellPhases> phasesOf(const WeaveConstituents& constituents,
                                                        const double fiberFraction) {
  return {constituents.pocket,
          homogenise(constituents.fillFiber, constituents.fillMatrix, fiberFraction).effective,
          homogenise(constituents.warpFiber, constituents.warpMatrix, fiberFraction).effective};
}

CellConstituents cellConstituents(const WeaveDescription& weave, const WeaveConstituents& given) {
  CellConstituents result;
  const auto phases = phasesOf(given, weave.fiberFraction);
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    result.phases[r].c = stiffness(phases[r]);
    result.phases[r].beta = result.phases[r].c * expansion(properties(phases[r]));
  }
  result.hasThermalStress =
      std::all_of(result.phases.begin(), result.phases.end(), [](const PhaseStiffness& phase) {
        return std::isfinite(phase.beta.squaredNorm());
      });
  if (!result.hasThermalStress) {
    for (PhaseStiffness& phase : result.phases) {
      phase.beta.setZero();
    }
  }
  return result;
}

}  // namespace kx
