// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_TESTS_WEAVE_VOXEL_TESTCELLS_H
#define KX_TESTS_WEAVE_VOXEL_TESTCELLS_H

#include "elastic/Rotation.h"
#include "weave/voxel/MaterialField.h"

namespace kx::test {

inline TransverselyIsotropic softSolid() {
  return isotropic(3.5e9, 0.35, 5.5e-5);
}
inline TransverselyIsotropic stiffTow() {
  return {140e9, 9e9, 0.28, 0.4, 5e9, 1e-7, 3e-5};
}

inline std::int32_t addMaterial(MaterialField& field,
                                const TransverselyIsotropic& solid,
                                const Frame& frame = Frame::Identity()) {
  const Matrix6 turn = strainTransform(frame);
  const Matrix6 local = stiffness(solid);
  return field.addMaterial(rotateStiffness(local, turn),
                           rotateStress(local * expansion(properties(solid)), turn));
}

/// Tows along an inclined direction at random places in a soft solid: no symmetry at all.
inline MaterialField scattered(const GridShape& shape) {
  MaterialField field(shape);
  addMaterial(field, softSolid());
  addMaterial(field, stiffTow(), fillFrame(0.3));
  addMaterial(field, stiffTow(), warpFrame(-0.2));
  unsigned state = 12345;
  for (std::size_t voxel = 0; voxel < shape.voxels(); ++voxel) {
    state = state * 1664525U + 1013904223U;
    field.addVoxel(static_cast<std::int32_t>((state >> 16U) % 5U) % 3);
  }
  return field;
}

}  // namespace kx::test

#endif
