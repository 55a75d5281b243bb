// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_SOLVE_SOLVECOMMAND_H
#define LAMKIT_SOLVE_SOLVECOMMAND_H

#include <CLI/CLI.hpp>

#include "command/Context.h"

namespace lamkit {

/// lamkit solve DECK... --results DIR
void addSolve(CLI::App& program, Context& context);

}  // namespace lamkit

#endif
