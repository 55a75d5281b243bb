// SPDX-License-Identifier: BSD-3-Clause
#include "report/PlyCurves.h"

#include <cmath>

#include <gtest/gtest.h>

namespace lamkit {
namespace {

const kx::Properties kPly{
    126e9, 11e9, 11e9, 0.28, 0.28, 0.40, 6.6e9, 6.6e9, 11e9 / 2.8, -1e-6, 26e-6, 26e-6};

TEST(OffAxisCurve, StartsAndEndsWithThePlysOwnConstants) {
  const auto curve = offAxisCurve(kPly);
  ASSERT_EQ(curve.size(), 31U);
  EXPECT_EQ(curve.front().angle, 0.0);
  EXPECT_NEAR(curve.front().modulus / kPly.e11, 1.0, 1e-12);
  EXPECT_NEAR(curve.front().shear / kPly.g12, 1.0, 1e-12);
  EXPECT_NEAR(curve.front().ratio, kPly.v12, 1e-12);
  EXPECT_EQ(curve.back().angle, 90.0);
  EXPECT_NEAR(curve.back().modulus / kPly.e22, 1.0, 1e-12);
  EXPECT_NEAR(curve.back().ratio, kPly.v12 * kPly.e22 / kPly.e11, 1e-12);
}

TEST(OffAxisCurve, FollowsTheClosedForm) {
  // R.M. Jones, Mechanics of Composite Materials, 2nd ed. 1999, equation 2.97.
  for (const OffAxis& point : offAxisCurve(kPly)) {
    const double angle = point.angle * std::acos(-1.0) / 180.0;
    const double c2 = std::cos(angle) * std::cos(angle);
    const double s2 = std::sin(angle) * std::sin(angle);
    const double flexibility = c2 * c2 / kPly.e11 + s2 * s2 / kPly.e22 +
                               (1.0 / kPly.g12 - 2.0 * kPly.v12 / kPly.e11) * s2 * c2;
    EXPECT_NEAR(point.modulus * flexibility, 1.0, 1e-12) << point.angle;
    const double shearFlexibility =
        2.0 * (2.0 / kPly.e11 + 2.0 / kPly.e22 + 4.0 * kPly.v12 / kPly.e11 - 1.0 / kPly.g12) * s2 *
            c2 +
        (s2 * s2 + c2 * c2) / kPly.g12;
    EXPECT_NEAR(point.shear * shearFlexibility, 1.0, 1e-12) << point.angle;
  }
}

}  // namespace
}  // namespace lamkit
