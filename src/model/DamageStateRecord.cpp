#include "model/DamageStateRecord.h"

#include <cstddef>

namespace lamcraft {

void DamageStateRecord::publish() {
  for (std::size_t set = 0; set < kDamageSetCount; ++set) {
    properties[set].load(data.sets[set].data(), Symmetry::unset);
  }
}

namespace {

/// How far a part of the cell may have failed; the pocket has no fibers, so at most its matrix.
enum FailureCode : std::int32_t { intact = 0, matrixFailed = 1, fiberFailed = 2 };

/// Every combination of the codes up to the given ones, the pocket's running fastest.
std::vector<DamageStateRecord> statesUpTo(const FailureCode worstTow) {
  constexpr std::int32_t kPocketCodes = matrixFailed + 1;
  constexpr std::int32_t kTowCodes = fiberFailed + 1;
  std::vector<DamageStateRecord> states;
  const auto towCodes = static_cast<std::size_t>(worstTow) + 1;
  states.reserve(towCodes * towCodes * kPocketCodes);  // a record is costly to move
  for (std::int32_t warp = intact; warp <= worstTow; ++warp) {
    for (std::int32_t fill = intact; fill <= worstTow; ++fill) {
      for (std::int32_t pocket = intact; pocket < kPocketCodes; ++pocket) {
        DamageStateData& data = states.emplace_back().data;
        data.state = 1 + pocket + kPocketCodes * (fill + kTowCodes * warp);
        data.pocketCode = pocket;
        data.fillCode = fill;
        data.warpCode = warp;
      }
    }
  }
  return states;
}

}  // namespace

std::vector<DamageStateRecord> allDamageStates() {
  return statesUpTo(fiberFailed);
}

std::vector<DamageStateRecord> fatigueDamageStates() {
  return statesUpTo(matrixFailed);
}

}  // namespace lamcraft
