#include <array>

#include <gtest/gtest.h>

#include "driver/Contract.h"

namespace {

TEST(WeaveOptimization, FitThatCannotStartKeepsTheStartValues) {
  const kx::test::UnidirectionalCall materials;
  auto lamina = materials.lamina;
  auto fiber = materials.fiber;
  auto matrix = materials.matrix;
  std::array<double, 6> errors{-7, -7, -7, -7, -7, -7};
  std::array<std::int32_t, 3> iterations{-7, -7, -7};
  const std::int32_t harness = 1, zero = 0;
  const double tows[] = {0.0, 0.0};
  const double fraction = 0.0;
  WEAVE_OPTIMIZATION(&harness,
                     tows,
                     &fraction,
                     lamina.data(),
                     fiber.data(),
                     matrix.data(),
                     errors.data(),
                     iterations.data(),
                     "DUMB",
                     "DUMB",
                     "DUMB",
                     &zero,
                     &zero);
  EXPECT_EQ(fiber, materials.fiber);
  EXPECT_EQ(matrix, materials.matrix);
  EXPECT_GE(errors[1], errors[0]);
  EXPECT_GE(errors[3], errors[2]);
  EXPECT_EQ(errors[4], -7);
  EXPECT_EQ(iterations[0], 0);
  EXPECT_EQ(iterations[1], 0);
  EXPECT_EQ(iterations[2], -7);
}

}  // namespace
