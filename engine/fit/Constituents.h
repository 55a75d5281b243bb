// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_CONSTITUENTS_H
#define KX_FIT_CONSTITUENTS_H

#include "elastic/TransverselyIsotropic.h"

namespace kx {

/// The two materials that a fit moves.
template <class Scalar>
struct ConstituentsOf {
  TransverselyIsotropicOf<Scalar> fiber;
  TransverselyIsotropicOf<Scalar> matrix;
};
using Constituents = ConstituentsOf<double>;

inline bool isAdmissible(const Constituents& materials) noexcept {
  return isAdmissible(materials.fiber) && isAdmissible(materials.matrix);
}

/// True when the two make a lamina: both admissible, the fiber's fraction inside (0, 1).
inline bool makeALamina(const Constituents& materials, const double fiberFraction) noexcept {
  return fiberFraction > 0.0 && fiberFraction < 1.0 && isAdmissible(materials);
}

}  // namespace kx

#endif
