// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_LAMINA_UNIDIRECTIONALLAMINA_H
#define KX_LAMINA_UNIDIRECTIONALLAMINA_H

#include <algorithm>
#include <cmath>

#include "elastic/TransverselyIsotropic.h"

namespace kx {

/// Mean strain in one phase of a unidirectional lamina under the overall strain e and the
/// temperature rise dT:
///   e_11                     = e_11 (axial strain is common)
///   (e_22 + e_33)/2 of phase = axial e_11 + dilatation (e_22 + e_33)/2 + thermal dT
///   (e_22 - e_33), gamma_23  = transverseShear times the overall ones
///   gamma_12, gamma_13       = axialShear times the overall ones
template <class Scalar>
struct PhaseStrainOf {
  Scalar axial{};
  Scalar dilatation{};
  Scalar thermal{};  ///< [1/K]
  Scalar axialShear{};
  Scalar transverseShear{};
};

/// A unidirectional lamina of two phases: its effective constants and its phases' mean strains.
template <class Scalar>
struct UnidirectionalLaminaOf {
  TransverselyIsotropicOf<Scalar> effective;
  PhaseStrainOf<Scalar> fiber;
  PhaseStrainOf<Scalar> matrix;
};
using UnidirectionalLamina = UnidirectionalLaminaOf<double>;

namespace detail {

/// Transverse shear strain of fiber and matrix by the generalised self-consistent scheme of
/// christensen1979 (three-phase cylinder), extended to transversely isotropic phases by hashin1979.
///
/// The published quadratic A x^2 + 2 B x + C = 0 for x = G23/G23_matrix becomes, with
/// x = 1 + c (g - 1) y and after division by c (g - 1), a quadratic for the fiber's strain ratio y
/// that is regular for equal phases and for c = 0 and 1; the matrix's ratio (1 - c y)/(1 - c) has
/// its factor 1 - c taken out in the same way.
template <class Scalar>
void transverseShear(const HillModuliOf<Scalar>& fiber,
                     const HillModuliOf<Scalar>& matrix,
                     const double c,
                     UnidirectionalLaminaOf<Scalar>& lamina) {
  using std::sqrt;
  const double m = 1.0 - c;
  const double c3 = c * c * c;
  const Scalar g = fiber.m / matrix.m;
  const Scalar hf = 1.0 + 2.0 * fiber.m / fiber.k;
  const Scalar hm = 1.0 + 2.0 * matrix.m / matrix.k;
  const Scalar contrast = g - 1.0;
  const Scalar stiff = g * hm + 1.0;
  const Scalar u = g * hm - hf;
  const Scalar s = g + hf;
  const Scalar a = 3.0 * c * m * m * contrast * s + (hm * s - u * c3) * (c * hm * contrast - stiff);
  const Scalar z = s * (stiff - 2.0 * c * hm * contrast) + c3 * c * contrast * u;
  const Scalar root = sqrt(z * z - 4.0 * c * contrast * a * s);
  const Scalar y = 2.0 * (hm + 1.0) * s / (z + root);
  lamina.fiber.transverseShear = y;
  lamina.matrix.transverseShear =
      (s * (stiff * stiff - 3.0 * c * m * contrast * contrast) - c3 * contrast * u * stiff) /
      ((hm + 1.0) * z - a * contrast * (1.0 + c * y));
}

/// Axisymmetric and axial-shear strains of the composite cylinder assemblage, hill1964 (for any
/// two-phase geometry given the bulk modulus) and hashin1979, written so that nothing is
/// singular for equal phases or at c = 0 and 1.
template <class Scalar>
void cylinderStrains(const HillModuliOf<Scalar>& fiber,
                     const HillModuliOf<Scalar>& matrix,
                     const double c,
                     UnidirectionalLaminaOf<Scalar>& lamina) {
  const double m = 1.0 - c;
  const Scalar bulk = 2.0 * (m * fiber.k + c * matrix.k + matrix.m);
  const Scalar axial = (matrix.l - fiber.l) / bulk;
  const Scalar shear = m * fiber.p + (1.0 + c) * matrix.p;
  lamina.fiber.axial = m * axial;
  lamina.fiber.dilatation = 2.0 * (matrix.k + matrix.m) / bulk;
  lamina.fiber.axialShear = 2.0 * matrix.p / shear;
  lamina.matrix.axial = -c * axial;
  lamina.matrix.dilatation = 2.0 * (fiber.k + matrix.m) / bulk;
  lamina.matrix.axialShear = (fiber.p + matrix.p) / shear;
}

/// Volume mean of the phases' stiffness times their strain.
template <class Scalar>
HillModuliOf<Scalar> overallModuli(const HillModuliOf<Scalar>& fiber,
                                   const HillModuliOf<Scalar>& matrix,
                                   const double c,
                                   const UnidirectionalLaminaOf<Scalar>& lamina) {
  const double m = 1.0 - c;
  const auto& inFiber = lamina.fiber;
  const auto& inMatrix = lamina.matrix;
  HillModuliOf<Scalar> overall;
  overall.k = c * fiber.k * inFiber.dilatation + m * matrix.k * inMatrix.dilatation;
  overall.l = c * fiber.l * inFiber.dilatation + m * matrix.l * inMatrix.dilatation;
  overall.n = c * (fiber.n + 2.0 * fiber.l * inFiber.axial) +
              m * (matrix.n + 2.0 * matrix.l * inMatrix.axial);
  overall.m = c * fiber.m * inFiber.transverseShear + m * matrix.m * inMatrix.transverseShear;
  overall.p = c * fiber.p * inFiber.axialShear + m * matrix.p * inMatrix.axialShear;
  return overall;
}

/// Thermal strains at zero overall strain (hashin1979), and effective expansions from the phases'
/// strain concentrations (levin1967): the overall thermal stress is the mean of A^T beta.
template <class Scalar>
void addThermal(const TransverselyIsotropicOf<Scalar>& fiber,
                const TransverselyIsotropicOf<Scalar>& matrix,
                const double c,
                UnidirectionalLaminaOf<Scalar>& lamina) {
  const double m = 1.0 - c;
  const auto inMatrix = hillModuli(matrix);
  const auto betaF = thermalStress(hillModuli(fiber), fiber.a11, fiber.a22);
  const auto betaM = thermalStress(inMatrix, matrix.a11, matrix.a22);
  const Scalar thermal = (betaF.transverse - betaM.transverse) * lamina.fiber.dilatation /
                         (2.0 * (inMatrix.k + inMatrix.m));
  lamina.fiber.thermal = m * thermal;
  lamina.matrix.thermal = -c * thermal;

  const Scalar axial = c * (betaF.axial + 2.0 * lamina.fiber.axial * betaF.transverse) +
                       m * (betaM.axial + 2.0 * lamina.matrix.axial * betaM.transverse);
  const Scalar transverse = c * lamina.fiber.dilatation * betaF.transverse +
                            m * lamina.matrix.dilatation * betaM.transverse;
  auto& effective = lamina.effective;
  const auto overall = hillModuli(effective);
  effective.a11 = (axial - 2.0 * effective.v12 * transverse) / effective.e11;
  effective.a22 = (transverse - overall.l * effective.a11) / (2.0 * overall.k);
}

}  // namespace detail

/// The elastic part of homogenise(): expansions and thermal strains stay zero and cost nothing.
template <class Scalar>
UnidirectionalLaminaOf<Scalar> homogeniseElastic(const TransverselyIsotropicOf<Scalar>& fiber,
                                                 const TransverselyIsotropicOf<Scalar>& matrix,
                                                 const double fiberFraction) {
  const double c = std::clamp(fiberFraction, 0.0, 1.0);
  const auto f = hillModuli(fiber);
  const auto m = hillModuli(matrix);
  UnidirectionalLaminaOf<Scalar> lamina;
  detail::cylinderStrains(f, m, c, lamina);
  detail::transverseShear(f, m, c, lamina);
  lamina.effective = transverselyIsotropicFrom(detail::overallModuli(f, m, c, lamina));
  return lamina;
}

/// Homogenises aligned fibers in a matrix, both transversely isotropic about axis 1.
///
/// Composite cylinders (hill1964, hashin1979) for E11, v12, the plane-strain bulk modulus and G12;
/// generalised self-consistent scheme (christensen1979) for G23; levin1967 for the expansions.
/// Phases must be admissible; `fiberFraction` is clamped to [0, 1], where the phases themselves
/// come out.
template <class Scalar>
UnidirectionalLaminaOf<Scalar> homogenise(const TransverselyIsotropicOf<Scalar>& fiber,
                                          const TransverselyIsotropicOf<Scalar>& matrix,
                                          const double fiberFraction) {
  auto lamina = homogeniseElastic(fiber, matrix, fiberFraction);
  detail::addThermal(fiber, matrix, std::clamp(fiberFraction, 0.0, 1.0), lamina);
  return lamina;
}

}  // namespace kx

#endif
