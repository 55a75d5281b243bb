// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_DAMAGE_DAMAGESTATE_H
#define KX_WEAVE_DAMAGE_DAMAGESTATE_H

#include <array>
#include <cstdint>

#include "elastic/Properties.h"
#include "lamina/Concentration.h"
#include "weave/model/WeaveModel.h"

namespace kx {

/// What has failed in a woven ply. Pocket: 0 intact, 1 failed; tows: 0 intact, 1 matrix failed, 2
/// matrix and fiber failed. Other numbers count as the nearest of these.
struct DamageCodes {
  std::int32_t pocket = 0;
  std::int32_t fill = 0;
  std::int32_t warp = 0;
};

/// Factors on all moduli of a failed phase. A factor of 0 or less, or that is not a number, is not
/// given, and 0.1 (matrix) or 0.01 (fiber) stands in; factors below 1e-4 count as 1e-4, which
/// bounds the time of a solve, those above 1 as 1.
struct DegradationFactors {
  double fiber = 0.0;
  double matrix = 0.0;
};

/// A woven ply in one damage state: the constants of all its parts and the concentrations that lead
/// from the ply to the tows and from the tows to fiber and matrix.
struct DamageState {
  Properties composite;  ///< composite axes
  Properties pocket;
  Properties fill, warp;  ///< tow axes, as all below
  Properties fillFiber, fillMatrix;
  Properties warpFiber, warpMatrix;

  /// Composite axes, in terms of the ply's strain and stress; see cellResponse().
  Concentration inPocket, inFill, inWarp, inInterface;
  /// Tow axes, in terms of the tow's strain and stress.
  Concentration fiberInFill, matrixInFill;
  Concentration fiberInWarp, matrixInWarp;

  bool isConverged = true;  ///< false: fields of the cell did not reach their tolerance
};

/// True when the fields converged, all constants are admissible and all concentrations finite: they
/// are not where the materials lie near the ends of the range of numbers.
bool isAdmissible(const DamageState& state) noexcept;

/// Homogenises a woven ply in a damage state. A failed phase keeps its Poisson's ratios and
/// expansions. The description must be sensible, fiber and matrix admissible.
DamageState damageState(WeaveModel& model,
                        const WeaveDescription& weave,
                        const TransverselyIsotropic& fiber,
                        const TransverselyIsotropic& matrix,
                        const DamageCodes& codes,
                        const DegradationFactors& factors);

}  // namespace kx

#endif
