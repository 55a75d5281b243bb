// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_TABLE_TABLECOMMAND_H
#define LAMKIT_TABLE_TABLECOMMAND_H

#include <CLI/CLI.hpp>

#include "command/Context.h"

namespace lamkit {

/// lamkit table DIR... [--csv|--json]
void addTable(CLI::App& program, Context& context);

}  // namespace lamkit

#endif
