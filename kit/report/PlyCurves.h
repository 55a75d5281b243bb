// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_REPORT_PLYCURVES_H
#define LAMKIT_REPORT_PLYCURVES_H

#include <vector>

#include "elastic/Properties.h"

namespace lamkit {

/// What a ply answers to a load at an angle to its axis 1.
struct OffAxis {
  double angle = 0.0;    ///< [degree]
  double modulus = 0.0;  ///< E along the load
  double shear = 0.0;    ///< G in the plane of the ply
  double ratio = 0.0;    ///< v, contraction across the load in the plane
};

/// Off-axis constants from 0 to 90 degrees in steps of three, by turning the ply's stiffness.
[[nodiscard]] std::vector<OffAxis> offAxisCurve(const kx::Properties& ply);

}  // namespace lamkit

#endif
