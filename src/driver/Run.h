// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DRIVER_RUN_H
#define LAMCRAFT_DRIVER_RUN_H

#include <string>
#include <vector>

#include "driver/FailureReports.h"

namespace lamcraft::driver {

/// The whole run: sets up locale and console, reads the deck `arguments[1]` and creates its
/// material, in the results folder `arguments[2]` when there is one. Without a deck it prints how
/// the program is called. Standard exceptions are reported here and decide the exit code.
///
/// `arguments` are those of the process, the program's path first; those after the third are not
/// looked at.
ExitCode run(const std::vector<std::string>& arguments);

}  // namespace lamcraft::driver

#endif
