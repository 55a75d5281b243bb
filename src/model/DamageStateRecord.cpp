// SPDX-License-Identifier: BSD-3-Clause
#include "model/DamageStateRecord.h"

namespace lamcraft {

namespace {

/// Every combination of the codes up to the given one, the pocket's running fastest; a pocket has
/// no fibers that could fail.
std::vector<DamageStateRecord> statesUpTo(const std::int32_t worstTow) {
  std::vector<DamageStateRecord> states;
  for (std::int32_t warp = KX_INTACT; warp <= worstTow; ++warp) {
    for (std::int32_t fill = KX_INTACT; fill <= worstTow; ++fill) {
      for (std::int32_t pocket = KX_INTACT; pocket <= KX_MATRIX_FAILED; ++pocket) {
        DamageStateRecord& record = states.emplace_back();
        record.state =
            KX_STATE_INTACT + pocket + KX_STATE_FILL_STEP * fill + KX_STATE_WARP_STEP * warp;
        record.pocketCode = pocket;
        record.fillCode = fill;
        record.warpCode = warp;
      }
    }
  }
  return states;
}

}  // namespace

std::vector<DamageStateRecord> allDamageStates() {
  return statesUpTo(KX_FIBER_FAILED);
}

std::vector<DamageStateRecord> fatigueDamageStates() {
  return statesUpTo(KX_MATRIX_FAILED);
}

}  // namespace lamcraft
