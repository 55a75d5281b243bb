// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/ScaledBessel.h"

#include <cmath>

#include <gtest/gtest.h>

#include "support/ReferenceData.h"

namespace {

TEST(ScaledBessel, AgreesWithTheStandardLibrary) {
  for (double x = 0.0; x < 300.0; x = x * 1.07 + 0.01) {
    const auto bessel = kx::scaledBessel(x);
    const double i0 = std::exp(-x) * std::cyl_bessel_i(0.0, x);
    const double i1 = std::exp(-x) * std::cyl_bessel_i(1.0, x);
    // the error that the approximation's source states
    EXPECT_NEAR(bessel.i0, i0, 6e-7 * i0) << x;
    EXPECT_NEAR(bessel.i1, i1, 6e-7 * i1) << x;
  }
}

TEST(ScaledBessel, GivesTheMeanOfTheExponentialOfASine) {
  const auto published = kx::test::reference("published.json");
  for (const auto& entry : published) {
    if (entry["id"] == "method_kinetic_zhurkov_hsiao") {
      for (const auto& [amplitude, mean] : entry["targets"]["sine_mean"].items()) {
        const double a = std::stod(amplitude);
        EXPECT_NEAR(kx::scaledBessel(a).i0 * std::exp(a) / mean.get<double>(), 1.0, 1e-6) << a;
      }
      return;
    }
  }
  FAIL() << "no reference";
}

}  // namespace
