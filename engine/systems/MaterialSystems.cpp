// SPDX-License-Identifier: BSD-3-Clause
#include "systems/MaterialSystems.h"

#include <array>
#include <cstddef>

#include "elastic/TransverselyIsotropic.h"

namespace kx {
namespace {

enum class FiberFamily : std::size_t { carbonLow, carbonIntermediate, carbonHigh, glass, aramid };
enum class MatrixFamily : std::size_t { thermoset, thermoplastic, bismaleimide };

// E11, E22, v12, v23, G12, A11, A22. Middle values of the sources named; where these disagree by
// more than their scatter (G12, v23 and A22 of fibers are inferred, not measured) the value that
// gives the laminae of the same sources.
constexpr std::array<TransverselyIsotropic, 5> kFibers{{
    // T300, AS4: soden1998, daniel2006, sun1996, bowles1989.
    {230e9, 14.5e9, 0.20, 0.25, 20e9, -0.6e-6, 12e-6},
    // IM6, IM7, T800: daniel2006, kaddour2012, aboudi2021.
    {280e9, 17e9, 0.20, 0.30, 22e9, -0.5e-6, 8e-6},
    // HMS, M40: murthy1986; transverse values towards P75 of bowles1989.
    {390e9, 7e9, 0.20, 0.30, 10e9, -0.9e-6, 7e-6},
    // E-glass, isotropic: soden1998, daniel2006, aboudi2021. G12 is E / (2 (1 + v)).
    {73e9, 73e9, 0.22, 0.22, 73e9 / 2.44, 5e-6, 5e-6},
    // Kevlar 49: daniel2006, murthy1986.
    {131e9, 5.5e9, 0.34, 0.35, 2.9e9, -3e-6, 57e-6},
}};

/// Young's modulus, Poisson's ratio, expansion.
struct IsotropicMatrix {
  double e, v, a;
};

constexpr std::array<IsotropicMatrix, 3> kMatrices{{
    {3.5e9, 0.35, 57e-6},  // epoxies: soden1998, daniel2006, aboudi2021
    {3.7e9, 0.38, 50e-6},  // PEEK below its glass transition: daniel2006
    {4.0e9, 0.36, 46e-6},  // bismaleimides; few published values, trust 15 %: kaddour2012
}};

struct SystemRow {
  FiberFamily fiber;
  MatrixFamily matrix;
};

// Numbered from 1.
constexpr std::array<SystemRow, 18> kSystems{{
    {FiberFamily::carbonLow, MatrixFamily::thermoset},               // CFRP
    {FiberFamily::glass, MatrixFamily::thermoset},                   // GFRP
    {FiberFamily::aramid, MatrixFamily::thermoset},                  // KFRP
    {FiberFamily::carbonLow, MatrixFamily::thermoset},               // CFL-TSP
    {FiberFamily::carbonLow, MatrixFamily::thermoplastic},           // CFL-TPP
    {FiberFamily::carbonLow, MatrixFamily::bismaleimide},            // CFL-BMI
    {FiberFamily::carbonIntermediate, MatrixFamily::thermoset},      // CFI-TSP
    {FiberFamily::carbonIntermediate, MatrixFamily::thermoplastic},  // CFI-TPP
    {FiberFamily::carbonIntermediate, MatrixFamily::bismaleimide},   // CFI-BMI
    {FiberFamily::carbonHigh, MatrixFamily::thermoset},              // CFH-TSP
    {FiberFamily::carbonHigh, MatrixFamily::thermoplastic},          // CFH-TPP
    {FiberFamily::carbonHigh, MatrixFamily::bismaleimide},           // CFH-BMI
    {FiberFamily::glass, MatrixFamily::thermoset},                   // GF-TSP
    {FiberFamily::glass, MatrixFamily::thermoplastic},               // GF-TPP
    {FiberFamily::glass, MatrixFamily::bismaleimide},                // GF-BMI
    {FiberFamily::aramid, MatrixFamily::thermoset},                  // KF-TSP
    {FiberFamily::aramid, MatrixFamily::thermoplastic},              // KF-TPP
    {FiberFamily::aramid, MatrixFamily::bismaleimide},               // KF-BMI
}};

}  // namespace

SystemDefaults systemDefaults(const std::int32_t number) noexcept {
  if (number < 1 || static_cast<std::size_t>(number) > kSystems.size()) {
    return {};
  }
  const SystemRow& row = kSystems[static_cast<std::size_t>(number) - 1];
  const auto& [e, v, a] = kMatrices[static_cast<std::size_t>(row.matrix)];
  return {properties(kFibers[static_cast<std::size_t>(row.fiber)]), properties(isotropic(e, v, a))};
}

}  // namespace kx
