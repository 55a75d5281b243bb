// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_TESTS_CONTRACT_CONTRACT_H
#define KX_TESTS_CONTRACT_CONTRACT_H

#include <array>
#include <cstdint>

#include "contract/ContractCalls.h"
#include "elastic/Properties.h"
#include "elastic/TransverselyIsotropic.h"
#include "lamcraft/kxdriver.h"
#include "lamina/UnidirectionalLamina.h"

namespace kx::test {

using Twelve = std::array<double, 12>;

inline Twelve twelve(const TransverselyIsotropic& solid) {
  Twelve array{};
  copyTo(properties(solid), array.data());
  return array;
}

/// A carbon/epoxy lamina with start values that are not those it was made of, and S-N records in
/// both directions.
struct UnidirectionalCall : UniOptimization {
  UnidirectionalCall() {
    fiberVolumeFraction = 0.6;
    const TransverselyIsotropic trueFiber{214e9, 14e9, 0.22, 0.3, 17e9, -0.6e-6, 12e-6};
    const auto trueMatrix = isotropic(4.6e9, 0.36, 50e-6);
    lamina = twelve(homogenise(trueFiber, trueMatrix, fiberVolumeFraction).effective);
    fiber = twelve({225e9, 15e9, 0.2, 0.25, 15e9, -0.5e-6, 15e-6});
    matrix = twelve(isotropic(4.2e9, 0.34, 45e-6));
    temperature = 296.15;
    sn = {{1400e6, 1e3, 5, 0, 0.1},
          {1250e6, 3e4, 5, 0, 0.1},
          {1100e6, 1e6, 5, 0, 0.1},
          {38e6, 1e3, 5, 90, 0.1},
          {33e6, 4e4, 5, 90, 0.1},
          {28e6, 1e6, 5, 90, 0.1}};
    strengths = {1950e6, 1480e6, 48e6, 200e6, 79e6, 55e6};
  }

  void run() { run(static_cast<std::int32_t>(sn.size())); }
  void run(const std::int32_t count) {
    snCount = count;
    UniOptimization::run();
  }
};

}  // namespace kx::test

#endif
