// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/BondBreaking.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "support/ReferenceData.h"

namespace {

using Jet = ceres::Jet<double, 3>;

kx::BondConstants constantsOf(double energy, double activation, double factor) {
  return {energy, energy, activation, activation, 1.0, factor};
}

/// ln of the cycle mean of exp(v s) by the trapezoidal rule, s cut off at zero.
double lnMean(double v, double mean, double amplitude) {
  constexpr int kSteps = 256;
  const double largest = v * (mean + amplitude);
  double sum = 0.0;
  for (int i = 0; i < kSteps; ++i) {
    const double s = mean + amplitude * std::sin(2.0 * 3.14159265358979323846 * i / kSteps);
    sum += std::exp(v * std::max(s, 0.0) - largest);
  }
  return std::log(sum / kSteps) + largest;
}

/// ln of the integral of dv / (v <exp(v s)>) from 1 to infinity, Simpson's rule in ln v.
double denseLnLife(double energy, double peak, double ratio, double k) {
  const double amplitude = peak * (1.0 - ratio) / 2.0;
  const double mean = peak - amplitude + k * amplitude;
  constexpr int kSteps = 600;
  const double end = std::log(1.0 + 60.0 / (mean + amplitude));
  const double first = lnMean(1.0, mean, amplitude);
  double sum = 0.0;
  for (int i = 0; i <= kSteps; ++i) {
    const double v = std::exp(end * i / kSteps);
    const double weight = i == 0 || i == kSteps ? 1.0 : (i % 2 == 1 ? 4.0 : 2.0);
    sum += weight * std::exp(first - lnMean(v, mean, amplitude));
  }
  return energy - first + std::log(sum * end / kSteps / 3.0);
}

TEST(BondBreaking, AgreesWithTheComputedReferences) {
  const auto computed = kx::test::reference("computed.json");
  ASSERT_FALSE(computed["fatigue"].empty());
  for (const auto& entry : computed["fatigue"]) {
    const auto constants = constantsOf(entry["U"], entry["gamma"], entry["k"]);
    const double temperature = entry["T"];
    const double lnTime = kx::lnTimeToFailure(constants, {entry["smax"], entry["R"], temperature});
    // both quadratures state 2e-6 in ln t
    EXPECT_NEAR(lnTime / std::log(10.0), entry["log10_time_dense_quadrature"].get<double>(), 2e-6);
    EXPECT_NEAR(lnTime / std::log(10.0) + std::log10(entry["f"].get<double>()),
                entry["log10_cycles"].get<double>(),
                2e-6);
    EXPECT_NEAR(
        kx::rampStrength(constants, temperature) / entry["static_strength_60s"].get<double>(),
        1.0,
        1e-9);
  }
}

TEST(BondBreaking, AttemptFrequencyAgreesWithThePublishedNumbers) {
  const auto published = kx::test::reference("published.json");
  const auto kinetic = std::find_if(published.begin(), published.end(), [](const auto& entry) {
    return entry["id"] == "method_kinetic_zhurkov_hsiao";
  });
  ASSERT_NE(kinetic, published.end());
  for (const auto& [temperature, rate] : (*kinetic)["targets"]["kT_over_h_per_s"].items()) {
    EXPECT_NEAR(kx::attemptFrequency(std::stod(temperature)) / rate.get<double>(), 1.0, 1e-6);
  }
  for (const auto& [temperature, energy] : (*kinetic)["targets"]["RT_kJ_per_mol"].items()) {
    EXPECT_NEAR(
        kx::kGasConstant * std::stod(temperature) / 1000.0 / energy.get<double>(), 1.0, 1e-6);
  }
}

TEST(BondBreaking, ConstantStressGivesTheExponentialIntegral) {
  // dn/dt = (1-n) nu0 exp(-a + x/(1-n)) integrates to nu0 t = exp(a) E1(x); Zhurkov's exponential
  // law is its leading term for large x.
  for (const double x : {1.0, 2.5, 6.0, 15.0, 40.0}) {
    const double expected = 45.0 + std::log(-std::expint(-x));
    EXPECT_NEAR(kx::lnReducedLife(45.0, x, 1.0, 0.7), expected, 3e-6) << x;
    EXPECT_NEAR(kx::lnReducedLife(45.0, x, 1.0, 0.7), 45.0 - x - std::log(x), 1.0 / x) << x;
  }
}

TEST(BondBreaking, AgreesWithDenseQuadrature) {
  for (const double peak : {1.5, 4.0, 9.0, 20.0}) {
    for (const double ratio : {0.8, 0.1, -0.3, -1.0}) {
      for (const double k : {0.0, 0.3, 0.7, 1.5}) {
        // 1e-4: eight points over the arc of a cycle that goes into compression
        const double tolerance = ratio < 0.0 ? 1e-4 : 1e-5;
        EXPECT_NEAR(
            kx::lnReducedLife(45.0, peak, ratio, k), denseLnLife(45.0, peak, ratio, k), tolerance)
            << peak << " " << ratio << " " << k;
      }
    }
  }
}

TEST(BondBreaking, DerivativesAgreeWithDifferences) {
  constexpr double kStep = 1e-4;
  for (const double ratio : {0.1, 0.5, -1.0}) {
    for (const double peak : {3.0, 12.0}) {
      const double k = 0.4;
      const auto life = kx::lnReducedLife(Jet(45.0, 0), Jet(peak, 1), ratio, Jet(k, 2));
      const double byPeak = (kx::lnReducedLife(45.0, peak + kStep, ratio, k) -
                             kx::lnReducedLife(45.0, peak - kStep, ratio, k)) /
                            (2.0 * kStep);
      const double byFactor = (kx::lnReducedLife(45.0, peak, ratio, k + kStep) -
                               kx::lnReducedLife(45.0, peak, ratio, k - kStep)) /
                              (2.0 * kStep);
      EXPECT_DOUBLE_EQ(life.v[0], 1.0);
      // the Bessel functions and their derivatives are separate approximations of 2.5e-7
      EXPECT_NEAR(life.v[1], byPeak, 1e-4) << ratio << " " << peak;
      EXPECT_NEAR(life.v[2], byFactor, 1e-4) << ratio << " " << peak;
    }
  }
}

TEST(BondBreaking, LifeFallsWithStressAmplitudeAndHeat) {
  const auto constants = constantsOf(125e3, 4.35e-5, 0.7);
  double last = HUGE_VAL;
  for (double peak = 50e6; peak < 1000e6; peak += 25e6) {
    const double life = kx::lnTimeToFailure(constants, {peak, 0.1, 296.0});
    EXPECT_LT(life, last);
    EXPECT_LT(kx::lnTimeToFailure(constants, {peak, -0.5, 296.0}), life);
    EXPECT_LT(kx::lnTimeToFailure(constants, {peak, 0.1, 320.0}), life);
    last = life;
  }
}

TEST(BondBreaking, RampThatReachesTheStaticStrengthTakesTheStatedTime) {
  // d(-1/v)... with v = 1/(1-n): dv/(v nu0 exp(-a)) = exp(v x t/T) dt has no closed form; integrate
  // until n = 1, that is until v has run away.
  const double temperature = 296.0;
  const auto constants = constantsOf(127e3, 4.4e-5, 0.7);
  const double thermal = kx::kGasConstant * temperature;
  const double strength = kx::rampStrength(constants, temperature);
  const double x = constants.breakingActivation * strength / thermal;
  const double rate = kx::attemptFrequency(temperature) *
                      std::exp(-constants.breakingEnergy / thermal) * kx::kRampTime;
  double time = 0.0;  // over kRampTime
  double lnV = 0.0;
  while (lnV < std::log(5.0) && time < 2.0) {
    const double growth = rate * std::exp(x * time * std::exp(lnV));
    const double step = std::min(1e-3, 1e-3 / growth);
    time += step;
    lnV += growth * step;
  }
  // theory: 0.999 of it at x = 18; the explicit steps add less than 1e-3
  EXPECT_NEAR(time, 0.999, 2e-3);
}

}  // namespace
