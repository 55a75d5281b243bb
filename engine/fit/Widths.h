// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_WIDTHS_H
#define KX_FIT_WIDTHS_H

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace kx {

/// A constant that a fit moves: how far its start value is to be trusted, and where it must stay.
struct Unknown {
  std::string_view name;
  /// One standard deviation of the start value: of its logarithm (a modulus), or of itself (a
  /// Poisson's ratio).
  double width = 0.0;
  double lowest = 0.0;   ///< of a ratio; a modulus stays within kModulusFactor of its start
  double highest = 0.0;  ///< 0 for a modulus

  [[nodiscard]] constexpr bool isRatio() const { return highest != 0.0; }
};

inline constexpr double kModulusFactor = 5.0;

/// A fiber's constants, in the order of kElasticMembers.
using FiberUnknowns = std::array<Unknown, 5>;

/// - E11: makers measure it on tows, to 3 to 5 %.
/// - E22, v23, G12 are inferred from laminae, never measured directly. Of T300 and AS4 alone E22 is
///   given as 13.8 to 22 GPa, G12 as 9 to 28 GPa (soden1998, daniel2006, sun1996, bowles1989), v23
///   of carbon as 0.07 to 0.49, v12 as 0.2 to 0.35 (soden1998, kaddour2012, daniel2006).
inline constexpr FiberUnknowns kFiberUnknowns{{
    {"fiber E11", 0.05},
    {"fiber E22", 0.40},
    {"fiber v12", 0.08, 0.01, 0.49},
    {"fiber v23", 0.20, 0.01, 0.75},
    {"fiber G12", 0.40},
}};

/// Glass, boron and basalt are isotropic. What remains is the interphase, the packing of the fibers
/// and the scatter of the tests: E22 of glass laminae lies within a tenth of what isotropic glass
/// gives (soden1998, daniel2006).
inline constexpr FiberUnknowns kIsotropicFiberUnknowns{{
    {"fiber E11", 0.05},
    {"fiber E22", 0.12},
    {"fiber v12", 0.04, 0.01, 0.49},
    {"fiber v23", 0.08, 0.01, 0.75},
    {"fiber G12", 0.12},
}};

/// Published data are rounded: a fiber counts as isotropic when its constants are so to 1 %.
inline constexpr double kIsotropicWithin = 0.01;

/// Bulk and shear modulus of an isotropic matrix. The resin in a ply is stiffer in shear than the
/// cast one: the laminae of soden1998 ask for 1.2 to 1.5 times. Bulk moduli of epoxies are 4 to
/// 6 GPa.
inline constexpr std::array<Unknown, 2> kIsotropicMatrixUnknowns{{
    {"matrix K", 0.25},
    {"matrix G", 0.35},
}};

/// Poisson's ratio that bulk and shear modulus of an isotropic matrix may give.
inline constexpr double kLowestMatrixRatio = 0.05;
inline constexpr double kHighestMatrixRatio = 0.48;

/// Constants of a transversely isotropic matrix, in the order of kElasticMembers.
inline constexpr std::array<Unknown, 5> kTransverseMatrixUnknowns{{
    {"matrix E11", 0.35},
    {"matrix E22", 0.35},
    {"matrix v12", 0.04, 0.02, 0.49},
    {"matrix v23", 0.06, 0.02, 0.60},
    {"matrix G12", 0.35},
}};

/// One standard deviation of a start value for an expansion: a part of it, at least `least` [1/K].
struct ExpansionWidth {
  double part = 0.0;
  double least = 0.0;

  [[nodiscard]] double of(const double start) const {
    return std::max(part * std::abs(start), least);
  }
};

/// A11 of carbon is given as -0.1e-6 to -1.1e-6 (bowles1989); A22 is inferred from laminae, 6e-6 to
/// 15e-6 (bowles1989, soden1998). Glass is measured as such. Resins: 45e-6 to 65e-6 (soden1998).
inline constexpr ExpansionWidth kFiberAxialExpansion{0.0, 0.5e-6};
inline constexpr ExpansionWidth kFiberTransverseExpansion{0.30, 2e-6};
inline constexpr ExpansionWidth kIsotropicFiberExpansion{0.0, 0.5e-6};
inline constexpr ExpansionWidth kMatrixExpansion{0.25, 1e-6};

}  // namespace kx

#endif
