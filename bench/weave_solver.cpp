// SPDX-License-Identifier: BSD-3-Clause
// The voxel solver: time per voxel and iteration, on a sampled plain weave of elliptic tows and on
// our own unit cell with composite voxels. Counters: iterations of the six cases, nanoseconds per
// voxel, case and iteration.

#include <cmath>

#include <benchmark/benchmark.h>

#include "elastic/Rotation.h"
#include "lamina/UnidirectionalLamina.h"
#include "weave/model/WeaveDescription.h"
#include "weave/voxel/EffectiveStiffness.h"

namespace {

using kx::Frame;
using kx::MaterialField;

std::int32_t addTo(MaterialField& field,
                   const kx::TransverselyIsotropic& solid,
                   const Frame& frame) {
  return field.addMaterial(kx::rotateStiffness(kx::stiffness(solid), kx::strainTransform(frame)),
                           kx::Vector6::Zero());
}

/// Whether (across, height) lies in a tow of elliptic section around (0, centre).
bool isInTow(const double across, const double height, const double centre) {
  const double a = across / 0.42;
  const double b = (height - centre) / 0.125;
  return a * a + b * b <= 1.0;
}

/// The material at a point of a cell 2 x 2 x 0.5 with four sinusoidal tows: 1 fill, which also has
/// what both would take, 2 warp, 0 matrix.
std::int32_t materialAt(const double x, const double y, const double z) {
  const double pi = std::acos(-1.0);
  const double fill = 0.125 * std::cos(pi * (x - 0.5));
  const double warp = 0.125 * std::cos(pi * (y - 0.5));
  if (isInTow(y - 0.5, z, fill) || isInTow(y - 1.5, z, -fill)) {
    return 1;
  }
  return isInTow(x - 0.5, z, -warp) || isInTow(x - 1.5, z, warp) ? 2 : 0;
}

/// The cell of materialAt(), with voxels taken at their centres.
MaterialField ellipticWeave(const int n, const int n3) {
  const kx::GridShape shape{n, n, n3, 2.0 / n, 2.0 / n, 0.5 / n3};
  MaterialField field(shape);
  const kx::TransverselyIsotropic tow{140e9, 9e9, 0.28, 0.4, 5e9, 0.0, 0.0};
  addTo(field, kx::isotropic(3.5e9, 0.35, 0.0), Frame::Identity());
  addTo(field, tow, kx::fillFrame(0.0));
  addTo(field, tow, kx::warpFrame(0.0));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      for (int k = 0; k < n3; ++k) {
        field.addVoxel(
            materialAt((i + 0.5) * shape.h1, (j + 0.5) * shape.h2, (k + 0.5) * shape.h3 - 0.25));
      }
    }
  }
  return field;
}

void solve(benchmark::State& state, const MaterialField& field) {
  kx::ThreadPool team(static_cast<int>(state.range(2)));
  int iterations = 0;
  for (auto _ : state) {
    const auto result = kx::effectiveStiffness(field, {}, team);
    iterations = result.iterations;
    benchmark::DoNotOptimize(result.stiffness.data());
  }
  state.counters["iterations"] = iterations;
  state.counters["ns/voxel/it"] = benchmark::Counter(
      1e-9 * iterations * static_cast<double>(field.shape().voxels()),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void solveEllipticWeave(benchmark::State& state) {
  solve(state, ellipticWeave(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))));
}

void solveWeave(benchmark::State& state, const int harness, const kx::CellResolution& grid) {
  kx::WeaveDescription weave;
  weave.harness = harness;
  weave.fillFraction = weave.warpFraction = 0.4;
  weave.fiberFraction = 0.7;
  const kx::TransverselyIsotropic fiber{230e9, 15e9, 0.2, 0.25, 20e9, -5e-7, 1e-5};
  const auto constituents = kx::WeaveConstituents::uniform(fiber, kx::isotropic(3.5e9, 0.35, 5e-5));
  const kx::UnitCell cell = weave.unitCell(grid);
  const kx::CellMaterials materials(cell, kx::cellConstituents(weave, constituents));
  solve(state, materials.field());
}

/// The fine grid that decks use, of a weave of `harness`.
void solveUsualCell(benchmark::State& state) {
  solveWeave(state, static_cast<int>(state.range(0)), kx::kFineGrid);
}

void solveUnitCell(benchmark::State& state) {
  const auto perTow = static_cast<int>(state.range(0)) / 2;
  solveWeave(state, 1, {perTow, static_cast<int>(state.range(1))});
}

void grids(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"n", "n3", "threads"})
      ->Args({32, 16, 1})
      ->Args({48, 18, 1})
      ->Args({64, 32, 1})
      ->Args({64, 32, 2})
      ->Args({128, 64, 1})
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
}

}  // namespace

BENCHMARK(solveUsualCell)
    ->ArgNames({"harness", "unused", "threads"})
    ->ArgsProduct({{1, 4, 5, 8}, {0}, {1, 2}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(solveEllipticWeave)->Apply(grids);
BENCHMARK(solveUnitCell)->Apply(grids);
