// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_VOXEL_SPECTRALBASIS_H
#define KX_WEAVE_VOXEL_SPECTRALBASIS_H

#include <vector>

#include "fft/Transform.h"
#include "weave/voxel/GridShape.h"

namespace kx {

/// Transforms and wave numbers of one grid; immutable, shared by all solvers of the grid.
struct SpectralBasis {
  explicit SpectralBasis(const GridShape& shape);

  GridShape shape;
  PlaneTransform plane;  ///< axes 2 and 3 of one component of one plane
  LineTransform lines;   ///< axis 1 of all k3 of one k2
  /// Half-phases: sin and cos of pi m / n per signed frequency m of the axis, side by side.
  std::vector<double> axis2;
  /// The same along axis 3, as the kernels read them: every sine twice, in the order of k3 and
  /// the first once more, then every cosine likewise.
  std::vector<double> axis3;
  /// The same along axis 1 per row k2 = 0 ... n2 / 2: in a displaced cell, fields of the signed
  /// wave number m2 repeat along axis 1 with the phase -2 pi m2 shift2 / n2, so that their
  /// frequencies are m1 - m2 shift2 / n2.
  std::vector<double> axis1;
  /// cos and sin of the part of that phase that has come up at plane i, per k2 and plane: fields
  /// turned by this are periodic. Empty where the cell is not displaced.
  std::vector<double> planePhases;

  /// planePhases of one k2, null without.
  const double* phasesOf(int k2) const;
  /// Largest square of a wave vector: smaller ones by 1e-10 belong to the mean and to the modes
  /// that reduced integration does not see.
  double largestSquare = 0.0;
};

}  // namespace kx

#endif
