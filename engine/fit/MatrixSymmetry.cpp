// SPDX-License-Identifier: BSD-3-Clause
#include "fit/MatrixSymmetry.h"

#include <cmath>

namespace kx {
namespace {

constexpr double kRounding = 1e-6;  // constants that were typed or converted, never measured

bool equal(const double a, const double b) {
  return std::abs(a - b) <= kRounding * std::max(std::abs(a), std::abs(b));
}

double shearOf(const double modulus, const double ratio) {
  return modulus / (2.0 * (1.0 + ratio));
}

bool isIsotropic(const Properties& p) {
  return equal(p.e11, p.e22) && equal(p.e11, p.e33) && equal(p.v12, p.v13) && equal(p.v12, p.v23) &&
         equal(p.g12, p.g13) && equal(p.g12, p.g23) && equal(p.g12, shearOf(p.e11, p.v12)) &&
         equal(p.a11, p.a22) && equal(p.a11, p.a33);
}

bool isSymmetricAbout3(const Properties& p) {
  return equal(p.e11, p.e22) && equal(p.v13, p.v23) && equal(p.g13, p.g23) &&
         equal(p.g12, shearOf(p.e11, p.v12)) && equal(p.a11, p.a22);
}

bool isSymmetricAbout1(const Properties& p) {
  return equal(p.e22, p.e33) && equal(p.v12, p.v13) && equal(p.g12, p.g13) &&
         equal(p.g23, shearOf(p.e22, p.v23)) && equal(p.a22, p.a33);
}

TransverselyIsotropic meanOverAllAxes(const Properties& p) {
  return isotropic(std::cbrt(p.e11 * p.e22 * p.e33),
                   (p.v12 + p.v13 + p.v23) / 3.0,
                   (p.a11 + p.a22 + p.a33) / 3.0);
}

TransverselyIsotropic meanOverAxes2And3(const Properties& p) {
  return {p.e11,
          std::sqrt(p.e22 * p.e33),
          0.5 * (p.v12 + p.v13),
          p.v23,
          std::sqrt(p.g12 * p.g13),
          p.a11,
          0.5 * (p.a22 + p.a33)};
}

}  // namespace

MatrixStart matrixStart(const Properties& matrix, const bool flaggedIsotropic) {
  if (flaggedIsotropic || isIsotropic(matrix)) {
    return {MatrixSymmetry::isotropic, isotropic(matrix.e11, matrix.v12, matrix.a11)};
  }
  if (isSymmetricAbout1(matrix)) {
    return {MatrixSymmetry::transverselyIsotropic, transverselyIsotropic(matrix)};
  }
  if (isSymmetricAbout3(matrix)) {
    return {MatrixSymmetry::isotropic, meanOverAllAxes(matrix)};
  }
  return {MatrixSymmetry::transverselyIsotropic, meanOverAxes2And3(matrix)};
}

}  // namespace kx
