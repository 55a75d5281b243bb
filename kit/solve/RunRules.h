// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_SOLVE_RUNRULES_H
#define LAMKIT_SOLVE_RUNRULES_H

#include <string>
#include <vector>

#include "findings/Finding.h"
#include "system/ChildProcess.h"

namespace lamkit {

/// What is wrong with a run of lamcraft: "timeout", or "failed" for another exit code than 0, a
/// FATAL ERROR on its console, or no material data. `console` is all that it printed.
[[nodiscard]] std::vector<Finding> runFindings(const ChildEnd& end,
                                               const std::string& console,
                                               bool hasData);

}  // namespace lamkit

#endif
