// SPDX-License-Identifier: BSD-3-Clause
#include "elastic/Voigt.h"

namespace kx {

bool isPositiveDefinite(const Matrix6& matrix) {
  constexpr double kRounding = 1e-9;  // products of three 6x6 matrices of contrast up to 1e5
  if (!matrix.allFinite() || !matrix.isApprox(matrix.transpose(), kRounding)) {
    return false;
  }
  return matrix.llt().info() == Eigen::Success;
}

}  // namespace kx
