// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_TABLE_ROW_H
#define LAMKIT_TABLE_ROW_H

#include <string>
#include <variant>
#include <vector>

#include "findings/Finding.h"

namespace lamkit {

/// What a cell holds: nothing, a number, or a text.
using Cell = std::variant<std::monostate, double, std::string>;

/// The names of the columns, with units: "temperature [K]", "lamina E11 [Pa]".
[[nodiscard]] const std::vector<std::string>& columnNames();

/// What the table says of one folder.
struct FolderRows {
  std::vector<std::vector<Cell>> rows;  ///< one an environment; as many cells as columns
  std::vector<Finding> findings;        ///< about the folder
};

/// The rows of a folder; one with environment 0 when it has no data. Findings are those that solve
/// wrote down, or else those of verdict.
[[nodiscard]] FolderRows rowsOf(const std::string& folder);

}  // namespace lamkit

#endif
