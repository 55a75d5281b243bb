// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_CHECKCOMMAND_H
#define LAMKIT_CHECK_CHECKCOMMAND_H

#include <CLI/CLI.hpp>

#include "command/Context.h"

namespace lamkit {

/// lamkit check DECK...
void addCheck(CLI::App& program, Context& context);

}  // namespace lamkit

#endif
