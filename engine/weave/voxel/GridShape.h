// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_VOXEL_GRIDSHAPE_H
#define KX_WEAVE_VOXEL_GRIDSHAPE_H

#include <cstddef>

namespace kx {

/// A periodic box of equal voxels along the axes 1, 2, 3.
///
/// Voxel (i, j, k) has number (i * n2 + j) * n3 + k. n3 is even: the kernels work on two voxels of
/// a row at a time.
struct GridShape {
  int n1 = 0;
  int n2 = 0;
  int n3 = 0;
  double h1 = 1.0;  ///< voxel edges, any unit of length
  double h2 = 1.0;
  double h3 = 1.0;

  /// The cell repeats along axis 1 displaced by this many voxels along axis 2: voxel
  /// (i + n1, j + shift2, k) is voxel (i, j, k). 0 <= shift2 < n2.
  int shift2 = 0;

  std::size_t rows() const { return static_cast<std::size_t>(n1) * static_cast<std::size_t>(n2); }
  std::size_t voxels() const { return rows() * static_cast<std::size_t>(n3); }
};

}  // namespace kx

#endif
