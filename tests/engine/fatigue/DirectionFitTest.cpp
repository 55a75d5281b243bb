// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/DirectionFit.h"

#include <cmath>
#include <limits>
#include <random>
#include <utility>

#include <gtest/gtest.h>

#include "support/Bits.h"

namespace {

using kx::test::bitsOf;
constexpr double kTemperature = 296.15;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

kx::BondConstants constantsOf(double energy, double activation, double factor) {
  return {energy, energy, activation, activation, 1.0, factor};
}

/// Tests that follow the law, at the given ratios, with the strength that its ramp gives.
kx::DirectionData exactData(const kx::BondConstants& law, const std::vector<double>& ratios) {
  kx::DirectionData data;
  data.concentration = 0.1;
  data.strength = kx::rampStrength(law, kTemperature) / data.concentration;
  for (const double ratio : ratios) {
    for (const double level : {0.8, 0.65, 0.5, 0.4}) {
      kx::LifeTest test{level * data.strength, ratio, 0.0, 5.0};
      test.life = test.frequency * std::exp(kx::lnTimeToFailure(
                                       law, {test.peak * data.concentration, ratio, kTemperature}));
      data.tests.push_back(test);
    }
  }
  return data;
}

bool isFinite(const kx::BondConstants& c) {
  return std::isfinite(c.breakingEnergy + c.healingEnergy + c.breakingActivation +
                       c.healingActivation + c.loadTransfer + c.amplitudeFactor);
}

TEST(DirectionFit, ExactTestsAreMet) {
  const auto law = constantsOf(127e3, 4.5e-4, 0.7);
  const auto fit = kx::fitDirection(exactData(law, {0.1, 0.5, -1.0}), kTemperature);
  // the law is the priors' centre but for x, which the prior pulls by a fraction of its error
  EXPECT_LT(fit.finalError, 0.01);
  EXPECT_NEAR(fit.constants.breakingEnergy / law.breakingEnergy, 1.0, 0.01);
  EXPECT_NEAR(fit.constants.breakingActivation / law.breakingActivation, 1.0, 0.02);
  EXPECT_NEAR(fit.constants.amplitudeFactor, law.amplitudeFactor, 0.05);
  EXPECT_GT(fit.iterations, 0);
}

TEST(DirectionFit, LawsFarFromThePriorsAreReproduced) {
  for (const double energy : {105e3, 127e3, 150e3}) {
    for (const double factor : {0.2, 1.2}) {
      const auto law = constantsOf(energy, 4.5e-4, factor);
      const auto fit = kx::fitDirection(exactData(law, {0.1}), kTemperature);
      EXPECT_LT(fit.finalError, 0.1) << energy << " " << factor;
      EXPECT_LT(fit.finalError, fit.initialError + 1e-6);
    }
  }
}

TEST(DirectionFit, WithoutTestsThePriorMeetsTheStrength) {
  kx::DirectionData data;
  data.strength = 900e6;
  data.concentration = 0.08;
  const auto fit = kx::fitDirection(data, 296.0);
  EXPECT_NEAR(kx::rampStrength(fit.constants, 296.0) / (900e6 * 0.08), 1.0, 1e-9);
  EXPECT_NEAR(fit.constants.breakingEnergy, 127e3, 0.5e3);  // the prior stated for room temperature
  EXPECT_NEAR(fit.constants.amplitudeFactor, 0.7, 1e-9);
  EXPECT_DOUBLE_EQ(fit.constants.loadTransfer, 1.0);
  EXPECT_EQ(fit.finalError, 0.0);
}

TEST(DirectionFit, FewTestsLeaveTheAmplitudeFactorAtItsPrior) {
  auto data = exactData(constantsOf(120e3, 4.5e-4, 0.2), {0.1});
  data.tests.resize(2);
  EXPECT_NEAR(kx::fitDirection(data, kTemperature).constants.amplitudeFactor, 0.7, 1e-6);
}

TEST(DirectionFit, HealingIsTiedAndNegligible) {
  const auto law = constantsOf(127e3, 4.5e-4, 0.7);
  const auto fit = kx::fitDirection(exactData(law, {0.1}), kTemperature);
  EXPECT_EQ(fit.constants.healingEnergy, fit.constants.breakingEnergy);
  EXPECT_EQ(fit.constants.healingActivation, fit.constants.breakingActivation);
}

/// The pull of the tests on the deviation e from the strength, per e: 1/(standard deviation of its
/// prior)^2 where the sum of squares is least. For two tests, whose residuals are logarithms of
/// lives as they are, d(ln life)/de = x.
double priorWeight(const kx::DirectionFit& fit, const kx::DirectionData& data, double strength) {
  const double thermal = kx::kGasConstant * kTemperature;
  const double matrixStrength = strength * data.concentration;
  const double x = fit.constants.breakingActivation * matrixStrength / thermal;
  const double e = kx::rampStrength(fit.constants, kTemperature) / matrixStrength - 1.0;
  double pull = 0.0;
  for (const auto& test : data.tests) {
    const double life = kx::lnTimeToFailure(
        fit.constants, {test.peak * data.concentration, test.ratio, kTemperature});
    pull += x * (life - std::log(test.life / test.frequency));
  }
  return -pull / e;
}

TEST(DirectionFit, StrengthIsTrustedToFivePercentAndTheLargestPeakToFifty) {
  auto data = exactData(constantsOf(120e3, 4.5e-4, 0.7), {0.1});
  data.tests.resize(2);
  data.strength *= 1.2;
  // quotients of small differences, which the solver leaves with a relative error of 1e-4 at most
  EXPECT_NEAR(priorWeight(kx::fitDirection(data, kTemperature), data, data.strength) * 0.05 * 0.05,
              1.0,
              1e-3);
  const double largest = data.tests.front().peak;
  data.strength = 0.0;
  EXPECT_NEAR(
      priorWeight(kx::fitDirection(data, kTemperature), data, largest) * 0.5 * 0.5, 1.0, 1e-3);
}

TEST(DirectionFit, AmplitudeFactorIsNeverNegative) {
  auto data = exactData(constantsOf(127e3, 4.5e-4, 0.0), {0.1});
  data.strength *= 0.75;  // tests that outlive what the strength allows ask for k < 0
  const auto fit = kx::fitDirection(data, kTemperature);
  EXPECT_GE(fit.constants.amplitudeFactor, 0.0);
  EXPECT_LT(fit.finalError, 0.3);
}

TEST(DirectionFit, ConcentrationScalesTheActivationOnly) {
  auto data = exactData(constantsOf(120e3, 4.5e-4, 0.5), {0.1});
  const auto one = kx::fitDirection(data, kTemperature).constants;
  data.concentration *= 4.0;
  const auto four = kx::fitDirection(data, kTemperature).constants;
  EXPECT_DOUBLE_EQ(four.breakingEnergy, one.breakingEnergy);
  EXPECT_DOUBLE_EQ(four.amplitudeFactor, one.amplitudeFactor);
  EXPECT_NEAR(four.breakingActivation * 4.0 / one.breakingActivation, 1.0, 1e-14);
}

TEST(DirectionFit, ScatterLeavesTheConstantsWithinTheirStandardErrors) {
  const auto law = constantsOf(125e3, 4.5e-4, 0.6);
  std::mt19937 random(3);
  int within = 0;
  constexpr int kTrials = 60;
  for (int trial = 0; trial < kTrials; ++trial) {
    auto data = exactData(law, {0.1, 0.1, -1.0, 0.5});
    for (auto& test : data.tests) {
      double normal = -6.0;  // sum of twelve uniform numbers: standard deviation 1
      for (int i = 0; i < 12; ++i) {
        normal += static_cast<double>(random()) / 4294967296.0;
      }
      test.life *= std::exp(normal);
    }
    const auto fit = kx::fitDirection(data, kTemperature);
    within += std::abs(fit.constants.breakingEnergy - law.breakingEnergy) <
                      2.0 * fit.standardErrors.breakingEnergy
                  ? 1
                  : 0;
  }
  // two standard deviations hold 95 % of a normal distribution; 4 sigma of 60 draws below that
  EXPECT_GE(within, 50);
}

TEST(DirectionFit, WhatCannotBeFittedGivesZeros) {
  const auto data = exactData(constantsOf(120e3, 4.5e-4, 0.5), {0.1});
  for (const double temperature : {0.0, -10.0, kNan, kInfinity}) {
    const auto fit = kx::fitDirection(data, temperature);
    EXPECT_EQ(fit.constants.breakingEnergy, 0.0) << temperature;
    EXPECT_EQ(fit.iterations, 0);
  }
  for (const double concentration : {0.0, -1.0, kNan, kInfinity}) {
    auto other = data;
    other.concentration = concentration;
    EXPECT_EQ(kx::fitDirection(other, kTemperature).constants.breakingEnergy, 0.0);
  }
  EXPECT_EQ(kx::fitDirection({0.0, 1.0, {}}, kTemperature).constants.breakingEnergy, 0.0);
}

TEST(DirectionFit, NoBondHasANegativeEnergy) {
  auto data = exactData(constantsOf(120e3, 4.5e-4, 0.5), {0.1});
  for (auto& test : data.tests) {
    test.life = 1e-300;  // outlives no attempt of a bond, let alone a load
  }
  const auto fit = kx::fitDirection(data, kTemperature);
  EXPECT_FALSE(fit.isFitted());
  EXPECT_EQ(fit.constants.breakingEnergy, 0.0);
  EXPECT_EQ(fit.constants.loadTransfer, 0.0);
  EXPECT_EQ(fit.tests, 0U);
}

TEST(DirectionFit, TheLargestPeakStandsInForAStrengthThatIsNotGiven) {
  auto data = exactData(constantsOf(120e3, 4.5e-4, 0.5), {0.1});
  for (const double strength : {0.0, -1.0, kNan}) {
    data.strength = strength;
    EXPECT_LT(kx::fitDirection(data, kTemperature).finalError, 0.1);
  }
}

TEST(DirectionFit, AbsurdTestsGiveFiniteConstants) {
  std::mt19937 random(5);
  const double choices[] = {kNan, kInfinity, -kInfinity, 0.0, -1.0, 1e-300, 1e300, 1.0, 5e8};
  const auto pick = [&] { return choices[random() % std::size(choices)]; };
  for (int trial = 0; trial < 400; ++trial) {
    kx::DirectionData data{pick(), 0.5, {}};
    for (unsigned i = 0; i < random() % 8; ++i) {
      data.tests.push_back({pick(), pick(), pick(), pick()});
    }
    const auto fit = kx::fitDirection(data, trial % 3 == 0 ? pick() : kTemperature);
    EXPECT_TRUE(isFinite(fit.constants)) << trial;
    EXPECT_TRUE(isFinite(fit.standardErrors)) << trial;
    EXPECT_TRUE(std::isfinite(fit.finalError) && std::isfinite(fit.initialError)) << trial;
  }
}

TEST(DirectionFit, ManyTestsAreThinned) {
  auto data = exactData(constantsOf(125e3, 4.5e-4, 0.6), {0.1});
  const auto few = kx::fitDirection(data, kTemperature);
  for (int i = 0; i < 15; ++i) {
    data.tests.insert(data.tests.end(), data.tests.begin(), data.tests.end());
  }
  const auto many = kx::fitDirection(data, kTemperature);
  EXPECT_NEAR(many.constants.breakingEnergy / few.constants.breakingEnergy, 1.0, 0.02);
}

TEST(DirectionFit, ThinnedTestsSpanAllStresses) {
  auto data = exactData(constantsOf(125e3, 4.5e-4, 0.6), {0.1});
  auto high = data.tests.front();
  const auto low = data.tests.back();
  high.life *= 30.0;  // off the law: only tests at this stress can tell
  data.tests.assign(300, low);
  data.tests.insert(data.tests.end(), 300, high);
  const auto fit = kx::fitDirection(data, kTemperature);
  EXPECT_EQ(fit.tests, 256U);
  const double predicted = kx::lnTimeToFailure(
      fit.constants, {high.peak * data.concentration, high.ratio, kTemperature});
  EXPECT_NEAR(predicted, std::log(high.life / high.frequency), std::log(3.0));
}

TEST(DirectionFit, OrderOfManyTestsDoesNotMatter) {
  auto data = exactData(constantsOf(127e3, 4.5e-4, 0.7), {0.1, -1.0});
  std::mt19937 random(23);
  const auto exact = data.tests;
  while (data.tests.size() < 1000) {
    auto test = exact[random() % exact.size()];
    test.life *= 0.25 + static_cast<double>(random() % 1000) / 250.0;
    data.tests.push_back(test);
  }
  const auto fit = kx::fitDirection(data, kTemperature);
  // records that cannot be used take no place in the selection either
  data.tests.insert(data.tests.begin(), 500, kx::LifeTest{kNan, 0.1, 1e4, 5.0});
  for (std::size_t i = data.tests.size() - 1; i > 0; --i) {
    std::swap(data.tests[i], data.tests[random() % (i + 1)]);
  }
  const auto shuffled = kx::fitDirection(data, kTemperature);
  EXPECT_EQ(bitsOf(fit.constants), bitsOf(shuffled.constants));
  EXPECT_EQ(fit.tests, shuffled.tests);
}

TEST(DirectionFit, SameInputSameBits) {
  const auto data = exactData(constantsOf(121e3, 4.4e-4, 0.5), {0.1, -1.0});
  const auto first = kx::fitDirection(data, kTemperature);
  const auto second = kx::fitDirection(data, kTemperature);
  EXPECT_EQ(bitsOf(first.constants), bitsOf(second.constants));
  EXPECT_EQ(bitsOf(first.standardErrors), bitsOf(second.standardErrors));
}

}  // namespace
