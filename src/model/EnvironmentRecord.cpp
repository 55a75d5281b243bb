// SPDX-License-Identifier: BSD-3-Clause
#include "model/EnvironmentRecord.h"

#include <algorithm>
#include <type_traits>

namespace lamcraft {

// The list of environments grows by moving: a copied property set would forget that it holds
// system defaults, and the unit conversion would scale what is in base units already.
static_assert(std::is_nothrow_move_constructible_v<EnvironmentRecord>,
              "growing a list must move the records, not copy them");

const MoistureCondition& moistureCondition(const std::string_view deckText) noexcept {
  const auto* const found = std::find_if(
      kMoistureConditions.begin(), kMoistureConditions.end(), [&](const MoistureCondition& row) {
        return deckText == row.deckText;
      });
  return found == kMoistureConditions.end() ? kMoistureConditions.front() : *found;
}

EnvironmentRecord::EnvironmentRecord(const std::string_view moistureText,
                                     const double absoluteTemperature)
    : moisture(&moistureCondition(moistureText)), temperature(absoluteTemperature) {}

}  // namespace lamcraft
