// SPDX-License-Identifier: BSD-3-Clause
// Fit of the bond constants to S-N records, and one life with its derivatives.

#include <cmath>

#include <benchmark/benchmark.h>

#include "fatigue/UnidirectionalFatigue.h"

namespace {

/// A tenth of the strength per decade along and across the fiber, R 0.1 and -1 in turn.
std::vector<kx::SnRecord> trend(int count) {
  std::vector<kx::SnRecord> records;
  for (int i = 0; i < count; ++i) {
    const double decade = 2.0 + 4.0 * i / count;
    const bool across = i % 2 == 1;
    records.push_back({(across ? 50e6 : 1000e6) * (1.0 - 0.1 * decade),
                       std::pow(10.0, decade),
                       5.0,
                       across ? 90.0 : 0.0,
                       i % 4 < 2 ? 0.1 : -1.0});
  }
  return records;
}

void fitUnidirectionalFatigue(benchmark::State& state) {
  const auto records = trend(static_cast<int>(state.range(0)));
  const kx::PlyStrengths strengths{{1000e6, 600e6}, {50e6, 150e6}, 75e6};
  for (auto _ : state) {
    benchmark::DoNotOptimize(kx::fitUnidirectionalFatigue(records, 296.15, strengths, {0.08, 0.6}));
  }
}
BENCHMARK(fitUnidirectionalFatigue)->ArgName("records")->Arg(0)->Arg(8)->Arg(32)->Arg(100);

void lifeWithDerivatives(benchmark::State& state) {
  using Jet = ceres::Jet<double, 3>;
  const double ratio = 0.1 * static_cast<double>(state.range(0));
  Jet energy(45.0, 0);
  for (auto _ : state) {
    benchmark::DoNotOptimize(energy);
    benchmark::DoNotOptimize(kx::lnReducedLife(energy, Jet(9.0, 1), ratio, Jet(0.5, 2)));
  }
}
BENCHMARK(lifeWithDerivatives)->ArgName("ratio in tenths")->Arg(1)->Arg(-10);

}  // namespace
