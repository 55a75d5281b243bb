// SPDX-License-Identifier: BSD-3-Clause
// One evaluation of the closed-form unidirectional lamina: the inner loop of every fit.

#include <benchmark/benchmark.h>
#include <ceres/jet.h>

#include "lamina/Concentration.h"
#include "lamina/UnidirectionalLamina.h"

namespace {

constexpr double kFiberFraction = 0.6;

/// AS4 carbon fiber and 3501-6 epoxy, every constant an independent variable where Scalar has any.
template <class Scalar>
kx::TransverselyIsotropicOf<Scalar> fiber() {
  return {Scalar(225e9),
          Scalar(15e9),
          Scalar(0.2),
          Scalar(0.07),
          Scalar(15e9),
          Scalar(-5e-7),
          Scalar(1.5e-5)};
}
template <class Scalar>
kx::TransverselyIsotropicOf<Scalar> matrix() {
  return kx::isotropic(Scalar(4.2e9), Scalar(0.34), Scalar(4.5e-5));
}

template <int kUnknowns>
void seed(kx::TransverselyIsotropicOf<ceres::Jet<double, kUnknowns>>& solid, int first) {
  for (const auto member : kx::kElasticMembers<ceres::Jet<double, kUnknowns>>) {
    if (first < kUnknowns) {
      (solid.*member).v(first++) = 1.0;
    }
  }
}

void laminaElastic(benchmark::State& state) {
  auto f = fiber<double>();
  auto m = matrix<double>();
  for (auto _ : state) {
    benchmark::DoNotOptimize(f);
    benchmark::DoNotOptimize(m);
    benchmark::DoNotOptimize(kx::homogeniseElastic(f, m, kFiberFraction));
  }
}
BENCHMARK(laminaElastic);

void laminaThermoelastic(benchmark::State& state) {
  auto f = fiber<double>();
  auto m = matrix<double>();
  for (auto _ : state) {
    benchmark::DoNotOptimize(f);
    benchmark::DoNotOptimize(m);
    benchmark::DoNotOptimize(kx::homogenise(f, m, kFiberFraction));
  }
}
BENCHMARK(laminaThermoelastic);

/// Values and all derivatives: 7 unknowns with an isotropic matrix, 10 with an anisotropic one.
template <int kUnknowns>
void laminaWithDerivatives(benchmark::State& state) {
  using Jet = ceres::Jet<double, kUnknowns>;
  auto f = fiber<Jet>();
  auto m = matrix<Jet>();
  seed<kUnknowns>(f, 0);
  seed<kUnknowns>(m, static_cast<int>(kx::kElasticConstantCount));
  for (auto _ : state) {
    benchmark::DoNotOptimize(f);
    benchmark::DoNotOptimize(m);
    benchmark::DoNotOptimize(kx::homogeniseElastic(f, m, kFiberFraction));
  }
}
BENCHMARK_TEMPLATE(laminaWithDerivatives, 7);
BENCHMARK_TEMPLATE(laminaWithDerivatives, 10);

void laminaConcentrations(benchmark::State& state) {
  const auto f = fiber<double>();
  const auto m = matrix<double>();
  auto lamina = kx::homogenise(f, m, kFiberFraction);
  for (auto _ : state) {
    benchmark::DoNotOptimize(lamina);
    benchmark::DoNotOptimize(kx::concentration(f, lamina.fiber, lamina.effective));
    benchmark::DoNotOptimize(kx::concentration(m, lamina.matrix, lamina.effective));
  }
}
BENCHMARK(laminaConcentrations);

}  // namespace
