// SPDX-License-Identifier: BSD-3-Clause
#include "elastic/Rotation.h"

#include <array>
#include <cmath>

namespace kx {
namespace {

struct TensorIndices {
  Eigen::Index i, j;
};

// The tensor component that stands in each row of a Voigt vector.
constexpr std::array<TensorIndices, 6> kTensorIndices{
    {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}}};

}  // namespace

Frame fillFrame(const double slope) noexcept {
  const double cosine = 1.0 / std::hypot(1.0, slope);
  const double sine = slope * cosine;
  Frame frame;
  frame << cosine, 0.0, sine, 0.0, 1.0, 0.0, -sine, 0.0, cosine;
  return frame;
}

Frame warpFrame(const double slope) noexcept {
  const double cosine = 1.0 / std::hypot(1.0, slope);
  const double sine = slope * cosine;
  Frame frame;
  frame << 0.0, cosine, sine, -1.0, 0.0, 0.0, 0.0, -sine, cosine;
  return frame;
}

Matrix6 strainTransform(const Frame& frame) {
  Matrix6 transform;
  for (Eigen::Index row = 0; row < 6; ++row) {
    const auto [i, j] = kTensorIndices[static_cast<std::size_t>(row)];
    const double shearRow = i == j ? 1.0 : 2.0;
    for (Eigen::Index column = 0; column < 6; ++column) {
      const auto [k, l] = kTensorIndices[static_cast<std::size_t>(column)];
      // eps_ij = f_ik f_jl eps_kl summed over kl and lk; gamma = 2 eps on both sides.
      const double sum = frame(i, k) * frame(j, l) + frame(i, l) * frame(j, k);
      transform(row, column) = 0.5 * shearRow * sum;
    }
  }
  return transform;
}

Matrix6 rotateStiffness(const Matrix6& local, const Matrix6& strainTransform) {
  return strainTransform.transpose() * local * strainTransform;
}

Vector6 rotateStress(const Vector6& local, const Matrix6& strainTransform) {
  return strainTransform.transpose() * local;
}

}  // namespace kx
