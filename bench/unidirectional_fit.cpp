// SPDX-License-Identifier: BSD-3-Clause
// A whole mechanical and thermal fit of a unidirectional lamina.

#include <benchmark/benchmark.h>

#include "elastic/TransverselyIsotropic.h"
#include "fit/UnidirectionalFit.h"

namespace {

constexpr double kFiberFraction = 0.6;

/// AS4/3501-6 as measured, from constituents as tabulated (soden1998).
kx::FittedMaterials carbonEpoxy() {
  return {kx::properties(kx::TransverselyIsotropic{126e9, 11e9, 0.28, 0.4, 6.6e9, -1e-6, 2.6e-5}),
          kx::properties(kx::TransverselyIsotropic{225e9, 15e9, 0.2, 0.071, 15e9, -5e-7, 1.5e-5}),
          kx::properties(kx::isotropic(4.2e9, 0.34, 4.5e-5))};
}

void run(benchmark::State& state, const kx::FittedMaterials& given) {
  kx::FitResult result;
  for (auto _ : state) {
    result = kx::fitUnidirectional(kFiberFraction, given, {});
    benchmark::DoNotOptimize(result);
  }
  state.counters["iterations"] = result.mechanical.iterations;
  state.counters["error"] = result.mechanical.finalError;
}

void unidirectionalFit(benchmark::State& state) {
  run(state, carbonEpoxy());
}
BENCHMARK(unidirectionalFit)->Unit(benchmark::kMicrosecond);

void unidirectionalFitAnisotropicMatrix(benchmark::State& state) {
  auto given = carbonEpoxy();
  auto matrix = kx::transverselyIsotropic(given.matrix);
  matrix.e22 *= 1.1;
  given.matrix = kx::properties(matrix);
  run(state, given);
}
BENCHMARK(unidirectionalFitAnisotropicMatrix)->Unit(benchmark::kMicrosecond);

void unidirectionalFitContradictory(benchmark::State& state) {
  auto given = carbonEpoxy();
  given.lamina.v12 = given.lamina.v13 = 0.9;
  run(state, given);
}
BENCHMARK(unidirectionalFitContradictory)->Unit(benchmark::kMicrosecond);

void unidirectionalFitWrongUnits(benchmark::State& state) {
  auto given = carbonEpoxy();
  for (const auto modulus : {&kx::Properties::e11, &kx::Properties::e22, &kx::Properties::g12}) {
    given.lamina.*modulus *= 1e-9;
  }
  run(state, given);
}
BENCHMARK(unidirectionalFitWrongUnits)->Unit(benchmark::kMicrosecond);

}  // namespace
