// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_ELASTIC_PROPERTIES_H
#define KX_ELASTIC_PROPERTIES_H

#include <array>
#include <cstddef>

namespace kx {

/// The twelve thermoelastic engineering constants of an orthotropic solid.
///
/// Moduli in Pa, Poisson's ratios dimensionless, expansions in 1/K. Axis 1 runs along the fiber
/// (lamina, fiber, tow) or along the fill tows (weave), axis 3 is the ply normal.
/// v_ij = -strain_j / strain_i under a stress along i, so that S_12 = -v12/E11 and S_23 = -v23/E22.
/// Scalar is double or an automatic differentiation type such as ceres::Jet.
template <class Scalar>
struct PropertiesOf {
  Scalar e11{}, e22{}, e33{};
  Scalar v12{}, v13{}, v23{};
  Scalar g12{}, g13{}, g23{};
  Scalar a11{}, a22{}, a33{};
};
using Properties = PropertiesOf<double>;

inline constexpr std::size_t kPropertyCount = 12;

/// The members in the order in which property arrays hold them; the one place that lists it.
template <class Scalar>
inline constexpr std::array<Scalar PropertiesOf<Scalar>::*, kPropertyCount> kPropertyOrder{{
    &PropertiesOf<Scalar>::e11,
    &PropertiesOf<Scalar>::e22,
    &PropertiesOf<Scalar>::e33,
    &PropertiesOf<Scalar>::v12,
    &PropertiesOf<Scalar>::v13,
    &PropertiesOf<Scalar>::v23,
    &PropertiesOf<Scalar>::g12,
    &PropertiesOf<Scalar>::g13,
    &PropertiesOf<Scalar>::g23,
    &PropertiesOf<Scalar>::a11,
    &PropertiesOf<Scalar>::a22,
    &PropertiesOf<Scalar>::a33,
}};

/// Reads twelve contiguous doubles.
Properties propertiesFrom(const double* array) noexcept;

/// Writes twelve contiguous doubles.
void copyTo(const Properties& properties, double* array) noexcept;

/// True when all twelve numbers are finite.
bool isFinite(const Properties& properties) noexcept;

/// `elastic` with the expansions of another set.
Properties withExpansionsOf(const Properties& other, Properties elastic) noexcept;

/// True when all twelve numbers are finite and the elastic energy is positive for every strain:
/// E and G > 0 and a positive definite compliance of the normal components (Lempriere 1968).
bool isAdmissible(const Properties& properties) noexcept;

}  // namespace kx

#endif
