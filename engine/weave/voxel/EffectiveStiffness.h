// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_VOXEL_EFFECTIVESTIFFNESS_H
#define KX_WEAVE_VOXEL_EFFECTIVESTIFFNESS_H

#include "elastic/Voigt.h"
#include "weave/voxel/PairSolver.h"

namespace kx {

struct EffectiveStiffness {
  Matrix6 stiffness = Matrix6::Zero();  ///< mean stress under the six unit strains [Pa]
  int iterations = 0;                   ///< summed over the six
};

/// Effective stiffness of any periodic cell, in the memory of two load cases at a time.
EffectiveStiffness effectiveStiffness(const MaterialField& materials,
                                      const SolveSettings& settings,
                                      ThreadPool& team);

}  // namespace kx

#endif
