// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/DataRow.h"

#include "abqinp/Number.h"

namespace abqinp {

double DataRow::doubleValue(const std::size_t column, const double defaultValue) const {
  return isGiven(column) ? toDouble(values_[column].text) : defaultValue;
}

std::int32_t DataRow::intValue(const std::size_t column, const std::int32_t defaultValue) const {
  return isGiven(column) ? toInt(values_[column].text) : defaultValue;
}

}  // namespace abqinp
