// SPDX-License-Identifier: BSD-3-Clause
#include "check/Quantities.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "check/Wording.h"

namespace lamkit {

namespace {

/// How far outside its range a value is no matter of material any more.
constexpr double kAbsurd = 1e3;
/// How far outside a single value is more likely in another unit than unusual.
constexpr double kOtherUnit = 20.0;

const Unit* fittingUnit(const QuantityGroup& group,
                        const std::vector<const Quantity*>& quantities) {
  constexpr double kSameUnit = 1e-3;
  for (std::size_t i = 0; i < group.unitCount; ++i) {
    const Unit& unit = group.units[i];
    const bool fits =
        std::all_of(quantities.begin(), quantities.end(), [&](const Quantity* const quantity) {
          return std::abs(unit.factor / quantity->factor - 1.0) > kSameUnit &&
                 quantity->range.holds(quantity->value * unit.factor);
        });
    if (fits) {
      return &unit;
    }
  }
  return nullptr;
}

/// The factor by which a value misses its range; infinite where the sign is another.
double excess(const Quantity& quantity) {
  const double value = quantity.base();
  const Range& range = quantity.range;
  const double bound = value > range.high ? range.high : range.low;
  if (std::isfinite(value) && value != 0.0 && (value > 0.0) == (bound > 0.0) && bound != 0.0) {
    return std::max(value / bound, bound / value);
  }
  const double scale = std::max(std::abs(range.low), std::abs(range.high));
  return std::abs(value) > scale ? std::abs(value) / scale : 1.0;
}

std::string usualText(const QuantityGroup& group, const Quantity& quantity) {
  return group.owner + " have " +
         shownRange(quantity.range.low / quantity.factor,
                    quantity.range.high / quantity.factor,
                    quantity.unit);
}

Figures figuresOf(const Quantity& quantity) {
  return {shown(quantity.value, quantity.unit),
          shownRange(quantity.range.low / quantity.factor,
                     quantity.range.high / quantity.factor,
                     quantity.unit)};
}

std::string isText(const Quantity& quantity) {
  return (quantity.spot.keyword.empty() ? std::string() : quantity.spot.keyword + " ") +
         quantity.name + " is " + shown(quantity.value, quantity.unit);
}

void addSlip(const QuantityGroup& group,
             const Quantity& quantity,
             const Unit& unit,
             const std::size_t others,
             Report& report) {
  const std::string many = std::to_string(others) + (others == 1 ? " other" : " others");
  const std::string question = others == 0 ? "was it" : "were it and the " + many + " of its kind";
  const std::string message = isText(quantity) + ", " + usualText(group, quantity) + ": " +
                              question + " meant in " + std::string(unit.name) + " (a factor of " +
                              shown(unit.factor / quantity.factor) + ")?";
  report.add("unit-slip", Severity::error, quantity.spot, message, figuresOf(quantity));
}

/// Answers whether it is a slip of units.
bool judgeSingle(const QuantityGroup& group, const Quantity& quantity, Report& report) {
  const Unit* const unit = fittingUnit(group, {&quantity});
  const double off = excess(quantity);
  if (unit != nullptr && off >= kOtherUnit) {
    addSlip(group, quantity, *unit, 0, report);
    return true;
  }
  report.add("implausible",
             off >= kAbsurd ? Severity::error : Severity::warning,
             quantity.spot,
             isText(quantity) + ", " + usualText(group, quantity) + ": check it",
             figuresOf(quantity));
  return false;
}

}  // namespace

bool judge(const QuantityGroup& group, Report& report) {
  std::vector<const Quantity*> given;
  std::vector<const Quantity*> unusual;
  for (const Quantity& quantity : group.quantities) {
    if (quantity.value != 0.0) {
      given.push_back(&quantity);
      if (!quantity.isUsual()) {
        unusual.push_back(&quantity);
      }
    }
  }
  if (unusual.empty()) {
    return false;
  }
  const Unit* const unit = fittingUnit(group, given);
  if (unit != nullptr && unusual.size() >= 2) {
    addSlip(group, *unusual.front(), *unit, given.size() - 1, report);
    return true;
  }
  bool slipped = false;
  for (const Quantity* const quantity : unusual) {
    slipped = judgeSingle(group, *quantity, report) || slipped;
  }
  return slipped;
}

}  // namespace lamkit
