// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_REPORT_CSVFILES_H
#define LAMKIT_REPORT_CSVFILES_H

#include <string>

#include "folder/MaterialFolder.h"

namespace lamkit {

/// The decompositions of a weave as CSV with a head: environment, temperature, moisture,
/// constituent, state, matrix, row, column, value. Empty for a material that has none.
[[nodiscard]] std::string decompositionsCsv(const MaterialData& data);

}  // namespace lamkit

#endif
