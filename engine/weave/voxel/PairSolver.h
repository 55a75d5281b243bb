// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_VOXEL_PAIRSOLVER_H
#define KX_WEAVE_VOXEL_PAIRSOLVER_H

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

#include "parallel/ThreadPool.h"
#include "weave/voxel/AlignedArray.h"
#include "weave/voxel/Kernels.h"
#include "weave/voxel/MaterialField.h"
#include "weave/voxel/PairField.h"
#include "weave/voxel/SpectralBasis.h"

namespace kx {

struct SolveSettings {
  /// Of the residual's energy norm, relative to that at zero displacement.
  double tolerance = 1e-4;
  int mostIterations = 3000;
};

/// One lane's outcome.
struct LaneReport {
  int iterations = 0;
  double residual = 0.0;    ///< energy norm at the end, relative to that at zero displacement
  bool isConverged = true;  ///< false: mostIterations were not enough
};

/// Periodic displacement fluctuations of a heterogeneous cell under unit loads, two load cases at
/// once.
///
/// Displacements on the corners of the voxels, one integration point per voxel (the rotated scheme
/// of willot2015; as finite elements schneider2017) and two for in-plane strains, conjugate
/// gradients preconditioned by a homogeneous orthotropic reference in Fourier space (moulinec1998,
/// zeman2010). The two cases are the real and the imaginary part of one complex field for the
/// transforms, which the reference does not mix; elsewhere they are two lanes with coefficients of
/// their own.
///
///     PairSolver solver(std::make_shared<SpectralBasis>(materials.shape()));
///     kernels::PairLoad load;
///     load.strain[k11][0] = load.strain[k22][1] = 1.0;  // lane 0 and lane 1
///     PairField fluctuations(materials.shape());        // zero: a cold start
///     const auto reports = solver.solve(materials, load, {true, true}, fluctuations, {}, team);
class PairSolver {
 public:
  explicit PairSolver(std::shared_ptr<const SpectralBasis> basis);

  /// Solves div(C (unit strain + grad u) - beta temperature) = 0 for the lanes of `load`.
  /// `solution` holds the start on entry; lanes that are not active keep it. Work is shared out to
  /// `team`; results have the same bits for any team. Iterates at least down to rounding if the
  /// tolerance asks for it, and stops at mostIterations.
  std::array<LaneReport, 2> solve(const MaterialField& materials,
                                  const kernels::PairLoad& load,
                                  std::array<bool, 2> active,
                                  PairField& solution,
                                  const SolveSettings& settings,
                                  ThreadPool& team);

 private:
  using Lanes = std::array<double, 2>;

  void prepare(const MaterialField& materials, const ThreadPool& team);
  void planeForces(const MaterialField& materials,
                   const kernels::PairLoad* load,
                   const PairField& nodes,
                   int plane,
                   bool nearPart,
                   bool farPart,
                   std::size_t worker);
  void finishPlane(int plane, std::size_t worker);
  void unitForces(const MaterialField& materials,
                  const kernels::PairLoad& load,
                  const PairField& nodes,
                  const PairField& start,
                  ThreadPool& team);
  void sumPlane(const PairField& field, int plane);
  Lanes summedPlanes() const;
  Lanes directionForces(const MaterialField& materials,
                        PairField& solution,
                        const Lanes& step,
                        const Lanes& turn,
                        ThreadPool& team);
  void advancePlane(
      PairField& solution, const Lanes& step, const Lanes& turn, int plane, std::size_t worker);
  Lanes precondition(const Lanes& step, ThreadPool& team);
  void preconditionRow(int row, const Lanes& step, std::size_t worker);
  kernels::SpectralJob spectralJob(int row, const Lanes& step, std::size_t worker);
  struct Progress;
  Progress begin(const MaterialField& materials,
                 const kernels::PairLoad& load,
                 const std::array<bool, 2>& active,
                 const PairField& solution,
                 ThreadPool& team);
  void advance(const MaterialField& materials,
               PairField& solution,
               ThreadPool& team,
               Progress& progress,
               Lanes& step,
               Lanes& turn);
  struct Start {
    Lanes norm;  ///< squared energy norm of the residual
    Lanes work;  ///< of the forces on the start
  };
  Start restart(const MaterialField& materials,
                const kernels::PairLoad& load,
                const PairField& nodes,
                const PairField& start,
                ThreadPool& team);

  std::shared_ptr<const SpectralBasis> basis_;
  const kernels::Table& kernels_;
  PairField force_;        ///< forces, and in Fourier space the descent direction, of one iteration
  PairField direction_;    ///< conjugate direction
  AlignedArray residual_;  ///< transformed residual, [k2][component][k1][k3]
  std::array<double, 9> reference_{};
  std::vector<AlignedArray> planeScratch_;      ///< per worker
  std::vector<AlignedArray> spectralScratch_;   ///< per worker
  std::vector<AlignedArray> transformScratch_;  ///< per worker
  std::vector<std::array<double, 2>> planeSums_;
  std::vector<kernels::SpectralSums> rowSums_;
};

}  // namespace kx

#endif
