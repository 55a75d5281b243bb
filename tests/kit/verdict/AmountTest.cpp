// SPDX-License-Identifier: BSD-3-Clause
#include "verdict/Amount.h"

#include <limits>

#include <gtest/gtest.h>

namespace lamkit {
namespace {

using lamcraft::Dimension;

TEST(Amount, HasAUnitThatKeepsItShort) {
  EXPECT_EQ(amount(126e9, Dimension::stress), "126 GPa");
  EXPECT_EQ(amount(-55.5e6, Dimension::stress), "-55.5 MPa");
  EXPECT_EQ(amount(12.0, Dimension::stress), "12 Pa");
  EXPECT_EQ(amount(4.5e-5, Dimension::inverseTemperature), "4.5e-05 1/K");
  EXPECT_EQ(amount(0.3333333, Dimension::none), "0.3333");
  EXPECT_EQ(amount(std::numeric_limits<double>::quiet_NaN(), Dimension::stress), "nan Pa");
}

TEST(Amount, SaysHowMuchInPerCent) {
  EXPECT_EQ(percent(-0.0321), "3.2 %");
  EXPECT_EQ(percent(0.317), "31.7 %");
}

}  // namespace
}  // namespace lamkit
