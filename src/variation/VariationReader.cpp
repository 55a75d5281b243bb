// SPDX-License-Identifier: BSD-3-Clause
#include "variation/VariationReader.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace lamcraft {

VariationReader::VariationReader(std::vector<Row> rows, std::function<void()> followUp)
    : rows_(std::move(rows)), followUp_(std::move(followUp)) {}

void VariationReader::read(const abqinp::Keyword& keyword) const {
  const std::string name = keyword.parameterText("PROP");
  const auto row = std::find_if(
      rows_.begin(), rows_.end(), [&](const Row& candidate) { return candidate.name == name; });
  if (row == rows_.end()) {
    throw std::invalid_argument("Invalid variation property:" + name);
  }
  const VariationTable table = variationTable(keyword);
  for (VariableProperty* const property : row->properties) {
    property->fill(table);
  }
  if (followUp_) {
    followUp_();
  }
}

VariationTable variationTable(const abqinp::Keyword& keyword) {
  VariationTable table{};
  const auto readRow = [&](const std::size_t row, const std::size_t columns) {
    for (std::size_t column = 0; column < columns; ++column) {
      table[row][column] = keyword.doubleValue(row, column, 0.0);
    }
  };
  readRow(0, 2);  // the range
  const VariableProperty layout;
  std::size_t row = 1;
  for (const Distribution* const distribution : layout.distributions()) {
    readRow(row++, distribution->parameterCount());
  }
  return table;
}

}  // namespace lamcraft
