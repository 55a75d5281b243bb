// SPDX-License-Identifier: BSD-3-Clause
#include "variation/Distribution.h"

#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lamcraft {
namespace {

using testing::ElementsAre;

std::vector<std::string> parametersOf(const Distribution& distribution) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < distribution.parameterCount(); ++i) {
    names.emplace_back(distribution.parameterName(i));
  }
  return names;
}

TEST(Distribution, HasTheNamesOfItsKind) {
  EXPECT_STREQ(Gaussian().name(), "normal");
  EXPECT_STREQ(TruncGaussian().name(), "truncatednormal");
  EXPECT_STREQ(Weibull2().name(), "weibull2");
  EXPECT_STREQ(Weibull3().name(), "weibull3");
  EXPECT_STREQ(ExtILarge().name(), "ext_i_large");
  EXPECT_THAT(parametersOf(Gaussian()), ElementsAre("mean", "stddev"));
  EXPECT_THAT(parametersOf(TruncGaussian()),
              ElementsAre("mean", "stddev", "lowerbound", "upperbound"));
  EXPECT_THAT(parametersOf(Weibull2()), ElementsAre("shapeparam", "charvalue"));
  EXPECT_THAT(parametersOf(Weibull3()), ElementsAre("shapeparam", "charvalue", "locationparam"));
  EXPECT_THAT(parametersOf(ExtILarge()), ElementsAre("charlargevalue", "beta"));
}

TEST(Distribution, StartsWithZerosAndNoFlag) {
  const TruncGaussian distribution;
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(distribution.parameter(i), 0.0);
  }
  EXPECT_FALSE(distribution.flag());
  EXPECT_FALSE(distribution.hasSpread());
}

TEST(Distribution, CopiesItsNumbers) {
  Weibull3 original;
  original.setParameter(2, 5.0);
  const Weibull3 copy = original;
  EXPECT_EQ(copy.parameter(2), 5.0);
  EXPECT_STREQ(copy.name(), "weibull3");
  Weibull3 assigned;
  assigned = original;
  EXPECT_EQ(assigned.parameter(2), 5.0);
}

TEST(Distribution, CannotBeCopiedWithoutItsKind) {
  static_assert(!std::is_copy_constructible_v<Distribution>);
  static_assert(!std::is_copy_assignable_v<Distribution>);
  static_assert(std::has_virtual_destructor_v<Distribution>);
}

template <typename Kind>
std::string spreadsOf() {
  std::string names;
  for (std::size_t i = 0; i < Kind().parameterCount(); ++i) {
    Kind distribution;
    distribution.setParameter(i, -1.0);
    EXPECT_FALSE(distribution.hasSpread()) << "a negative number is no spread";
    distribution.setParameter(i, 1.0);
    names += distribution.hasSpread() ? distribution.parameterName(i) : "";
  }
  return names;
}

TEST(Distribution, HasOneParameterThatMeansSpread) {
  EXPECT_EQ(spreadsOf<Gaussian>(), "stddev");
  EXPECT_EQ(spreadsOf<TruncGaussian>(), "stddev");
  EXPECT_EQ(spreadsOf<Weibull2>(), "charvalue");
  EXPECT_EQ(spreadsOf<Weibull3>(), "charvalue");
  EXPECT_EQ(spreadsOf<ExtILarge>(), "beta");
}

template <typename Kind>
std::string unscaledOf() {
  Kind distribution;
  for (std::size_t i = 0; i < distribution.parameterCount(); ++i) {
    distribution.setParameter(i, 2.0);
  }
  distribution.scale(1000.0);
  std::string names;
  for (std::size_t i = 0; i < distribution.parameterCount(); ++i) {
    EXPECT_TRUE(distribution.parameter(i) == 2.0 || distribution.parameter(i) == 2000.0);
    names += distribution.parameter(i) == 2.0 ? distribution.parameterName(i) : "";
  }
  return names;
}

TEST(Distribution, ScalesAllButTheShapeParameters) {
  EXPECT_EQ(unscaledOf<Gaussian>(), "");
  EXPECT_EQ(unscaledOf<TruncGaussian>(), "");
  EXPECT_EQ(unscaledOf<Weibull2>(), "shapeparam");
  EXPECT_EQ(unscaledOf<Weibull3>(), "shapeparam");
  EXPECT_EQ(unscaledOf<ExtILarge>(), "");
}

}  // namespace
}  // namespace lamcraft
