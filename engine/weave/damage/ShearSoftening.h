// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_DAMAGE_SHEARSOFTENING_H
#define KX_WEAVE_DAMAGE_SHEARSOFTENING_H

#include <vector>

#include "shear/MatrixDegradation.h"
#include "weave/model/WeaveModel.h"

namespace kx {

/// How the in-plane shear modulus of a woven ply falls when the axial shear moduli G12 and G13 of
/// its matrix, in the pocket and in the tows, are multiplied by 1, 0.8, ... 0.12: shear solves of
/// the unit cell, each started from the one before. The description must be sensible, the
/// constituents admissible.
std::vector<DegradationPair> shearSoftening(ThreadPool& team,
                                            const WeaveDescription& weave,
                                            const TransverselyIsotropic& fiber,
                                            const TransverselyIsotropic& matrix);

}  // namespace kx

#endif
