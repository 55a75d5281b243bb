// SPDX-License-Identifier: BSD-3-Clause
// Woven plies at the default grids: the fit to a measured ply, and all damage states after it.

#include <benchmark/benchmark.h>

#include "weave/damage/DamageState.h"
#include "weave/fit/WeaveFit.h"

namespace {

const kx::TransverselyIsotropic kFiber{230e9, 15e9, 0.2, 0.25, 20e9, -5e-7, 1e-5};

kx::WeaveDescription weaveOf(const benchmark::State& state) {
  kx::WeaveDescription weave;
  weave.harness = static_cast<int>(state.range(0));
  weave.fillFraction = weave.warpFraction = 0.4;
  weave.fiberFraction = 0.7;
  return weave;
}

/// A plain ply of T300 and epoxy as a data sheet gives it; no geometry meets all nine constants.
kx::FittedMaterials measuredPly() {
  kx::Properties ply{66e9, 65e9, 9.5e9, 0.05, 0.4, 0.4, 4.8e9, 3.6e9, 3.6e9, 2.5e-6, 2.5e-6, 5e-5};
  return {ply, kx::properties(kFiber), kx::properties(kx::isotropic(3.5e9, 0.35, 5.5e-5))};
}

void fitWeave(benchmark::State& state) {
  kx::FitOptions options;
  options.isotropicMatrix = true;
  for (auto _ : state) {
    kx::WeaveModel model(static_cast<int>(state.range(1)));
    const auto fit = kx::fitWeave(model, weaveOf(state), measuredPly(), options);
    state.counters["solves"] = fit.mechanical.iterations;
  }
}

void eighteenDamageStates(benchmark::State& state) {
  const auto matrix = kx::isotropic(3.5e9, 0.35, 5.5e-5);
  for (auto _ : state) {
    kx::WeaveModel model(static_cast<int>(state.range(1)));
    for (int number = 0; number < 18; ++number) {
      const kx::DamageCodes codes{number % 2, (number / 2) % 3, number / 6};
      benchmark::DoNotOptimize(
          kx::damageState(model, weaveOf(state), kFiber, matrix, codes, {}).composite.e11);
    }
    state.counters["cells"] = model.solvedCells();
  }
}

void weaves(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"harness", "threads"})
      ->Args({1, 1})
      ->Args({1, 2})
      ->Args({5, 2})
      ->Args({8, 2})
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime()
      ->Iterations(1);
}

}  // namespace

BENCHMARK(fitWeave)->Apply(weaves);
BENCHMARK(eighteenDamageStates)->Apply(weaves);
