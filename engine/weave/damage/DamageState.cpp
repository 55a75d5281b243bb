// SPDX-License-Identifier: BSD-3-Clause
#include "weave/damage/DamageState.h"

#include <algorithm>

#include "lamina/UnidirectionalLamina.h"

namespace kx {

namespace {

constexpr double kMatrixFactor = 0.1;  // where none is given
constexpr double kFiberFactor = 0.01;
constexpr double kSmallestFactor = 1e-4;

double factorOr(const double given, const double standIn) {
  return given > 0.0 ? std::clamp(given, kSmallestFactor, 1.0) : standIn;
}

TransverselyIsotropic softened(TransverselyIsotropic solid, const double factor) {
  solid.e11 *= factor;
  solid.e22 *= factor;
  solid.g12 *= factor;
  return solid;
}

struct Tow {
  TransverselyIsotropic fiber;
  TransverselyIsotropic matrix;
};

Tow towIn(const std::int32_t code,
          const TransverselyIsotropic& fiber,
          const TransverselyIsotropic& matrix,
          const DegradationFactors& factors) {
  Tow tow{fiber, matrix};
  if (code >= 1) {
    tow.matrix = softened(matrix, factors.matrix);
  }
  if (code >= 2) {
    tow.fiber = softened(fiber, factors.fiber);
  }
  return tow;
}

bool isFinite(const Concentration& phase) noexcept {
  return phase.strain.allFinite() && phase.thermalStrain.allFinite() && phase.stress.allFinite() &&
         phase.thermalStress.allFinite();
}

}  // namespace

bool isAdmissible(const DamageState& state) noexcept {
  const auto admissible = [](const auto&... sets) { return (... && isAdmissible(sets)); };
  const auto finite = [](const auto&... phases) { return (... && isFinite(phases)); };
  return state.isConverged && admissible(state.composite, state.pocket, state.fill, state.warp) &&
         admissible(state.fillFiber, state.fillMatrix, state.warpFiber, state.warpMatrix) &&
         finite(state.inPocket, state.inFill, state.inWarp, state.inInterface) &&
         finite(state.fiberInFill, state.matrixInFill, state.fiberInWarp, state.matrixInWarp);
}

DamageState damageState(WeaveModel& model,
                        const WeaveDescription& weave,
                        const TransverselyIsotropic& fiber,
                        const TransverselyIsotropic& matrix,
                        const DamageCodes& codes,
                        const DegradationFactors& factors) {
  const DegradationFactors given{factorOr(factors.fiber, kFiberFactor),
                                 factorOr(factors.matrix, kMatrixFactor)};
  const Tow fill = towIn(codes.fill, fiber, matrix, given);
  const Tow warp = towIn(codes.warp, fiber, matrix, given);
  const auto pocket = codes.pocket >= 1 ? softened(matrix, given.matrix) : matrix;
  const CellResponse response =
      model.response(weave, {pocket, fill.fiber, fill.matrix, warp.fiber, warp.matrix});
  const auto inFill = homogenise(fill.fiber, fill.matrix, weave.fiberFraction);
  const auto inWarp = homogenise(warp.fiber, warp.matrix, weave.fiberFraction);
  DamageState state;
  state.isConverged = response.isConverged;
  state.composite = propertiesFromCompliance(response.compliance, response.expansion);
  state.pocket = properties(pocket);
  state.fill = properties(inFill.effective);
  state.warp = properties(inWarp.effective);
  state.fillFiber = properties(fill.fiber);
  state.fillMatrix = properties(fill.matrix);
  state.warpFiber = properties(warp.fiber);
  state.warpMatrix = properties(warp.matrix);
  state.inPocket = response.phases[kPocket];
  state.inFill = response.phases[kFill];
  state.inWarp = response.phases[kWarp];
  state.inInterface = response.interface;
  state.fiberInFill = concentration(fill.fiber, inFill.fiber, inFill.effective);
  state.matrixInFill = concentration(fill.matrix, inFill.matrix, inFill.effective);
  state.fiberInWarp = concentration(warp.fiber, inWarp.fiber, inWarp.effective);
  state.matrixInWarp = concentration(warp.matrix, inWarp.matrix, inWarp.effective);
  return state;
}

}  // namespace kx
