// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_CONSTITUENTSPACE_H
#define KX_FIT_CONSTITUENTSPACE_H

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include <Eigen/Core>

#include "fit/Constituents.h"
#include "fit/FitStart.h"
#include "fit/MatrixSymmetry.h"
#include "fit/Widths.h"

namespace kx {

/// Coordinates z of fiber and matrix: how many widths each constant is away from its start value,
/// by its logarithm (moduli) or by itself (Poisson's ratios). So z = 0 is the start, and |z| the
/// distance from it in standard deviations.
template <MatrixSymmetry kSymmetry>
class ConstituentSpace {
 public:
  static constexpr bool kIsIsotropic = kSymmetry == MatrixSymmetry::isotropic;
  static constexpr std::size_t kUnknowns =
      kFiberUnknowns.size() +
      (kIsIsotropic ? kIsotropicMatrixUnknowns.size() : kTransverseMatrixUnknowns.size());
  static constexpr int kDimension = static_cast<int>(kUnknowns);
  using Vector = Eigen::Matrix<double, kDimension, 1>;
  using Unknowns = std::array<Unknown, kUnknowns>;
  template <class Scalar>
  using Values = std::array<Scalar, kUnknowns>;

  /// Both materials admissible; an isotropic matrix exactly isotropic.
  explicit ConstituentSpace(const Constituents& start)
      : start_(start), startValues_(valuesOf(start)), unknowns_(unknownsOf(start.fiber)) {
    for (std::size_t i = 0; i < kUnknowns; ++i) {
      setBounds(i);
    }
    if constexpr (kIsIsotropic) {
      setMatrixRatioBounds();
    }
  }

  [[nodiscard]] const Unknowns& unknowns() const noexcept { return unknowns_; }

  /// The values of the unknowns [Pa, -].
  static Values<double> valuesOf(const Constituents& materials) {
    Values<double> values{};
    std::size_t i = 0;
    for (const auto member : kElasticMembers<double>) {
      values[i++] = materials.fiber.*member;
    }
    if constexpr (kIsIsotropic) {
      values[i++] = bulkModulus(materials.matrix.e11, materials.matrix.v12);
      values[i++] = shearModulus(materials.matrix.e11, materials.matrix.v12);
    } else {
      for (const auto member : kElasticMembers<double>) {
        values[i++] = materials.matrix.*member;
      }
    }
    return values;
  }

  /// The materials at z; expansions as at the start.
  template <class Scalar>
  [[nodiscard]] ConstituentsOf<Scalar> at(const Scalar* z) const {
    using std::exp;
    Values<Scalar> values;
    for (std::size_t i = 0; i < kUnknowns; ++i) {
      const Unknown& unknown = unknowns_[i];
      values[i] = unknown.isRatio() ? Scalar(startValues_[i] + unknown.width * z[i])
                                    : Scalar(startValues_[i] * exp(unknown.width * z[i]));
    }
    return materialsOf(values);
  }

  /// Where materials lie.
  [[nodiscard]] Vector coordinatesOf(const Constituents& materials) const {
    const auto values = valuesOf(materials);
    Vector z;
    for (std::size_t i = 0; i < kUnknowns; ++i) {
      const Unknown& unknown = unknowns_[i];
      z(static_cast<Eigen::Index>(i)) =
          (unknown.isRatio() ? values[i] - startValues_[i]
                             : std::log(values[i] / startValues_[i])) /
          unknown.width;
    }
    return z;
  }

  /// Box that z must stay in; it always contains the start.
  [[nodiscard]] const Vector& lower() const noexcept { return lower_; }
  [[nodiscard]] const Vector& upper() const noexcept { return upper_; }

  /// True when materials are admissible, and bulk and shear modulus of an isotropic matrix give a
  /// Poisson's ratio within its bounds.
  [[nodiscard]] bool holds(const Constituents& materials) const {
    const double ratio = materials.matrix.v12;
    return isAdmissible(materials) &&
           (!kIsIsotropic || (ratio >= lowestRatio_ && ratio <= highestRatio_));
  }

  /// True when a bound holds the unknown of that number back.
  [[nodiscard]] bool isAtBound(const std::size_t i, const Constituents& materials) const {
    constexpr double kAtBound = 1e-3;  // widths, and ratios
    const auto row = static_cast<Eigen::Index>(i);
    const double z = coordinatesOf(materials)(row);
    const double ratio = materials.matrix.v12;
    const bool isBulkOrShear = kIsIsotropic && i >= kFiberUnknowns.size();
    return z <= lower_(row) + kAtBound || z >= upper_(row) - kAtBound ||
           (isBulkOrShear &&
            (ratio <= lowestRatio_ + kAtBound || ratio >= highestRatio_ - kAtBound));
  }

 private:
  static constexpr double kRatioRounding = 1e-12;  // of a ratio by way of bulk and shear modulus

  static Unknowns unknownsOf(const TransverselyIsotropic& fiber) {
    Unknowns all;
    const auto& ofFiber = isIsotropicFiber(fiber) ? kIsotropicFiberUnknowns : kFiberUnknowns;
    const auto next = std::copy(ofFiber.begin(), ofFiber.end(), all.begin());
    if constexpr (kIsIsotropic) {
      std::copy(kIsotropicMatrixUnknowns.begin(), kIsotropicMatrixUnknowns.end(), next);
    } else {
      std::copy(kTransverseMatrixUnknowns.begin(), kTransverseMatrixUnknowns.end(), next);
    }
    return all;
  }

  template <class Scalar>
  [[nodiscard]] ConstituentsOf<Scalar> materialsOf(const Values<Scalar>& values) const {
    ConstituentsOf<Scalar> materials;
    std::size_t i = 0;
    for (const auto member : kElasticMembers<Scalar>) {
      materials.fiber.*member = values[i++];
    }
    if constexpr (kIsIsotropic) {
      materials.matrix =
          isotropicOfBulkAndShear<Scalar>(values[i], values[i + 1], Scalar(start_.matrix.a11));
    } else {
      for (const auto member : kElasticMembers<Scalar>) {
        materials.matrix.*member = values[i++];
      }
      materials.matrix.a11 = Scalar(start_.matrix.a11);
      materials.matrix.a22 = Scalar(start_.matrix.a22);
    }
    materials.fiber.a11 = Scalar(start_.fiber.a11);
    materials.fiber.a22 = Scalar(start_.fiber.a22);
    return materials;
  }

  void setBounds(const std::size_t i) {
    const Unknown& unknown = unknowns_[i];
    const auto row = static_cast<Eigen::Index>(i);
    if (unknown.isRatio()) {
      lower_(row) = std::min(0.0, (unknown.lowest - startValues_[i]) / unknown.width);
      upper_(row) = std::max(0.0, (unknown.highest - startValues_[i]) / unknown.width);
    } else {
      upper_(row) = std::log(kModulusFactor) / unknown.width;
      lower_(row) = -upper_(row);
    }
  }

  /// The bulk modulus may be what the bounds of shear modulus and Poisson's ratio leave it.
  void setMatrixRatioBounds() {
    constexpr auto kBulk = static_cast<Eigen::Index>(kUnknowns - 2);
    const double ratio = start_.matrix.v12;
    lowestRatio_ = std::min(kLowestMatrixRatio, ratio - kRatioRounding);
    highestRatio_ = std::max(kHighestMatrixRatio, ratio + kRatioRounding);
    const auto bound = [&](const double extreme) {
      return std::log(bulkModulus(1.0, extreme) / shearModulus(1.0, extreme) /
                      (bulkModulus(1.0, ratio) / shearModulus(1.0, ratio))) /
             kIsotropicMatrixUnknowns[0].width;
    };
    lower_(kBulk) += std::min(bound(lowestRatio_), 0.0);
    upper_(kBulk) += std::max(bound(highestRatio_), 0.0);
  }

  Constituents start_;
  Values<double> startValues_;
  Unknowns unknowns_;
  Vector lower_;
  Vector upper_;
  double lowestRatio_ = 0.0;
  double highestRatio_ = 0.0;
};

}  // namespace kx

#endif
