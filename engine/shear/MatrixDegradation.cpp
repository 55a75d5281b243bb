// SPDX-License-Identifier: BSD-3-Clause
#include "shear/MatrixDegradation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <Eigen/Dense>

namespace kx {
namespace {

constexpr int kSamples = 41;
constexpr double kLowestSample = 0.05;

bool isPositive(const double value) noexcept {
  return std::isfinite(value) && value > 0.0;
}

/// Axial shear modulus of the composite cylinder assemblage, hashin1979.
double axialShearModulus(const double c, const double fiber, const double matrix) noexcept {
  return matrix * (fiber * (1.0 + c) + matrix * (1.0 - c)) /
         (fiber * (1.0 - c) + matrix * (1.0 + c));
}

}  // namespace

double matrixShearModulusFor(const double c, const double fiber, const double composite) noexcept {
  const double linear = (fiber - composite) * (1.0 + c);
  const double constant = composite * fiber * (1.0 - c);
  const double root = std::sqrt(linear * linear + 4.0 * (1.0 - c) * constant);
  // of the two forms of the root, the one that does not subtract nearly equal numbers
  return linear > 0.0 ? 2.0 * constant / (linear + root) : (root - linear) / (2.0 * (1.0 - c));
}

MatrixDegradation fitMatrixDegradation(const std::vector<DegradationPair>& pairs) {
  const auto rows = static_cast<Eigen::Index>(pairs.size());
  if (rows < 3) {
    return kEqualDegradation;
  }
  Eigen::Matrix<double, Eigen::Dynamic, 3> powers(rows, 3);
  Eigen::VectorXd matrix(rows);
  for (Eigen::Index row = 0; row < rows; ++row) {
    const auto& pair = pairs[static_cast<std::size_t>(row)];
    powers.row(row) << 1.0, pair.composite, pair.composite * pair.composite;
    matrix[row] = pair.matrix;
  }
  if (!powers.allFinite() || !matrix.allFinite()) {
    return kEqualDegradation;
  }
  const Eigen::ColPivHouseholderQR<Eigen::Matrix<double, Eigen::Dynamic, 3>> qr(powers);
  const Eigen::Vector3d c = qr.solve(matrix);
  return qr.rank() == 3 && c.allFinite() ? MatrixDegradation{c[0], c[1], c[2]} : kEqualDegradation;
}

MatrixDegradation unidirectionalMatrixDegradation(const double fiberVolumeFraction,
                                                  const double fiberShearModulus,
                                                  const double matrixShearModulus,
                                                  const double lowestDegradation) {
  const double c = fiberVolumeFraction;
  if (!isPositive(fiberShearModulus) || !isPositive(matrixShearModulus) || !isPositive(c) ||
      c >= 1.0) {
    return kEqualDegradation;
  }
  // moduli relative to the matrix: no unit, and nothing that can overflow
  const double fiber = fiberShearModulus / matrixShearModulus;
  const double intact = axialShearModulus(c, fiber, 1.0);
  const double lowest =
      std::isfinite(lowestDegradation) ? std::clamp(lowestDegradation, kLowestSample, 0.98) : 0.5;
  std::vector<DegradationPair> pairs(kSamples);
  for (int sample = 0; sample < kSamples; ++sample) {
    const double d = lowest + (1.0 - lowest) * sample / (kSamples - 1);
    pairs[static_cast<std::size_t>(sample)] = {d, matrixShearModulusFor(c, fiber, d * intact)};
  }
  return fitMatrixDegradation(pairs);
}

}  // namespace kx
