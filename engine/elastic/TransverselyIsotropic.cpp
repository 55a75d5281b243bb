// SPDX-License-Identifier: BSD-3-Clause
#include "elastic/TransverselyIsotropic.h"

namespace kx {

bool isAdmissible(const TransverselyIsotropic& solid) noexcept {
  // G23 = E22 / (2 (1 + v23)) > 0 and the minors of the general case reduce to the two conditions.
  return isAdmissible(properties(solid));
}

}  // namespace kx
