// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_ELASTIC_VOIGT_H
#define KX_ELASTIC_VOIGT_H

#include <Eigen/Dense>

#include "elastic/Properties.h"
#include "elastic/TransverselyIsotropic.h"

namespace kx {

/// Rows and columns of every 6x6 matrix and 6-vector; shear strains are engineering strains.
enum Voigt : Eigen::Index { k11, k22, k33, k12, k13, k23 };

template <class Scalar>
using Matrix6Of = Eigen::Matrix<Scalar, 6, 6>;
template <class Scalar>
using Vector6Of = Eigen::Matrix<Scalar, 6, 1>;
using Matrix6 = Matrix6Of<double>;
using Vector6 = Vector6Of<double>;

/// Thermal expansion as a strain vector: (A11, A22, A33, 0, 0, 0).
template <class Scalar>
Vector6Of<Scalar> expansion(const PropertiesOf<Scalar>& p) {
  Vector6Of<Scalar> alpha = Vector6Of<Scalar>::Zero();
  alpha(k11) = p.a11;
  alpha(k22) = p.a22;
  alpha(k33) = p.a33;
  return alpha;
}

/// Compliance [1/Pa]; strain = S stress.
template <class Scalar>
Matrix6Of<Scalar> compliance(const PropertiesOf<Scalar>& p) {
  Matrix6Of<Scalar> s = Matrix6Of<Scalar>::Zero();
  s(k11, k11) = 1.0 / p.e11;
  s(k22, k22) = 1.0 / p.e22;
  s(k33, k33) = 1.0 / p.e33;
  s(k12, k12) = 1.0 / p.g12;
  s(k13, k13) = 1.0 / p.g13;
  s(k23, k23) = 1.0 / p.g23;
  s(k11, k22) = s(k22, k11) = -p.v12 / p.e11;
  s(k11, k33) = s(k33, k11) = -p.v13 / p.e11;
  s(k22, k33) = s(k33, k22) = -p.v23 / p.e22;
  return s;
}

/// Inverse of an orthotropic compliance or stiffness in its own axes: 3x3 normal block and three
/// shear entries; any other entry is taken as zero.
template <class Scalar>
Matrix6Of<Scalar> orthotropicInverse(const Matrix6Of<Scalar>& matrix) {
  Matrix6Of<Scalar> inverse = Matrix6Of<Scalar>::Zero();
  const Eigen::Matrix<Scalar, 3, 3> normal = matrix.template topLeftCorner<3, 3>();
  inverse.template topLeftCorner<3, 3>() = normal.inverse();
  for (const Voigt shear : {k12, k13, k23}) {
    inverse(shear, shear) = 1.0 / matrix(shear, shear);
  }
  return inverse;
}

/// Stiffness [Pa]; stress = C strain.
template <class Scalar>
Matrix6Of<Scalar> stiffness(const PropertiesOf<Scalar>& p) {
  return orthotropicInverse(compliance(p));
}

/// Stiffness [Pa] from Hill's moduli, without an inversion.
template <class Scalar>
Matrix6Of<Scalar> stiffness(const TransverselyIsotropicOf<Scalar>& solid) {
  const HillModuliOf<Scalar> hill = hillModuli(solid);
  Matrix6Of<Scalar> c = Matrix6Of<Scalar>::Zero();
  c(k11, k11) = hill.n;
  c(k11, k22) = c(k22, k11) = c(k11, k33) = c(k33, k11) = hill.l;
  c(k22, k22) = c(k33, k33) = hill.k + hill.m;
  c(k22, k33) = c(k33, k22) = hill.k - hill.m;
  c(k12, k12) = c(k13, k13) = hill.p;
  c(k23, k23) = hill.m;
  return c;
}

/// Engineering constants of an orthotropic compliance in its own axes and of an expansion vector.
template <class Scalar>
PropertiesOf<Scalar> propertiesFromCompliance(const Matrix6Of<Scalar>& s,
                                              const Vector6Of<Scalar>& alpha) {
  PropertiesOf<Scalar> p;
  p.e11 = 1.0 / s(k11, k11);
  p.e22 = 1.0 / s(k22, k22);
  p.e33 = 1.0 / s(k33, k33);
  p.v12 = -s(k11, k22) * p.e11;
  p.v13 = -s(k11, k33) * p.e11;
  p.v23 = -s(k22, k33) * p.e22;
  p.g12 = 1.0 / s(k12, k12);
  p.g13 = 1.0 / s(k13, k13);
  p.g23 = 1.0 / s(k23, k23);
  p.a11 = alpha(k11);
  p.a22 = alpha(k22);
  p.a33 = alpha(k33);
  return p;
}

/// The same from an orthotropic stiffness.
template <class Scalar>
PropertiesOf<Scalar> propertiesFromStiffness(const Matrix6Of<Scalar>& c,
                                             const Vector6Of<Scalar>& alpha) {
  return propertiesFromCompliance(orthotropicInverse(c), alpha);
}

/// Thermal stress beta = C alpha [Pa/K]: stress = C strain - beta dT.
template <class Scalar>
Vector6Of<Scalar> thermalStress(const PropertiesOf<Scalar>& p) {
  return stiffness(p) * expansion(p);
}

/// True when the matrix is finite, symmetric to rounding and positive definite.
bool isPositiveDefinite(const Matrix6& matrix);

}  // namespace kx

#endif
