// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_TESTS_SUPPORT_RANDOMMATERIALS_H
#define KX_TESTS_SUPPORT_RANDOMMATERIALS_H

#include <cmath>
#include <random>

#include "elastic/TransverselyIsotropic.h"

namespace kx::test {

/// Admissible solids drawn over the ranges of engineering fibers and matrices; the seed is fixed
/// by the test, and the numbers come from the engine's bits alone, so they are the same everywhere.
class RandomMaterials {
 public:
  explicit RandomMaterials(const unsigned seed) : engine_(seed) {}

  double uniform(const double low, const double high) {
    return low + (high - low) * (static_cast<double>(engine_()) / 4294967296.0);
  }
  double logUniform(const double low, const double high) {
    return low * std::exp(uniform(0.0, std::log(high / low)));
  }

  /// By Box and Muller, so that the numbers are the same with every standard library.
  double normal() {
    const double radius = std::sqrt(-2.0 * std::log(1.0 - uniform(0.0, 1.0)));
    return radius * std::cos(2.0 * 3.14159265358979323846 * uniform(0.0, 1.0));
  }

  TransverselyIsotropic transverselyIsotropic(const double lowModulus, const double highModulus) {
    TransverselyIsotropic solid;
    do {
      solid = {logUniform(lowModulus, highModulus),
               logUniform(lowModulus, highModulus),
               uniform(-0.2, 0.45),
               uniform(-0.3, 0.75),
               logUniform(lowModulus / 3.0, highModulus / 3.0),
               uniform(-2e-6, 2e-5),
               uniform(1e-6, 6e-5)};
    } while (!isAdmissible(solid));
    return solid;
  }
  TransverselyIsotropic anyFiber() { return transverselyIsotropic(2e9, 6e11); }
  TransverselyIsotropic anyMatrix() { return transverselyIsotropic(5e8, 8e10); }

  TransverselyIsotropic isotropicMatrix() {
    return isotropic(logUniform(1e9, 8e9), uniform(0.28, 0.42), uniform(3e-5, 7e-5));
  }
  TransverselyIsotropic carbonFiber() {
    return {uniform(2e11, 4e11),
            uniform(9e9, 2.2e10),
            uniform(0.17, 0.3),
            uniform(0.1, 0.5),
            uniform(8e9, 3e10),
            uniform(-1e-6, -1e-7),
            uniform(5e-6, 1.5e-5)};
  }
  TransverselyIsotropic glassFiber() {
    return isotropic(uniform(6.9e10, 9e10), uniform(0.18, 0.25), uniform(3e-6, 6e-6));
  }

 private:
  std::mt19937 engine_;
};

}  // namespace kx::test

#endif
