// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_LAMINAPROBLEM_H
#define KX_FIT_LAMINAPROBLEM_H

#include <array>
#include <cmath>
#include <type_traits>

#include "fit/ConstituentSpace.h"
#include "fit/FitResult.h"
#include "lamina/UnidirectionalLamina.h"

namespace kx {

/// A constant of the composite that a fit aims at, and how much it counts.
struct TargetWeight {
  ElasticConstant constant;
  double weight;
};

/// The weights are a choice of ours, not a fit to any test series: axial Poisson's ratios are taken
/// to scatter about twice, transverse ones (seldom measured at all) four times as much as moduli.
inline constexpr std::array<TargetWeight, 5> kLaminaTargets{{
    {ElasticConstant::e11, 1.0},
    {ElasticConstant::e22, 1.0},
    {ElasticConstant::v12, 0.5},
    {ElasticConstant::v23, 0.25},
    {ElasticConstant::g12, 1.0},
}};

/// Relative deviation ratio - 1, continued by its tangent's logarithm above 2, so that targets in
/// wrong units pull in the right direction without overwhelming the others.
template <class Scalar>
Scalar deviation(const Scalar& ratio) {
  using std::log;
  if (ratio > 2.0) {
    return 1.0 + 2.0 * log(0.5 * ratio);
  }
  return ratio - 1.0;
}

/// The residuals of a unidirectional fit; a problem for BoundedLeastSquares.
template <MatrixSymmetry kSymmetry>
class LaminaProblem {
 public:
  using Space = ConstituentSpace<kSymmetry>;
  using Vector = typename Space::Vector;
  static constexpr int kParameters = Space::kDimension;
  static constexpr int kResiduals = static_cast<int>(kLaminaTargets.size());

  LaminaProblem(const Space& space, const TransverselyIsotropic& target, const double fiberFraction)
      : space_(space), target_(target), fiberFraction_(fiberFraction) {}

  template <class Scalar>
  bool operator()(const Scalar* z, Scalar* residuals) const {
    const auto materials = space_.at(z);
    if constexpr (std::is_same_v<Scalar, double>) {
      if (!space_.holds(materials)) {
        return false;
      }
    }
    const auto effective =
        homogeniseElastic(materials.fiber, materials.matrix, fiberFraction_).effective;
    for (const auto& [constant, weight] : kLaminaTargets) {
      const double target = constantOf(target_, constant);
      *residuals++ =
          isGiven(target)
              ? Scalar(weight * deviation<Scalar>(constantOf(effective, constant) / target))
              : Scalar(0.0);
    }
    return true;
  }

  /// Root mean square of the relative deviations of the constants that are given.
  [[nodiscard]] double error(const Vector& z) const {
    const auto materials = space_.at(z.data());
    const auto effective =
        homogeniseElastic(materials.fiber, materials.matrix, fiberFraction_).effective;
    RelativeRms rms;
    for (const auto& row : kLaminaTargets) {
      const double target = constantOf(target_, row.constant);
      if (isGiven(target)) {
        rms.add(constantOf(effective, row.constant), target);
      }
    }
    return rms.value();
  }

 private:
  const Space& space_;
  TransverselyIsotropic target_;
  double fiberFraction_;
};

}  // namespace kx

#endif
