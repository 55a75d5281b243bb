// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_VOXEL_PAIRFIELD_H
#define KX_WEAVE_VOXEL_PAIRFIELD_H

#include <algorithm>

#include "weave/voxel/AlignedArray.h"
#include "weave/voxel/GridShape.h"
#include "weave/voxel/Kernels.h"

namespace kx {

/// A periodic vector field on the corners of the voxels, for the two load cases (lanes) of a pair.
///
/// Node (i, j, k) is the corner of voxel (i, j, k) towards the origin. Planes of constant i lie one
/// after the other; in a plane the three components, each a row after row of 2 * n3 doubles, lane
/// 0 and 1 side by side.
class PairField {
 public:
  PairField() = default;
  explicit PairField(const GridShape& shape)
      : shape_(shape), values_(3 * static_cast<std::size_t>(shape.n1) * componentStride()) {}

  /// Doubles from one component of a plane to the next. A cache line more than the nodes need: at
  /// powers of two all components and planes would otherwise compete for the same cache lines.
  std::size_t componentStride() const {
    return 2 * static_cast<std::size_t>(shape_.n2) * static_cast<std::size_t>(shape_.n3) + 8;
  }
  std::size_t planeStride() const { return 3 * componentStride(); }

  bool isEmpty() const { return values_.isEmpty(); }
  double* plane(const int i) {
    return values_.data() + static_cast<std::size_t>(i) * planeStride();
  }
  const double* plane(const int i) const {
    return values_.data() + static_cast<std::size_t>(i) * planeStride();
  }
  /// Component c of all nodes (i, j, all k), both lanes.
  const double* row(const int i, const int j, const int c) const {
    return plane(i) + static_cast<std::size_t>(c) * componentStride() +
           2 * static_cast<std::size_t>(j) * static_cast<std::size_t>(shape_.n3);
  }
  double* row(const int i, const int j, const int c) {
    return const_cast<double*>(static_cast<const PairField*>(this)->row(i, j, c));
  }
  const GridShape& shape() const { return shape_; }

  /// What a kernel needs to know about the nodes of voxel plane i.
  kernels::PlaneJob planeJob(int i) const;

  void clear() { values_.clear(); }
  bool isZero() const {
    const double* const end = values_.data() + values_.size();
    return std::all_of(values_.data(), end, [](const double value) { return value == 0.0; });
  }

 private:
  GridShape shape_;
  AlignedArray values_;
};

/// Strains of the voxels of plane i that one lane of a field makes: kernels::kStrainRows rows of
/// n2 * n3 values.
void planeGradients(const PairField& field, std::ptrdiff_t lane, int i, double* strains);

}  // namespace kx

#endif
