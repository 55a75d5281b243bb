// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_PROGRAM_PROGRAM_H
#define LAMKIT_PROGRAM_PROGRAM_H

#include <ostream>

#include "findings/Finding.h"

namespace lamkit {

/// Runs the program with the arguments of its process, the first of which is its own name. Results
/// go to `out`, messages to `err`. Does not throw.
ExitCode run(int count, const char* const* arguments, std::ostream& out, std::ostream& err);

}  // namespace lamkit

#endif
