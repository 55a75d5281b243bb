// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_FIT_WEAVEPROBLEM_H
#define KX_WEAVE_FIT_WEAVEPROBLEM_H

#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

#include "fit/ConstituentSpace.h"
#include "fit/LaminaProblem.h"
#include "lamina/UnidirectionalLamina.h"
#include "weave/cell/CellAverages.h"

namespace kx {

/// How much the nine mechanical constants of a woven ply count, in the order of kPropertyOrder.
///
/// In-plane moduli are what is measured well. Through-thickness moduli of thin plies are measured
/// with several times their scatter, and Poisson's ratios of weaves depend on the stacking, which
/// the unit cell does not know. A weight stands for a scatter of kWeaveScatter over it: 2 % of the
/// in-plane moduli, 7 % of the others, 13 % of the ratios.
inline constexpr std::array<double, 9> kWeaveWeights{
    {1.0, 1.0, 0.3, 0.15, 0.15, 0.15, 1.0, 0.3, 0.3}};

inline constexpr double kWeaveScatter = 0.02;

/// Root mean square of the relative deviations of the constants that are given (> 0); 0 when none
/// is.
inline double weaveError(const Properties& ply, const Properties& target) {
  RelativeRms rms;
  for (std::size_t i = 0; i < kWeaveWeights.size(); ++i) {
    const auto constant = kPropertyOrder<double>[i];
    if (isGiven(target.*constant)) {
      rms.add(ply.*constant, target.*constant);
    }
  }
  return rms.value();
}

/// The residuals of a weave fit with the stiffness of the unit cell linearised in the moduli of its
/// phases (CellSensitivity); a problem for BoundedLeastSquares.
template <MatrixSymmetry kSymmetry>
class WeaveProblem {
 public:
  using Space = ConstituentSpace<kSymmetry>;
  using Vector = typename Space::Vector;
  static constexpr int kParameters = Space::kDimension;
  static constexpr int kResiduals = static_cast<int>(kWeaveWeights.size());

  WeaveProblem(const Space& space, const Properties& target, const double fiberFraction)
      : space_(space), target_(target), fiberFraction_(fiberFraction) {}

  void setSensitivity(const CellSensitivity& sensitivity) { sensitivity_ = sensitivity; }

  template <class Scalar>
  bool operator()(const Scalar* z, Scalar* residuals) const {
    const auto materials = space_.at(z);
    if constexpr (std::is_same_v<Scalar, double>) {
      if (!space_.holds(materials)) {
        return false;
      }
    }
    const PropertiesOf<Scalar> ply = plyOf(materials);
    for (std::size_t i = 0; i < kWeaveWeights.size(); ++i) {
      const double target = target_.*kPropertyOrder<double>[i];
      const Scalar value = ply.*kPropertyOrder<Scalar>[i];
      residuals[i] = isGiven(target) ? Scalar(kWeaveWeights[i] * deviation<Scalar>(value / target))
                                     : Scalar(0.0);
    }
    return true;
  }

  [[nodiscard]] double error(const Vector& z) const {
    return weaveError(plyOf(space_.at(z.data())), target_);
  }

  /// Sum of the squared weighted residuals and lam |z|^2; infinite where the model is not defined.
  [[nodiscard]] double merit(const Vector& z, const double lam) const {
    Eigen::Matrix<double, kResiduals, 1> residuals;
    if (!(*this)(z.data(), residuals.data()) || !residuals.allFinite()) {
      return std::numeric_limits<double>::infinity();
    }
    return residuals.squaredNorm() + lam * z.squaredNorm();
  }

 private:
  template <class Scalar>
  PropertiesOf<Scalar> plyOf(const ConstituentsOf<Scalar>& materials) const {
    const auto tow = homogeniseElastic(materials.fiber, materials.matrix, fiberFraction_).effective;
    const std::array<HillModuliOf<Scalar>, kCellPhases> phases{
        hillModuli(materials.matrix), hillModuli(tow), hillModuli(tow)};
    Matrix6Of<Scalar> overall = Matrix6Of<Scalar>::Zero();
    for (std::size_t r = 0; r < kCellPhases; ++r) {
      const auto& work = sensitivity_.stiffness[r];
      addTo(overall, work[CellSensitivity::axial], phases[r].n);
      addTo(overall, work[CellSensitivity::cross], phases[r].l);
      addTo(overall, work[CellSensitivity::bulk], phases[r].k);
      addTo(overall, work[CellSensitivity::transverse], phases[r].m);
      addTo(overall, work[CellSensitivity::shear], phases[r].p);
    }
    const Matrix6Of<Scalar> compliance = overall.inverse();
    return propertiesFromCompliance<Scalar>(compliance, Vector6Of<Scalar>::Zero());
  }

  template <class Scalar>
  static void addTo(Matrix6Of<Scalar>& sum, const Matrix6& work, const Scalar& modulus) {
    for (Eigen::Index i = 0; i < 6; ++i) {
      for (Eigen::Index j = 0; j < 6; ++j) {
        sum(i, j) += modulus * work(i, j);
      }
    }
  }

  const Space& space_;
  Properties target_;
  double fiberFraction_;
  CellSensitivity sensitivity_;
};

}  // namespace kx

#endif
