// SPDX-License-Identifier: BSD-3-Clause
// The contract's functions for the fatigue of plain weaves.

#include <cmath>
#include <cstring>

#include <Eigen/Core>

#include "contract/Arguments.h"
#include "contract/EngineState.h"
#include "fatigue/PlainWeaveFatigue.h"
#include "lamcraft/kxdriver.h"

namespace {

kx::Matrix6 stressConcentration(const double* block, std::size_t slot) {
  return Eigen::Map<const kx::Matrix6>(block + KX_SLOT_LENGTH * slot + KX_SLOT_STRESS);
}

std::int32_t stateNumber(const void* record) noexcept {
  std::int32_t number = 0;
  std::memcpy(&number, record, sizeof number);
  return number;
}

/// PS11K PS11U NS11K NS11U S12K S12U.
kx::WeaveStrengths weaveStrengths(const double* values) {
  return {{values[0], values[2]}, {values[1], values[3]}, values[4], values[5]};
}

/// Root mean square over the tests of both directions.
double pooled(double one, std::size_t oneCount, double other, std::size_t otherCount) {
  const auto n = static_cast<double>(oneCount);
  const auto k = static_cast<double>(otherCount);
  return n + k > 0.0 ? std::sqrt((n * one * one + k * other * other) / (n + k)) : 0.0;
}

}  // namespace

void FAT_DCMP_PROPS(const double* /*composite*/,
                    const double* /*matrixPocket*/,
                    const double* /*fill*/,
                    const double* /*warp*/,
                    const double* /*fillFiber*/,
                    const double* /*fillMatrix*/,
                    const double* /*warpFiber*/,
                    const double* /*warpMatrix*/,
                    const double* unitCellBlock,
                    const double* fillBlock,
                    const double* warpBlock,
                    const void* record) {
  if (!kx::areGiven(unitCellBlock, fillBlock, warpBlock) || record == nullptr ||
      stateNumber(record) != KX_STATE_INTACT) {
    return;
  }
  kx::guarded({}, [&] {
    kx::EngineState::instance().noteIntactWeave({stressConcentration(unitCellBlock, KX_CELL_FILL),
                                                 stressConcentration(unitCellBlock, KX_CELL_WARP),
                                                 stressConcentration(fillBlock, KX_TOW_MATRIX),
                                                 stressConcentration(warpBlock, KX_TOW_MATRIX)});
  });
}

void FATIGUE_PW_OPTI(double* row1,
                     double* row2,
                     double* row3,
                     double* row4,
                     const int32_t* snCount,
                     const double* sn,
                     const double* temperature,
                     const double* strengths,
                     const double* /*towFractions*/,
                     const double* /*fiberFractionInTow*/,
                     double* errors,
                     int32_t* iterations) {
  if (!kx::areGiven(row1, row2, row3, row4, temperature, strengths, errors) ||
      iterations == nullptr) {
    return;
  }
  kx::guarded({{row1, 6}, {row2, 6}, {row3, 6}, {row4, 6}, {errors + 4, 2}}, [&] {
    errors[4] = kx::kNoFitError;
    errors[5] = kx::kNoFitError;
    *iterations = 0;
    const auto weave = kx::EngineState::instance().takeIntactWeave();
    const auto fit = kx::fitPlainWeaveFatigue(kx::snRecordsFrom(sn, snCount),
                                              *temperature,
                                              weaveStrengths(strengths),
                                              weave.value_or(kx::WeaveDecomposition{}));
    kx::copyTo(fit.longitudinal.constants, row1);
    kx::copyTo(fit.transverse.constants, row2);
    kx::copyTo(fit.longitudinal.standardErrors, row3);
    kx::copyTo(fit.transverse.standardErrors, row4);
    if (fit.longitudinal.isFitted() || fit.transverse.isFitted()) {
      const auto& along = fit.longitudinal;
      const auto& across = fit.transverse;
      errors[4] = pooled(along.initialError, along.tests, across.initialError, across.tests);
      errors[5] = pooled(along.finalError, along.tests, across.finalError, across.tests);
      *iterations = along.iterations + across.iterations;
    }
  });
}
