#include "weave/voxel/PairSolver.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace kx {

namespace {

constexpr double kRounding = 1e-13;  // residual that is nothing but rounding, energy norm
constexpr double kNullMode = 1e-10;  // of the largest squared wave vector

// The squared norms of two lanes come from their sum and their difference, which are rounded to
// some 1e-16 of the larger: less than this part of it is noise.
constexpr double kResolution = 1e-14;

int workersFor(const GridShape& shape, const ThreadPool& team) {
  constexpr int kFewestPlanes = 4;  // each worker repeats one plane of its neighbour
  return std::max(1, std::min(team.threads(), shape.n1 / kFewestPlanes));
}

// The part of `count` items that worker w of `workers` takes: begin and end.
std::pair<int, int> share(const int count, const std::size_t w, const int workers) {
  const auto begin = static_cast<long long>(count) * static_cast<long long>(w) / workers;
  const auto end = static_cast<long long>(count) * static_cast<long long>(w + 1) / workers;
  return {static_cast<int>(begin), static_cast<int>(end)};
}

// Copies complex numbers times (cosine + i sine).
void turnedCopy(const double* const from,
                const std::size_t count,
                const double cosine,
                const double sine,
                double* const to) {
  if (sine == 0.0 && cosine == 1.0) {
    std::memcpy(to, from, count * sizeof(double));
    return;
  }
  for (std::size_t t = 0; t < count; t += 2) {
    to[t] = cosine * from[t] - sine * from[t + 1];
    to[t + 1] = cosine * from[t + 1] + sine * from[t];
  }
}

// Energy of the load in the mean material, summed over the nodes.
struct LoadEnergy {
  double strain;
  double thermal;
};

LoadEnergy loadEnergy(const MaterialField& materials,
                      const kernels::PairLoad& load,
                      const std::size_t lane) {
  const Matrix6 c = materials.meanStiffness();
  const Vector6 beta = materials.meanThermalStress() * load.temperature[lane];
  Vector6 strain;
  for (Eigen::Index i = 0; i < 6; ++i) strain(i) = load.strain[i][lane];
  const auto nodes = static_cast<double>(materials.shape().voxels());
  return {nodes * strain.dot(c * strain),
          nodes * (beta.array().square() / c.diagonal().array()).sum()};
}

// Which lanes are done. A lane whose norm is hidden in the rounding of the other's waits until that
// one is smaller, or done: a step of noise would lead anywhere.
struct LaneState {
  std::array<bool, 2> done{};
  std::array<bool, 2> waits{};

  void review(const std::array<double, 2>& norm, const std::array<double, 2>& limit) {
    for (std::size_t lane = 0; lane < 2; ++lane) {
      waits[lane] = norm[lane] < kResolution * norm[1 - lane];
      done[lane] = done[lane] || (!waits[lane] && !(norm[lane] > limit[lane]));
    }
    for (std::size_t lane = 0; lane < 2; ++lane) {
      done[lane] = done[lane] || (waits[lane] && done[1 - lane]);
    }
  }
};

}  // namespace

PairSolver::PairSolver(std::shared_ptr<const SpectralBasis> basis)
    : basis_(std::move(basis)),
      kernels_(kernels::best()),
      force_(basis_->shape),
      direction_(basis_->shape),
      residual_(6 * basis_->shape.voxels()),
      planeSums_(static_cast<std::size_t>(basis_->shape.n1)),
      rowSums_(static_cast<std::size_t>(basis_->shape.n2 / 2 + 1)) {}

void PairSolver::prepare(const MaterialField& materials, const ThreadPool& team) {
  const GridShape& shape = basis_->shape;
  const auto n3 = static_cast<std::size_t>(shape.n3);
  const auto planeSize = static_cast<std::size_t>(kernels::planeScratch(shape.n3));
  const std::size_t spectralSize = (12 * static_cast<std::size_t>(shape.n1) + 6) * n3;
  while (planeScratch_.size() < static_cast<std::size_t>(workersFor(shape, team))) {
    planeScratch_.emplace_back(planeSize);
    spectralScratch_.emplace_back(spectralSize);
  }
  const Matrix6 c = materials.meanStiffness();
  reference_ = {c(k11, k11),
                c(k22, k22),
                c(k33, k33),
                c(k11, k22),
                c(k11, k33),
                c(k22, k33),
                c(k12, k12),
                c(k13, k13),
                c(k23, k23)};
}

void PairSolver::planeForces(const MaterialField& materials,
                             const kernels::PairLoad* const load,
                             const PairField& nodes,
                             const int plane,
                             const bool nearPart,
                             const bool farPart,
                             const std::size_t worker) {
  const GridShape& shape = basis_->shape;
  const int next = plane + 1 < shape.n1 ? plane + 1 : 0;
  kernels::PlaneJob job;
  job.n2 = shape.n2;
  job.n3 = shape.n3;
  job.scale[0] = 0.25 / shape.h1;
  job.scale[1] = 0.25 / shape.h2;
  job.scale[2] = 0.25 / shape.h3;
  job.nearNodes = nodes.plane(plane);
  job.farNodes = nodes.plane(next);
  job.farShift = next == 0 && shape.shift2 > 0 ? shape.n2 - shape.shift2 : 0;
  job.componentStride = static_cast<std::int64_t>(nodes.componentStride());
  job.rowRuns = materials.rowRuns(plane);
  job.runs = materials.runs();
  job.stiffness = materials.stiffnessData();
  job.nearForce = nearPart ? force_.plane(plane) : nullptr;
  job.farForce = farPart ? force_.plane(next) : nullptr;
  job.load = load;
  job.thermalStress = materials.thermalStressData();
  job.scratch = planeScratch_[worker].data();
  kernels_.voxelPlane(job);
}

// The forces of a plane are complete: into Fourier space along axes 2 and 3.
void PairSolver::finishPlane(const int plane) {
  for (std::size_t c = 0; c < 3; ++c) {
    basis_->plane->forward(force_.plane(plane) + c * force_.componentStride());
  }
}

void PairSolver::unitForces(const MaterialField& materials,
                            const kernels::PairLoad& load,
                            const PairField& nodes,
                            const PairField& start,
                            ThreadPool& team) {
  const int workers = workersFor(basis_->shape, team);
  team.forEach(static_cast<std::size_t>(workers), [&](const std::size_t w) {
    const auto [begin, end] = share(basis_->shape.n1, w, workers);
    const int before = begin > 0 ? begin - 1 : basis_->shape.n1 - 1;
    planeForces(materials, &load, nodes, before, false, true, w);
    for (int plane = begin; plane < end; ++plane) {
      planeForces(materials, &load, nodes, plane, true, plane + 1 < end, w);
      sumPlane(start, plane);
      finishPlane(plane);
    }
  });
}

// The work of a plane's forces on a field.
void PairSolver::sumPlane(const PairField& field, const int plane) {
  kernels_.dot(static_cast<std::int64_t>(force_.planeStride()),
               field.plane(plane),
               force_.plane(plane),
               planeSums_[static_cast<std::size_t>(plane)].data());
}

PairSolver::Lanes PairSolver::summedPlanes() const {
  Lanes work{};
  for (const auto& sums : planeSums_) {
    for (std::size_t lane = 0; lane < 2; ++lane) work[lane] += sums[lane];
  }
  return work;
}

void PairSolver::advancePlane(PairField& solution,
                              const Lanes& step,
                              const Lanes& turn,
                              const int plane) {
  for (std::size_t c = 0; c < 3; ++c) {
    basis_->plane->backward(force_.plane(plane) + c * force_.componentStride());
  }
  kernels_.advance(static_cast<std::int64_t>(force_.planeStride()),
                   step.data(),
                   turn.data(),
                   force_.plane(plane),
                   direction_.plane(plane),
                   solution.plane(plane));
}

// One step along the old direction, the new direction, its forces, and their work per lane.
PairSolver::Lanes PairSolver::directionForces(const MaterialField& materials,
                                              PairField& solution,
                                              const Lanes& step,
                                              const Lanes& turn,
                                              ThreadPool& team) {
  const int planes = basis_->shape.n1;
  const int workers = workersFor(basis_->shape, team);
  const auto force = [&](const int plane, const bool farPart, const std::size_t w) {
    planeForces(materials, nullptr, direction_, plane, true, farPart, w);
    sumPlane(direction_, plane);
    finishPlane(plane);
  };
  if (workers == 1) {
    // Plane by plane in one sweep, while a plane's numbers are still in the cache.
    advancePlane(solution, step, turn, 0);
    advancePlane(solution, step, turn, planes - 1);
    planeForces(materials, nullptr, direction_, planes - 1, false, true, 0);
    for (int plane = 0; plane < planes; ++plane) {
      if (plane + 1 < planes - 1) advancePlane(solution, step, turn, plane + 1);
      force(plane, plane + 1 < planes, 0);
    }
  } else {
    const auto count = static_cast<std::size_t>(workers);
    team.forEach(count, [&](const std::size_t w) {
      const auto [begin, end] = share(planes, w, workers);
      for (int plane = begin; plane < end; ++plane) advancePlane(solution, step, turn, plane);
    });
    team.forEach(count, [&](const std::size_t w) {
      const auto [begin, end] = share(planes, w, workers);
      planeForces(
          materials, nullptr, direction_, begin > 0 ? begin - 1 : planes - 1, false, true, w);
      for (int plane = begin; plane < end; ++plane) force(plane, plane + 1 < end, w);
    });
  }
  return summedPlanes();
}

void PairSolver::preconditionRow(const int row, const Lanes& step, const std::size_t worker) {
  const GridShape& shape = basis_->shape;
  const int opposite = row == 0 ? 0 : shape.n2 - row;
  const bool single = row == opposite;
  const auto lines = static_cast<std::size_t>(shape.n1);
  const std::size_t line = 2 * static_cast<std::size_t>(shape.n3);
  const std::size_t block = 3 * lines * line;
  const std::array<int, 2> rows{row, opposite};
  kernels::SpectralJob job;
  for (std::size_t side = 0; side < 2; ++side) {
    const bool own = side == 0 || !single;
    job.force[side] = spectralScratch_[worker].data() + (own ? side * block : 0);
    job.residual[side] = residual_.data() + static_cast<std::size_t>(rows[side]) * block;
  }
  const double* const phases =
      basis_->planePhases.data() + 2 * lines * static_cast<std::size_t>(row);
  const auto forEachLine = [&](const auto& visit) {
    for (std::size_t side = 0; side < (single ? 1U : 2U); ++side) {
      for (std::size_t i = 0; i < lines; ++i) {
        for (std::size_t c = 0; c < 3; ++c) {
          visit(job.force[side] + (c * lines + i) * line,
                force_.row(static_cast<int>(i), rows[side], static_cast<int>(c)),
                phases[2 * i],
                side == 0 ? phases[2 * i + 1] : -phases[2 * i + 1]);
        }
      }
    }
  };
  const auto transform = [&](const auto& direction) {
    for (std::size_t c = 0; c < (single ? 3U : 6U); ++c) {
      direction(*basis_->lines, job.force[0] + c * lines * line);
    }
  };
  job.n1 = shape.n1;
  job.n3 = shape.n3;
  for (std::size_t lane = 0; lane < 2; ++lane) job.step[lane] = step[lane];
  job.axis1 = basis_->axis1.data() + 2 * lines * static_cast<std::size_t>(row);
  job.mirror = 2 * row == shape.n2 ? shape.shift2 % shape.n1 : 0;
  job.axis3 = basis_->axis3.data();
  job.axis2[0] = basis_->axis2[2 * static_cast<std::size_t>(row)];
  job.axis2[1] = basis_->axis2[2 * static_cast<std::size_t>(row) + 1];
  job.scale[0] = 2.0 / shape.h1;
  job.scale[1] = 2.0 / shape.h2;
  job.scale[2] = 2.0 / shape.h3;
  std::copy(reference_.begin(), reference_.end(), job.reference);
  job.nullMode = kNullMode * basis_->largestSquare;
  job.normalisation = 1.0 / static_cast<double>(shape.voxels());
  job.scratch = spectralScratch_[worker].data() + 2 * block;
  forEachLine([line](double* to, const double* from, const double cosine, const double sine) {
    turnedCopy(from, line, cosine, sine, to);
  });
  transform([](const Transform& lineTransform, double* data) { lineTransform.forward(data); });
  kernels_.spectral(job, &rowSums_[static_cast<std::size_t>(row)]);
  transform([](const Transform& lineTransform, double* data) { lineTransform.backward(data); });
  forEachLine([line](const double* from, double* to, const double cosine, const double sine) {
    turnedCopy(from, line, cosine, -sine, to);
  });
}

// residual -= step * force, force = descent direction; the residual's squared energy norm.
PairSolver::Lanes PairSolver::precondition(const Lanes& step, ThreadPool& team) {
  const int rows = basis_->shape.n2 / 2 + 1;
  const int workers = workersFor(basis_->shape, team);
  team.forEach(static_cast<std::size_t>(workers), [&](const std::size_t w) {
    const auto [begin, end] = share(rows, w, workers);
    for (int row = begin; row < end; ++row) preconditionRow(row, step, w);
  });
  kernels::SpectralSums sums;
  for (const kernels::SpectralSums& row : rowSums_) {
    sums.total += row.total;
    sums.difference += row.difference;
  }
  return {(sums.total + sums.difference) / 2, (sums.total - sums.difference) / 2};
}

// Residual and descent direction at `nodes`; the forces' work on `start`.
PairSolver::Start PairSolver::restart(const MaterialField& materials,
                                      const kernels::PairLoad& load,
                                      const PairField& nodes,
                                      const PairField& start,
                                      ThreadPool& team) {
  force_.clear();
  unitForces(materials, load, nodes, start, team);
  const Lanes work = summedPlanes();
  residual_.clear();
  return {precondition({1.0, 1.0}, team), work};
}

std::array<LaneReport, 2> PairSolver::solve(const MaterialField& materials,
                                            const kernels::PairLoad& load,
                                            const std::array<bool, 2> active,
                                            PairField& solution,
                                            const SolveSettings& settings,
                                            ThreadPool& team) {
  prepare(materials, team);
  direction_.clear();
  const Start cold = restart(materials, load, direction_, solution, team);
  const Start warm = solution.isZero() ? cold : restart(materials, load, solution, solution, team);
  const double square = settings.tolerance * settings.tolerance;
  Lanes norm = warm.norm;
  Lanes energy{};
  Lanes floor{};
  LaneState state;
  auto& [done, waits] = state;
  const auto limit = [&](const std::size_t lane) {
    return std::max(square * std::min(cold.norm[lane], energy[lane]), floor[lane]);
  };
  for (std::size_t lane = 0; lane < 2; ++lane) {
    const LoadEnergy uniform = loadEnergy(materials, load, lane);
    floor[lane] = kRounding * kRounding * (uniform.strain + uniform.thermal);
    energy[lane] = load.temperature[lane] == 0.0
                       ? uniform.strain + cold.work[lane] + warm.work[lane]
                       : cold.norm[lane];
    done[lane] = !active[lane];
  }
  state.review(norm, {limit(0), limit(1)});
  Lanes step{};
  Lanes turn{};
  std::array<LaneReport, 2> reports;
  for (int iteration = 1; iteration <= settings.mostIterations && !(done[0] && done[1]);
       ++iteration) {
    const Lanes work = directionForces(materials, solution, step, turn, team);
    for (std::size_t lane = 0; lane < 2; ++lane) {
      done[lane] = done[lane] || (!waits[lane] && !(work[lane] > 0.0));
      step[lane] = done[lane] || waits[lane] ? 0.0 : norm[lane] / work[lane];
    }
    const Lanes next = precondition(step, team);
    for (std::size_t lane = 0; lane < 2; ++lane) {
      turn[lane] = done[lane] || waits[lane] ? 0.0 : next[lane] / norm[lane];
      if (done[lane]) continue;
      reports[lane].iterations = iteration;
      if (load.temperature[lane] == 0.0) energy[lane] -= step[lane] * norm[lane];
      norm[lane] = next[lane];
    }
    state.review(norm, {limit(0), limit(1)});
  }
  for (int plane = 0; plane < basis_->shape.n1; ++plane) {
    kernels_.advance(static_cast<std::int64_t>(force_.planeStride()),
                     step.data(),
                     turn.data(),
                     force_.plane(plane),
                     direction_.plane(plane),
                     solution.plane(plane));
  }
  for (std::size_t lane = 0; lane < 2; ++lane) {
    if (active[lane] && cold.norm[lane] > 0.0) {
      reports[lane].residual = std::sqrt(std::max(0.0, norm[lane]) / cold.norm[lane]);
    }
  }
  return reports;
}

}  // namespace kx
