// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_QUANTITIES_H
#define LAMKIT_CHECK_QUANTITIES_H

#include <string>
#include <vector>

#include "check/Ranges.h"
#include "check/Report.h"
#include "check/Units.h"

namespace lamkit {

/// A value of the deck, with what would be usual for it.
struct Quantity {
  std::string name;
  double value;      ///< in the deck's unit
  double factor;     ///< of the deck's unit to N, m, K and kg
  std::string unit;  ///< the deck's
  Range range;       ///< in N, m, K and kg
  Spot spot;

  [[nodiscard]] double base() const { return value * factor; }
  [[nodiscard]] bool isUsual() const { return range.holds(base()); }
};

/// Values that an author writes in one unit: the moduli of a ply, six strengths.
struct QuantityGroup {
  std::string owner;  ///< "plies", "polymers": who has such values
  const Unit* units;  ///< that they may have been meant in
  std::size_t unitCount;
  std::vector<Quantity> quantities;
};

template <std::size_t Count>
QuantityGroup groupOf(std::string owner, const std::array<Unit, Count>& units) {
  return {std::move(owner), units.data(), Count, {}};
}

/// "unit-slip" where another unit makes the whole group usual, "implausible" for single values. A
/// value of 0 is none. Answers whether there was a slip of units.
bool judge(const QuantityGroup& group, Report& report);

}  // namespace lamkit

#endif
