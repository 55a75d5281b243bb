// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_WORDING_H
#define LAMKIT_CHECK_WORDING_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/PropertyTables.h"

/// Pieces of messages.
namespace lamkit {

/// A number in four digits, the same in every locale.
[[nodiscard]] std::string shown(double number);

/// A number and its unit, if that is not empty.
[[nodiscard]] std::string shown(double number, const std::string& unit);

/// "LOW to HIGH UNIT"
[[nodiscard]] std::string shownRange(double low, double high, const std::string& unit);

/// The unit of a dimension in the deck's unit system, such as "MPa"; empty for pure numbers.
[[nodiscard]] std::string unitOf(lamcraft::Dimension dimension, std::int32_t unitSystem);
[[nodiscard]] std::string temperatureUnit(std::int32_t unitSystem);
[[nodiscard]] std::string densityUnit(std::int32_t unitSystem);

/// The name that a misspelt one was most likely meant to be: at most a third of its letters wrong,
/// missing, added or exchanged. Empty when none is that near.
[[nodiscard]] std::string nearest(std::string_view text, const std::vector<std::string>& names);

/// "A, B, C"
[[nodiscard]] std::string joined(const std::vector<std::string>& names);

/// "A, B or C"
[[nodiscard]] std::string listed(const std::vector<std::string>& names);

}  // namespace lamkit

#endif
