// SPDX-License-Identifier: BSD-3-Clause
// Reduction of a measured shear curve to the prefail constants.

#include <benchmark/benchmark.h>

#include "shear/MatrixDegradation.h"
#include "shear/ShearCurve.h"

namespace {

std::vector<kx::ShearPoint> cubicCurve(int count) {  // hahn1973, a carbon/epoxy
  std::vector<kx::ShearPoint> points;
  for (int i = 1; i <= count; ++i) {
    const double stress = 92e6 * i / count;
    points.push_back({stress, stress / 5.17e9 + 2.98e-26 * stress * stress * stress});
  }
  return points;
}

void reduceShearCurve(benchmark::State& state) {
  const auto points = cubicCurve(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto reduction = kx::reduceShearCurve(points, 92e6);
    benchmark::DoNotOptimize(
        kx::unidirectionalMatrixDegradation(0.6, 15e9, 1.57e9, reduction.lowestDegradation));
  }
}
BENCHMARK(reduceShearCurve)->ArgName("points")->Arg(10)->Arg(30)->Arg(1000);

}  // namespace
