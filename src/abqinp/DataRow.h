// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_ABQINP_DATAROW_H
#define LAMCRAFT_ABQINP_DATAROW_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "abqinp/DeckLine.h"

namespace abqinp {

/// The values of one data line. Columns count from 0.
class DataRow {
 public:
  /// A line that is blank, or does not exist.
  DataRow() = default;
  explicit DataRow(const std::string_view line) : values_(valuesOf(line)) {}

  [[nodiscard]] const std::vector<Value>& values() const noexcept { return values_; }

  /// The number at a column; the default when there is none or its value is empty. Raises
  /// std::invalid_argument with the value's text when it cannot be read.
  [[nodiscard]] double doubleValue(std::size_t column, double defaultValue) const;
  [[nodiscard]] std::int32_t intValue(std::size_t column, std::int32_t defaultValue) const;

 private:
  [[nodiscard]] bool isGiven(const std::size_t column) const {
    return column < values_.size() && !values_[column].text.empty();
  }

  std::vector<Value> values_;
};

}  // namespace abqinp

#endif
