#ifndef KX_TESTS_DRIVER_CONTRACT_H
#define KX_TESTS_DRIVER_CONTRACT_H

#include <array>
#include <cstdint>
#include <vector>

#include "elastic/Properties.h"
#include "elastic/TransverselyIsotropic.h"
#include "lamina/UnidirectionalLamina.h"
#include "micromech/kxdriver.h"

namespace kx::test {

using Twelve = std::array<double, 12>;
using SnRow = std::array<double, 5>;

inline Twelve twelve(const TransverselyIsotropic& solid) {
  Twelve array{};
  copyTo(properties(solid), array.data());
  return array;
}

/// The arguments of UNI_OPTIMIZATION as the program holds them: a carbon/epoxy lamina with start
/// values that are not those it was made of, and S-N records in both directions.
struct UnidirectionalCall {
  double fiberFraction = 0.6;
  Twelve lamina{};
  Twelve fiber = twelve({225e9, 15e9, 0.2, 0.25, 15e9, -0.5e-6, 15e-6});
  Twelve matrix = twelve(isotropic(4.2e9, 0.34, 45e-6));
  double temperature = 296.15;
  std::vector<SnRow> sn{{1400e6, 1e3, 5, 0, 0.1},
                        {1250e6, 3e4, 5, 0, 0.1},
                        {1100e6, 1e6, 5, 0, 0.1},
                        {38e6, 1e3, 5, 90, 0.1},
                        {33e6, 4e4, 5, 90, 0.1},
                        {28e6, 1e6, 5, 90, 0.1}};
  std::array<double, 12> rows{};
  std::array<double, 6> strengths{1950e6, 1480e6, 48e6, 200e6, 79e6, 55e6};
  std::array<double, 6> errors{-7, -7, -7, -7, -7, -7};
  std::array<std::int32_t, 3> iterations{-7, -7, -7};

  UnidirectionalCall() {
    const TransverselyIsotropic trueFiber{214e9, 14e9, 0.22, 0.3, 17e9, -0.6e-6, 12e-6};
    const auto trueMatrix = isotropic(4.6e9, 0.36, 50e-6);
    lamina = twelve(homogenise(trueFiber, trueMatrix, fiberFraction).effective);
  }

  void run() {
    const auto count = static_cast<std::int32_t>(sn.size());
    run(count);
  }
  void run(std::int32_t snCount) {
    UNI_OPTIMIZATION(&fiberFraction,
                     lamina.data(),
                     fiber.data(),
                     matrix.data(),
                     &temperature,
                     &snCount,
                     sn.empty() ? nullptr : sn.front().data(),
                     rows.data(),
                     rows.data() + 6,
                     strengths.data(),
                     errors.data(),
                     iterations.data());
  }
};

}  // namespace kx::test

#endif
