// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_UNITS_H
#define LAMKIT_CHECK_UNITS_H

#include <array>
#include <string_view>

namespace lamkit {

/// A unit that values may have been meant in, and what it is in N, m, K and kg.
struct Unit {
  std::string_view name;
  double factor;
};

// Exact by definition: 1 in = 0.0254 m, 1 lb = 0.45359237 kg, g = 9.80665 m/s2.
inline constexpr double kPsi = 6894.757293168361;

/// In the order in which they are thought of.
inline constexpr std::array<Unit, 9> kStressUnits{{
    {"GPa", 1e9},
    {"MPa", 1e6},
    {"Pa", 1.0},
    {"psi", kPsi},
    {"ksi", 1e3 * kPsi},
    {"Msi", 1e6 * kPsi},
    {"psf", kPsi / 144.0},
    {"kgf/mm2", 9.80665e6},
    {"kPa", 1e3},
}};

inline constexpr std::array<Unit, 7> kDensityUnits{{
    {"g/cm3", 1e3},
    {"kg/m3", 1.0},
    {"kg/mm3", 1e9},
    {"t/mm3", 1e12},
    {"lb/in3", 0.45359237 / (0.0254 * 0.0254 * 0.0254)},
    {"lb/ft3", 0.45359237 / (0.3048 * 0.3048 * 0.3048)},
    {"g/mm3", 1e6},
}};

inline constexpr std::array<Unit, 6> kLengthUnits{{
    {"mm", 1e-3},
    {"m", 1.0},
    {"micrometre", 1e-6},
    {"in", 0.0254},
    {"mil", 0.0254e-3},
    {"ft", 0.3048},
}};

inline constexpr std::array<Unit, 6> kExpansionUnits{{
    {"1e-6/K", 1e-6},
    {"1/K", 1.0},
    {"1/R", 1.8},
    {"1e-6/F", 1.8e-6},
    {"1e-3/K", 1e-3},
    {"1e-5/K", 1e-5},
}};

inline constexpr std::array<Unit, 6> kEnergyUnits{{
    {"kJ/m2", 1e3},
    {"J/m2", 1.0},
    {"lbf/in", 175.12683524647636},
    {"lbf/ft", 14.593902937206364},
    {"J/mm2", 1e6},
    {"MJ/m2", 1e6},
}};

/// Cohesive stiffness, which the program takes per metre (per inch or foot in no system).
inline constexpr std::array<Unit, 4> kPenaltyUnits{{
    {"N/mm3", 1e9},
    {"Pa/m", 1.0},
    {"MPa/m", 1e6},
    {"lbf/in3", kPsi / 0.0254},
}};

inline constexpr std::array<Unit, 2> kRatioUnits{{
    {"per cent", 1e-2},
    {"microstrain", 1e-6},
}};

}  // namespace lamkit

#endif
