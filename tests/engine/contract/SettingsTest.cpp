// SPDX-License-Identifier: BSD-3-Clause
#include <limits>

#include <gtest/gtest.h>

#include "contract/Contract.h"
#include "systems/MaterialSystems.h"

namespace {

TEST(Settings, DefaultPropertiesAreThoseOfTheSystem) {
  for (std::int32_t system = 0; system <= 19; ++system) {
    kx::test::Twelve fiber, matrix, expected;
    fiber.fill(-7);
    matrix.fill(-7);
    double block[2] = {-7, -7};
    FHT_GETDEFPROPS(&system, fiber.data(), matrix.data(), &block[1], &block[0]);
    const auto defaults = kx::systemDefaults(system);
    kx::copyTo(defaults.fiber, expected.data());
    EXPECT_EQ(fiber, expected) << system;
    kx::copyTo(defaults.matrix, expected.data());
    EXPECT_EQ(matrix, expected) << system;
    EXPECT_EQ(block[0], 0.0);
    EXPECT_EQ(block[1], 0.0);
  }
}

TEST(Settings, MaximumErrorsNeverChangeWhatAFitFinds) {
  kx::test::UnidirectionalCall usual;
  usual.run();
  for (const double limit : {0.5, 1e-12, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    for (const std::int32_t kind : {2, 3, 99}) {
      for (const std::int32_t selector : {1, 2, 3}) {
        SETMAXERROR(&kind, &selector, &limit);
      }
    }
    kx::test::UnidirectionalCall call;
    call.run();
    EXPECT_EQ(call.fiber, usual.fiber) << limit;
    EXPECT_EQ(call.errors, usual.errors) << limit;
  }
}

}  // namespace
