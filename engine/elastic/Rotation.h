// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_ELASTIC_ROTATION_H
#define KX_ELASTIC_ROTATION_H

#include "elastic/Voigt.h"

namespace kx {

/// Local axes as the rows of a rotation matrix, in composite components: local = frame * composite.
using Frame = Eigen::Matrix3d;

/// Axes of a fill tow whose centreline rises by `slope` = dz/dx: 1 along the tow in the plane 1-3,
/// 2 stays the composite's 2.
Frame fillFrame(double slope) noexcept;

/// Axes of a warp tow whose centreline rises by `slope` = dz/dy: 1 along the tow in the plane 2-3
/// (a turn by 90 degrees about 3, then the slope), 2 the composite's -1.
Frame warpFrame(double slope) noexcept;

/// T of strain_local = T strain_composite (engineering shear); auld1973, in this order
/// of components. Stresses transform with its inverse transpose, which is
/// strainTransform(frame.transpose()).transpose().
Matrix6 strainTransform(const Frame& frame);

/// Stiffness in composite axes of a solid whose stiffness in local axes is `local`: T^T C T.
Matrix6 rotateStiffness(const Matrix6& local, const Matrix6& strainTransform);

/// Stress vector (also C alpha) in composite axes: T^T sigma_local.
Vector6 rotateStress(const Vector6& local, const Matrix6& strainTransform);

}  // namespace kx

#endif
