// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_SHEAR_SECANTFIT_H
#define KX_SHEAR_SECANTFIT_H

#include <vector>

#include "shear/SecantLaw.h"

namespace kx {

/// Threshold and asymptote of the secant law through the points of a rising curve, relative to its
/// peak and its largest strain (all within (0, 1]); `slope`: G0 in the same terms, > 0.
///
/// Minimises the sum of squared strain deviations; where that leaves a point further than 0.02 away
/// in stress, the stress deviations instead, if this brings the worst point closer. The threshold
/// lies in [1e-6, 0.98), the asymptote above 1 by a factor of exp(-6) to exp(6).
SecantLaw fitSecantLaw(const std::vector<ShearPoint>& points, double slope);

/// Largest |law - point| in stress at the points' strains.
double largestStressDeviation(const SecantLaw& law, const std::vector<ShearPoint>& points) noexcept;

}  // namespace kx

#endif
