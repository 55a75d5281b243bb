// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_SHEAR_SHEARCURVE_H
#define KX_SHEAR_SHEARCURVE_H

#include <cstdint>
#include <vector>

#include "shear/SecantLaw.h"

namespace kx {

/// What became of a curve. The values are the codes of the C contract.
enum class CurveVerdict : std::int32_t { reduced = 0, belowStrength = 1, linear = 2 };

/// Outcome of a reduction. The law is all zeros unless the verdict is `reduced`.
struct ShearReduction {
  CurveVerdict verdict = CurveVerdict::belowStrength;
  SecantLaw law;
  double lowestDegradation = 1.0;  ///< d of the law at the last point used
  double stressDeviation = 0.0;    ///< largest |law - point| in stress at the points' strains
};

/// Reduces a measured shear curve to a secant law.
///
/// Points in any order; those with a number that is not finite or a zero are dropped, and so is
/// everything after the first point (by strain) that reaches the strength, or after the peak of a
/// curve that does not. A strength that is not a positive number is replaced by the peak.
/// - `belowStrength`: no usable point, or the peak is below 0.98 of the strength;
/// - `linear`: fewer than three points, or the secant modulus never falls below 0.98 of G0,
///   or stresses so near the ends of the range of numbers that the law lies beyond it.
///
/// G0 is the slope through the origin of the points up to a quarter of the strength (at least the
/// first two). Threshold and asymptote minimise the sum of squared strain deviations; where that
/// leaves a point further than 2 % of the peak away in stress (a sharp knee followed by a plateau),
/// they minimise the stress deviations instead, if this brings the worst point closer.
/// Of the secant and the tangent form, the secant one is never far off: 1.3 % of the largest strain
/// on curves of the cubic law of hahn1973, 2.5 % on curves that saturate.
ShearReduction reduceShearCurve(const std::vector<ShearPoint>& points, double strength);

}  // namespace kx

#endif
