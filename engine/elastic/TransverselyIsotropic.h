// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_ELASTIC_TRANSVERSELYISOTROPIC_H
#define KX_ELASTIC_TRANSVERSELYISOTROPIC_H

#include <array>
#include <cstddef>

#include "elastic/Properties.h"

namespace kx {

/// A solid that is isotropic in the plane 2-3: fibers, tows, unidirectional laminae, and, as a
/// special case, isotropic matrices. Units and index convention of PropertiesOf.
template <class Scalar>
struct TransverselyIsotropicOf {
  Scalar e11{}, e22{};
  Scalar v12{}, v23{};
  Scalar g12{};
  Scalar a11{}, a22{};
};
using TransverselyIsotropic = TransverselyIsotropicOf<double>;

/// The five elastic constants by name, for tables that walk over them.
enum class ElasticConstant : std::size_t { e11, e22, v12, v23, g12 };

inline constexpr std::size_t kElasticConstantCount = 5;

/// The member that each ElasticConstant names.
template <class Scalar>
inline constexpr std::array<Scalar TransverselyIsotropicOf<Scalar>::*, kElasticConstantCount>
    kElasticMembers{{
        &TransverselyIsotropicOf<Scalar>::e11,
        &TransverselyIsotropicOf<Scalar>::e22,
        &TransverselyIsotropicOf<Scalar>::v12,
        &TransverselyIsotropicOf<Scalar>::v23,
        &TransverselyIsotropicOf<Scalar>::g12,
    }};

template <class Scalar>
Scalar& constantOf(TransverselyIsotropicOf<Scalar>& solid, const ElasticConstant constant) {
  return solid.*kElasticMembers<Scalar>[static_cast<std::size_t>(constant)];
}
template <class Scalar>
const Scalar& constantOf(const TransverselyIsotropicOf<Scalar>& solid,
                         const ElasticConstant constant) {
  return solid.*kElasticMembers<Scalar>[static_cast<std::size_t>(constant)];
}

/// The stiffness of such a solid in Hill's moduli [Pa] (hill1964):
///   sig_11 = n e_11 + l (e_22 + e_33),  (sig_22 + sig_33)/2 = l e_11 + k (e_22 + e_33),
///   sig_22 - sig_33 = 2 m (e_22 - e_33),  sig_12 = p gamma_12.
template <class Scalar>
struct HillModuliOf {
  Scalar k{};  ///< plane-strain bulk modulus for lateral dilatation without axial extension
  Scalar l{};  ///< cross modulus, C12
  Scalar n{};  ///< uniaxial-strain modulus along 1, C11
  Scalar m{};  ///< transverse shear modulus, G23
  Scalar p{};  ///< axial shear modulus, G12
};
using HillModuli = HillModuliOf<double>;

/// Stresses -sig at unit temperature rise and zero strain, beta = C alpha [Pa/K].
template <class Scalar>
struct AxisymmetricThermalStressOf {
  Scalar axial{};
  Scalar transverse{};
};

template <class Scalar>
HillModuliOf<Scalar> hillModuli(const TransverselyIsotropicOf<Scalar>& solid) {
  const Scalar k =
      solid.e22 / (2.0 * (1.0 - solid.v23 - 2.0 * solid.v12 * solid.v12 * solid.e22 / solid.e11));
  const Scalar l = 2.0 * k * solid.v12;
  return {k, l, solid.e11 + 2.0 * l * solid.v12, solid.e22 / (2.0 * (1.0 + solid.v23)), solid.g12};
}

/// Inverse of hillModuli(); the expansions are left at zero.
template <class Scalar>
TransverselyIsotropicOf<Scalar> transverselyIsotropicFrom(const HillModuliOf<Scalar>& hill) {
  TransverselyIsotropicOf<Scalar> solid;
  solid.v12 = hill.l / (2.0 * hill.k);
  solid.e11 = hill.n - 2.0 * hill.l * solid.v12;
  const Scalar softening = 4.0 * solid.v12 * solid.v12 / solid.e11;
  solid.e22 = 4.0 / (1.0 / hill.m + 1.0 / hill.k + softening);
  solid.v23 = solid.e22 / (2.0 * hill.m) - 1.0;
  solid.g12 = hill.p;
  return solid;
}

template <class Scalar>
AxisymmetricThermalStressOf<Scalar> thermalStress(const HillModuliOf<Scalar>& hill,
                                                  const Scalar& a11,
                                                  const Scalar& a22) {
  return {hill.n * a11 + 2.0 * hill.l * a22, hill.l * a11 + 2.0 * hill.k * a22};
}

/// An isotropic solid of Young's modulus e, Poisson's ratio v and expansion a.
template <class Scalar>
TransverselyIsotropicOf<Scalar> isotropic(const Scalar& e, const Scalar& v, const Scalar& a) {
  return {e, e, v, v, e / (2.0 * (1.0 + v)), a, a};
}

/// K and G of an isotropic solid.
template <class Scalar>
Scalar bulkModulus(const Scalar& e, const Scalar& v) {
  return e / (3.0 * (1.0 - 2.0 * v));
}
template <class Scalar>
Scalar shearModulus(const Scalar& e, const Scalar& v) {
  return e / (2.0 * (1.0 + v));
}

/// An isotropic solid of bulk modulus k, shear modulus g and expansion a.
template <class Scalar>
TransverselyIsotropicOf<Scalar> isotropicOfBulkAndShear(const Scalar& k,
                                                        const Scalar& g,
                                                        const Scalar& a) {
  const Scalar sum = 3.0 * k + g;
  return isotropic<Scalar>(9.0 * k * g / sum, (3.0 * k - 2.0 * g) / (2.0 * sum), a);
}

/// Takes E11 E22 v12 v23 G12 A11 A22; the other five follow from the symmetry and are not looked
/// at.
template <class Scalar>
TransverselyIsotropicOf<Scalar> transverselyIsotropic(const PropertiesOf<Scalar>& p) {
  return {p.e11, p.e22, p.v12, p.v23, p.g12, p.a11, p.a22};
}

/// All twelve constants: G23 = E22 / (2 (1 + v23)), and 3 like 2.
template <class Scalar>
PropertiesOf<Scalar> properties(const TransverselyIsotropicOf<Scalar>& s) {
  const Scalar g23 = s.e22 / (2.0 * (1.0 + s.v23));
  return {s.e11, s.e22, s.e22, s.v12, s.v12, s.v23, s.g12, s.g12, g23, s.a11, s.a22, s.a22};
}

/// As isAdmissible(Properties): finite, E11, E22, G12 > 0, 1 + v23 > 0 and
/// 1 - v23 > 2 v12^2 E22/E11.
bool isAdmissible(const TransverselyIsotropic& solid) noexcept;

}  // namespace kx

#endif
