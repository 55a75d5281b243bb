#ifndef KX_LAMINA_UNIDIRECTIONALLAMINA_H
#define KX_LAMINA_UNIDIRECTIONALLAMINA_H

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
                     const Scalar& thermalMismatch,
                     const double c,
                     UnidirectionalLaminaOf<Scalar>& lamina) {
  const double m = 1.0 - c;
  const Scalar bulk = 2.0 * (m * fiber.k + c * matrix.k + matrix.m);
  const Scalar axial = (matrix.l - fiber.l) / bulk;
  const Scalar thermal = thermalMismatch / bulk;
  const Scalar shear = m * fiber.p + (1.0 + c) * matrix.p;
  lamina.fiber.axial = m * axial;
  lamina.fiber.dilatation = 2.0 * (matrix.k + matrix.m) / bulk;
  lamina.fiber.thermal = m * thermal;
  lamina.fiber.axialShear = 2.0 * matrix.p / shear;
  lamina.matrix.axial = -c * axial;
  lamina.matrix.dilatation = 2.0 * (fiber.k + matrix.m) / bulk;
  lamina.matrix.thermal = -c * thermal;
  lamina.matrix.axialShear = (fiber.p + matrix.p) / shear;
}

/// Effective expansions from the phases' strain concentrations, levin1967: the overall thermal
/// stress is the mean of A^T beta.
template <class Scalar>
void levinExpansion(const AxisymmetricThermalStressOf<Scalar>& fiber,
                    const AxisymmetricThermalStressOf<Scalar>& matrix,
                    const HillModuliOf<Scalar>& overall,
                    const double c,
                    UnidirectionalLaminaOf<Scalar>& lamina) {
  const double m = 1.0 - c;
  const Scalar axial = c * (fiber.axial + 2.0 * lamina.fiber.axial * fiber.transverse) +
                       m * (matrix.axial + 2.0 * lamina.matrix.axial * matrix.transverse);
  const Scalar transverse = c * lamina.fiber.dilatation * fiber.transverse +
                            m * lamina.matrix.dilatation * matrix.transverse;
  auto& effective = lamina.effective;
  effective.a11 = (axial - 2.0 * effective.v12 * transverse) / effective.e11;
  effective.a22 = (transverse - overall.l * effective.a11) / (2.0 * overall.k);
}

}  // namespace detail

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
  const double c = fiberFraction < 0.0 ? 0.0 : (fiberFraction > 1.0 ? 1.0 : fiberFraction);
  const double m = 1.0 - c;
  const auto f = hillModuli(fiber);
  const auto r = hillModuli(matrix);
  const auto betaF = thermalStress(f, fiber.a11, fiber.a22);
  const auto betaR = thermalStress(r, matrix.a11, matrix.a22);

  UnidirectionalLaminaOf<Scalar> lamina;
  detail::cylinderStrains<Scalar>(f, r, betaF.transverse - betaR.transverse, c, lamina);
  detail::transverseShear(f, r, c, lamina);

  HillModuliOf<Scalar> overall;
  overall.k = c * f.k * lamina.fiber.dilatation + m * r.k * lamina.matrix.dilatation;
  overall.l = c * f.l * lamina.fiber.dilatation + m * r.l * lamina.matrix.dilatation;
  overall.n =
      c * (f.n + 2.0 * f.l * lamina.fiber.axial) + m * (r.n + 2.0 * r.l * lamina.matrix.axial);
  overall.m = c * f.m * lamina.fiber.transverseShear + m * r.m * lamina.matrix.transverseShear;
  overall.p = c * f.p * lamina.fiber.axialShear + m * r.p * lamina.matrix.axialShear;
  lamina.effective = transverselyIsotropicFrom(overall);
  detail::levinExpansion(betaF, betaR, overall, c, lamina);
  return lamina;
}

}  // namespace kx

#endif
