// SPDX-License-Identifier: BSD-3-Clause
#include "fit/Assessment.h"

#include <algorithm>
#include <cmath>

#include <Eigen/Dense>

#include "elastic/Voigt.h"

namespace kx {

double Assessment::distance() const {
  double sum = 0.0;
  for (const AssessedConstant& constant : elastic) {
    sum += constant.z * constant.z;
  }
  return std::sqrt(sum);
}

const AssessedConstant& Assessment::farthest() const {
  const auto isNearer = [](const AssessedConstant& a, const AssessedConstant& b) {
    return std::abs(a.z) < std::abs(b.z);
  };
  const auto& inElastic = *std::max_element(elastic.begin(), elastic.end(), isNearer);
  const auto& inExpansions = *std::max_element(expansions.begin(), expansions.end(), isNearer);
  return std::max(inElastic, inExpansions, isNearer);
}

bool Assessment::isAnyAtBound() const {
  return std::any_of(
      elastic.begin(), elastic.end(), [](const AssessedConstant& c) { return c.isAtBound; });
}

MatrixModuli matrixModuli(const Properties& matrix) {
  return {1.0 / compliance(matrix).topLeftCorner<3, 3>().sum(), matrix.g12};
}

Uncertainty uncertaintyOf(const Eigen::MatrixXd& jacobian,
                          const double scatter,
                          const bool isExact,
                          const double rank) {
  const Eigen::JacobiSVD<Eigen::MatrixXd> svd(jacobian, Eigen::ComputeThinU | Eigen::ComputeThinV);
  const Eigen::ArrayXd s = svd.singularValues();
  const Eigen::ArrayXXd v2 = svd.matrixV().array().square();
  const Eigen::ArrayXd told = s.square() / (s.square() + scatter * scatter);
  const Eigen::ArrayXd seen = (s > rank * s.maxCoeff()).cast<double>();
  // Along a singular direction the start's own variance, 1, is replaced.
  const Eigen::ArrayXd variance =
      isExact ? Eigen::ArrayXd(seen * (s > 0.0).select(scatter * scatter / s.square(), 0.0) - seen)
              : Eigen::ArrayXd(-told);
  return {(1.0 + (v2.matrix() * variance.matrix()).array()).sqrt(), v2.matrix() * told.matrix()};
}

}  // namespace kx
