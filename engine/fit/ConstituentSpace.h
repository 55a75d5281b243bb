#ifndef KX_FIT_CONSTITUENTSPACE_H
#define KX_FIT_CONSTITUENTSPACE_H

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include <Eigen/Core>

#include "elastic/TransverselyIsotropic.h"
#include "fit/MatrixSymmetry.h"

namespace kx {

/// The two materials that a fit moves.
template <class Scalar>
struct ConstituentsOf {
  TransverselyIsotropicOf<Scalar> fiber;
  TransverselyIsotropicOf<Scalar> matrix;
};
using Constituents = ConstituentsOf<double>;

/// One unknown of a fit: a modulus may change by the factor kModulusFactor either way, a Poisson's
/// ratio stays between `lowest` and `highest`.
struct Unknown {
  ElasticConstant constant;
  double lowest = 0.0;
  double highest = 0.0;

  [[nodiscard]] constexpr bool isRatio() const { return highest != 0.0; }
};

inline constexpr double kModulusFactor = 5.0;
/// A change of a Poisson's ratio that weighs as much as a modulus changing by the factor e.
inline constexpr double kRatioScale = 0.3;

inline constexpr std::array<Unknown, 5> kFiberUnknowns{{
    {ElasticConstant::e11},
    {ElasticConstant::e22},
    {ElasticConstant::v12, 0.01, 0.49},
    {ElasticConstant::v23, 0.01, 0.75},
    {ElasticConstant::g12},
}};

/// Of an isotropic matrix, E11 and v12 stand for all its constants.
template <MatrixSymmetry>
inline constexpr std::array<Unknown, 2> kMatrixUnknowns{{
    {ElasticConstant::e11},
    {ElasticConstant::v12, 0.05, 0.48},
}};
template <>
inline constexpr std::array<Unknown, 5> kMatrixUnknowns<MatrixSymmetry::transverselyIsotropic>{{
    {ElasticConstant::e11},
    {ElasticConstant::e22},
    {ElasticConstant::v12, 0.02, 0.49},
    {ElasticConstant::v23, 0.02, 0.60},
    {ElasticConstant::g12},
}};

/// Coordinates z of fiber and matrix around their start values: ln(modulus / start) and
/// (ratio - start) / 0.3. So z = 0 is the start, and |z| the distance from it.
template <MatrixSymmetry kSymmetry>
class ConstituentSpace {
 public:
  static constexpr int kDimension =
      static_cast<int>(kFiberUnknowns.size() + kMatrixUnknowns<kSymmetry>.size());
  using Vector = Eigen::Matrix<double, kDimension, 1>;

  /// Both materials admissible; an isotropic matrix exactly isotropic.
  explicit ConstituentSpace(const Constituents& start) : start_(start) {
    Eigen::Index row = 0;
    for (const Unknown& unknown : kFiberUnknowns) {
      setBounds(unknown, start.fiber, row++);
    }
    for (const Unknown& unknown : kMatrixUnknowns<kSymmetry>) {
      setBounds(unknown, start.matrix, row++);
    }
  }

  /// The materials at z; expansions as at the start.
  template <class Scalar>
  [[nodiscard]] ConstituentsOf<Scalar> at(const Scalar* z) const {
    ConstituentsOf<Scalar> materials{constantsOf<Scalar>(start_.fiber),
                                     constantsOf<Scalar>(start_.matrix)};
    for (const Unknown& unknown : kFiberUnknowns) {
      move(unknown, *z++, materials.fiber);
    }
    for (const Unknown& unknown : kMatrixUnknowns<kSymmetry>) {
      move(unknown, *z++, materials.matrix);
    }
    if constexpr (kSymmetry == MatrixSymmetry::isotropic) {
      const auto& m = materials.matrix;
      materials.matrix = isotropic<Scalar>(m.e11, m.v12, m.a11);
    }
    return materials;
  }

  /// Box that z must stay in; it always contains the start.
  [[nodiscard]] const Vector& lower() const noexcept { return lower_; }
  [[nodiscard]] const Vector& upper() const noexcept { return upper_; }

 private:
  template <class Scalar>
  static TransverselyIsotropicOf<Scalar> constantsOf(const TransverselyIsotropic& s) {
    return {Scalar(s.e11),
            Scalar(s.e22),
            Scalar(s.v12),
            Scalar(s.v23),
            Scalar(s.g12),
            Scalar(s.a11),
            Scalar(s.a22)};
  }

  template <class Scalar>
  static void move(const Unknown& unknown,
                   const Scalar& z,
                   TransverselyIsotropicOf<Scalar>& material) {
    using std::exp;
    Scalar& value = constantOf(material, unknown.constant);
    if (unknown.isRatio()) {
      value += kRatioScale * z;
    } else {
      value *= exp(z);
    }
  }

  void setBounds(const Unknown& unknown,
                 const TransverselyIsotropic& start,
                 const Eigen::Index row) {
    if (unknown.isRatio()) {
      const double ratio = constantOf(start, unknown.constant);
      lower_(row) = std::min(0.0, (unknown.lowest - ratio) / kRatioScale);
      upper_(row) = std::max(0.0, (unknown.highest - ratio) / kRatioScale);
    } else {
      upper_(row) = std::log(kModulusFactor);
      lower_(row) = -upper_(row);
    }
  }

  Constituents start_;
  Vector lower_;
  Vector upper_;
};

}  // namespace kx

#endif
