// SPDX-License-Identifier: BSD-3-Clause
#include "check/Wording.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace lamkit {
namespace {

const std::vector<std::string> kNames{"LAMINA", "LAMINATE", "FIBER", "MATRIX", "FVF", "BVF"};

TEST(Nearest, FindsTheNameWithAFewLettersWrong) {
  EXPECT_EQ(nearest("LAMINNA", kNames), "LAMINA");
  EXPECT_EQ(nearest("FIBRE", kNames), "FIBER");
  EXPECT_EQ(nearest("matrix", kNames), "MATRIX");
}

TEST(Nearest, FindsNothingWhereNothingIsNear) {
  EXPECT_EQ(nearest("ELASTIC", kNames), "");
  EXPECT_EQ(nearest("", kNames), "");
  EXPECT_EQ(nearest(std::string(100000, 'A'), kNames), "");
}

TEST(Shown, IsTheSameInEveryLocale) {
  EXPECT_EQ(shown(0.5), "0.5");
  EXPECT_EQ(shown(171.42e9, "Pa"), "1.714e+11 Pa");
  EXPECT_EQ(shownRange(1e9, 1e12, "Pa"), "1e+09 to 1e+12 Pa");
}

TEST(UnitOf, FollowsTheUnitSystemAndTakesOthersForTheFirst) {
  EXPECT_EQ(unitOf(lamcraft::Dimension::stress, 1), "Pa");
  EXPECT_EQ(unitOf(lamcraft::Dimension::stress, 2), "MPa");
  EXPECT_EQ(unitOf(lamcraft::Dimension::stress, 3), "psi");
  EXPECT_EQ(unitOf(lamcraft::Dimension::inverseTemperature, 4), "1/R");
  EXPECT_EQ(unitOf(lamcraft::Dimension::stress, 7), "Pa");
  EXPECT_EQ(unitOf(lamcraft::Dimension::none, 1), "");
}

TEST(Listed, JoinsWithCommasAndOr) {
  EXPECT_EQ(listed({"A", "B", "C"}), "A, B or C");
  EXPECT_EQ(listed({"A"}), "A");
  EXPECT_EQ(joined({"A", "B"}), "A, B");
}

}  // namespace
}  // namespace lamkit
