// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_SHEAR_MATRIXDEGRADATION_H
#define KX_SHEAR_MATRIXDEGRADATION_H

#include <array>
#include <vector>

namespace kx {

/// How far a composite's shear modulus falls when its matrix' axial shear moduli are multiplied by
/// `matrix`: both are fractions of the intact modulus.
struct DegradationPair {
  double composite = 1.0;
  double matrix = 1.0;
};

/// Coefficients c0, c1, c2 of matrix = c0 + c1 d + c2 d^2, d the degradation of the composite.
using MatrixDegradation = std::array<double, 3>;

/// What stands in where nothing can be computed: the matrix degrades as the composite does.
inline constexpr MatrixDegradation kEqualDegradation{0.0, 1.0, 0.0};

/// Least-squares quadratic through pairs; kEqualDegradation for fewer than three distinct ones or
/// numbers that are not finite.
MatrixDegradation fitMatrixDegradation(const std::vector<DegradationPair>& pairs);

/// Matrix degradation of a unidirectional composite, from the axial shear modulus of the composite
/// cylinder assemblage (hashin1979) solved for the matrix modulus; quadratic through 41 equally
/// spaced d from max(0.05, lowestDegradation) to 1.
/// fiberVolumeFraction in (0,1); moduli > 0, one unit. kEqualDegradation for anything else.
MatrixDegradation unidirectionalMatrixDegradation(double fiberVolumeFraction,
                                                  double fiberShearModulus,
                                                  double matrixShearModulus,
                                                  double lowestDegradation);

/// Matrix shear modulus of a composite cylinder assemblage whose axial shear modulus is
/// `composite`: the positive root of (1-c) Gm^2 + (Gf-G)(1+c) Gm - G Gf (1-c) = 0.
double matrixShearModulusFor(double fiberVolumeFraction,
                             double fiberShearModulus,
                             double composite) noexcept;

}  // namespace kx

#endif
