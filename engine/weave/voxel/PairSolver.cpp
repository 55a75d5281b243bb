// SPDX-License-Identifier: BSD-3-Clause
#include "weave/voxel/PairSolver.h"

#include <algorithm>
#include <cmath>
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
  for (Eigen::Index i = 0; i < 6; ++i) {
    strain(i) = load.strain[i][lane];
  }
  const auto nodes = static_cast<double>(materials.shape().voxels());
  return {nodes * strain.dot(c * strain),
          nodes * (beta.array().square() / c.diagonal().array()).sum()};
}

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
  const std::size_t spectralSize = (12 * static_cast<std::size_t>(shape.n1) + 12) * n3;
  const std::size_t transformSize =
      std::max(basis_->plane.scratchSize(), basis_->lines.scratchSize(shape.n3));
  while (planeScratch_.size() < static_cast<std::size_t>(workersFor(shape, team))) {
    planeScratch_.emplace_back(planeSize);
    spectralScratch_.emplace_back(spectralSize);
    transformScratch_.emplace_back(transformSize);
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
  const int next = plane + 1 < basis_->shape.n1 ? plane + 1 : 0;
  kernels::PlaneJob job = nodes.planeJob(plane);
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
void PairSolver::finishPlane(const int plane, const std::size_t worker) {
  for (std::size_t c = 0; c < 3; ++c) {
    basis_->plane.forward(force_.plane(plane) + c * force_.componentStride(),
                          transformScratch_[worker].data());
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
      finishPlane(plane, w);
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
    for (std::size_t lane = 0; lane < 2; ++lane) {
      work[lane] += sums[lane];
    }
  }
  return work;
}

void PairSolver::advancePlane(PairField& solution,
                              const Lanes& step,
                              const Lanes& turn,
                              const int plane,
                              const std::size_t worker) {
  for (std::size_t c = 0; c < 3; ++c) {
    basis_->plane.backward(force_.plane(plane) + c * force_.componentStride(),
                           transformScratch_[worker].data());
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
    finishPlane(plane, w);
  };
  if (workers == 1) {
    // Plane by plane in one sweep, while a plane's numbers are still in the cache.
    advancePlane(solution, step, turn, 0, 0);
    advancePlane(solution, step, turn, planes - 1, 0);
    planeForces(materials, nullptr, direction_, planes - 1, false, true, 0);
    for (int plane = 0; plane < planes; ++plane) {
      if (plane + 1 < planes - 1) {
        advancePlane(solution, step, turn, plane + 1, 0);
      }
      force(plane, plane + 1 < planes, 0);
    }
  } else {
    const auto count = static_cast<std::size_t>(workers);
    team.forEach(count, [&](const std::size_t w) {
      const auto [begin, end] = share(planes, w, workers);
      for (int plane = begin; plane < end; ++plane) {
        advancePlane(solution, step, turn, plane, w);
      }
    });
    team.forEach(count, [&](const std::size_t w) {
      const auto [begin, end] = share(planes, w, workers);
      planeForces(
          materials, nullptr, direction_, begin > 0 ? begin - 1 : planes - 1, false, true, w);
      for (int plane = begin; plane < end; ++plane) {
        force(plane, plane + 1 < end, w);
      }
    });
  }
  return summedPlanes();
}

kernels::SpectralJob PairSolver::spectralJob(const int row,
                                             const Lanes& step,
                                             const std::size_t worker) {
  const GridShape& shape = basis_->shape;
  const auto lines = static_cast<std::size_t>(shape.n1);
  const auto at = static_cast<std::size_t>(row);
  const std::size_t block = 6 * lines * static_cast<std::size_t>(shape.n3);
  const int opposite = row == 0 ? 0 : shape.n2 - row;
  kernels::SpectralJob job;
  job.force[0] = spectralScratch_[worker].data();
  job.force[1] = job.force[0] + (row == opposite ? 0 : block);
  job.residual[0] = residual_.data() + at * block;
  job.residual[1] = residual_.data() + static_cast<std::size_t>(opposite) * block;
  job.n1 = shape.n1;
  job.n3 = shape.n3;
  std::copy(step.begin(), step.end(), job.step);
  job.axis1 = basis_->axis1.data() + 2 * lines * at;
  job.mirror = 2 * row == shape.n2 ? shape.shift2 % shape.n1 : 0;
  job.axis3 = basis_->axis3.data();
  job.axis2[0] = basis_->axis2[2 * at];
  job.axis2[1] = basis_->axis2[2 * at + 1];
  job.scale[0] = 2.0 / shape.h1;
  job.scale[1] = 2.0 / shape.h2;
  job.scale[2] = 2.0 / shape.h3;
  std::copy(reference_.begin(), reference_.end(), job.reference);
  job.nullMode = kNullMode * basis_->largestSquare;
  job.normalisation = 1.0 / static_cast<double>(shape.voxels());
  job.scratch = spectralScratch_[worker].data() + 2 * block;
  return job;
}

void PairSolver::preconditionRow(const int row, const Lanes& step, const std::size_t worker) {
  const kernels::SpectralJob job = spectralJob(row, step, worker);
  const std::ptrdiff_t line = std::ptrdiff_t{2} * job.n3;
  const std::ptrdiff_t component = line * job.n1;
  const auto planeStride = static_cast<std::ptrdiff_t>(force_.planeStride());
  const int sides = job.force[0] == job.force[1] ? 1 : 2;
  double* const scratch = transformScratch_[worker].data();
  const auto transform = [&](const bool forward) {
    for (int side = 0; side < sides; ++side) {
      const int k2 = side == 0 ? row : basis_->shape.n2 - row;
      for (int c = 0; c < 3; ++c) {
        const fft::Lines planes{force_.row(0, k2, c), planeStride, 2};
        const fft::Lines block{job.force[side] + c * component, line, 2};
        if (forward) {
          basis_->lines.forward(planes, block, job.n3, basis_->phasesOf(k2), scratch);
        } else {
          basis_->lines.backward(block, planes, job.n3, basis_->phasesOf(k2), scratch);
        }
      }
    }
  };
  transform(true);
  kernels_.spectral(job, &rowSums_[static_cast<std::size_t>(row)]);
  transform(false);
}

// residual -= step * force, force = descent direction; the residual's squared energy norm.
PairSolver::Lanes PairSolver::precondition(const Lanes& step, ThreadPool& team) {
  const int rows = basis_->shape.n2 / 2 + 1;
  const int workers = workersFor(basis_->shape, team);
  team.forEach(static_cast<std::size_t>(workers), [&](const std::size_t w) {
    const auto [begin, end] = share(rows, w, workers);
    for (int row = begin; row < end; ++row) {
      preconditionRow(row, step, w);
    }
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

// Where the lanes of a solve stand.
struct PairSolver::Progress {
  struct Lane {
    bool done = true;
    bool waits = false;   ///< the norm is hidden in the rounding of the other lane's
    double norm = 0.0;    ///< squared energy norm of the residual
    double cold = 0.0;    ///< the same at zero displacement
    double energy = 0.0;  ///< of the solution so far, or `cold` for a thermal load
    double floor = 0.0;   ///< residuals that are nothing but rounding
    bool isThermal = false;
    LaneReport report;

    double limit(const double squaredTolerance) const {
      return std::max(squaredTolerance * std::min(cold, energy), floor);
    }
    bool rests() const { return done || waits; }
  };
  std::array<Lane, 2> lanes;

  bool isDone() const { return lanes[0].done && lanes[1].done; }

  // A lane that is hidden in the other's rounding waits until that one is smaller, or done: a step
  // of noise would lead anywhere.
  void review(const double squaredTolerance) {
    for (std::size_t lane = 0; lane < 2; ++lane) {
      Lane& own = lanes[lane];
      own.waits = own.norm < kResolution * lanes[1 - lane].norm;
      own.done = own.done || (!own.waits && !(own.norm > own.limit(squaredTolerance)));
    }
    for (std::size_t lane = 0; lane < 2; ++lane) {
      lanes[lane].done = lanes[lane].done || (lanes[lane].waits && lanes[1 - lane].done);
    }
  }
};

PairSolver::Progress PairSolver::begin(const MaterialField& materials,
                                       const kernels::PairLoad& load,
                                       const std::array<bool, 2>& active,
                                       const PairField& solution,
                                       ThreadPool& team) {
  direction_.clear();
  const Start cold = restart(materials, load, direction_, solution, team);
  const Start warm = solution.isZero() ? cold : restart(materials, load, solution, solution, team);
  Progress progress;
  for (std::size_t lane = 0; lane < 2; ++lane) {
    const LoadEnergy uniform = loadEnergy(materials, load, lane);
    Progress::Lane& own = progress.lanes[lane];
    own.done = !active[lane];
    own.norm = warm.norm[lane];
    own.cold = cold.norm[lane];
    own.floor = kRounding * kRounding * (uniform.strain + uniform.thermal);
    own.isThermal = load.temperature[lane] != 0.0;
    own.energy = own.isThermal ? own.cold : uniform.strain + cold.work[lane] + warm.work[lane];
  }
  return progress;
}

// One step along a new conjugate direction; `step` and `turn` are those of the step before on entry
// and of this one on return.
void PairSolver::advance(const MaterialField& materials,
                         PairField& solution,
                         ThreadPool& team,
                         Progress& progress,
                         Lanes& step,
                         Lanes& turn) {
  const Lanes work = directionForces(materials, solution, step, turn, team);
  for (std::size_t lane = 0; lane < 2; ++lane) {
    Progress::Lane& own = progress.lanes[lane];
    own.done = own.done || (!own.waits && !(work[lane] > 0.0));
    step[lane] = own.rests() ? 0.0 : own.norm / work[lane];
  }
  const Lanes next = precondition(step, team);
  for (std::size_t lane = 0; lane < 2; ++lane) {
    Progress::Lane& own = progress.lanes[lane];
    turn[lane] = own.rests() ? 0.0 : next[lane] / own.norm;
    if (own.done) {
      continue;
    }
    ++own.report.iterations;
    if (!own.isThermal) {
      own.energy -= step[lane] * own.norm;
    }
    own.norm = next[lane];
  }
}

std::array<LaneReport, 2> PairSolver::solve(const MaterialField& materials,
                                            const kernels::PairLoad& load,
                                            const std::array<bool, 2> active,
                                            PairField& solution,
                                            const SolveSettings& settings,
                                            ThreadPool& team) {
  prepare(materials, team);
  const double square = settings.tolerance * settings.tolerance;
  Progress progress = begin(materials, load, active, solution, team);
  progress.review(square);
  Lanes step{};
  Lanes turn{};
  for (int count = 0; count < settings.mostIterations && !progress.isDone(); ++count) {
    advance(materials, solution, team, progress, step, turn);
    progress.review(square);
  }
  for (int plane = 0; plane < basis_->shape.n1; ++plane) {
    kernels_.advance(static_cast<std::int64_t>(force_.planeStride()),
                     step.data(),
                     turn.data(),
                     force_.plane(plane),
                     direction_.plane(plane),
                     solution.plane(plane));
  }
  std::array<LaneReport, 2> reports;
  for (std::size_t lane = 0; lane < 2; ++lane) {
    const Progress::Lane& own = progress.lanes[lane];
    reports[lane] = own.report;
    reports[lane].isConverged = own.done;
    if (active[lane] && own.cold > 0.0) {
      reports[lane].residual = std::sqrt(std::max(0.0, own.norm) / own.cold);
    }
  }
  return reports;
}

}  // namespace kx
