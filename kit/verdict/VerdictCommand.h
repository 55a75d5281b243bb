// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_VERDICT_VERDICTCOMMAND_H
#define LAMKIT_VERDICT_VERDICTCOMMAND_H

#include <CLI/CLI.hpp>

#include "command/Context.h"

namespace lamkit {

/// lamkit verdict FOLDER...
void addVerdict(CLI::App& program, Context& context);

}  // namespace lamkit

#endif
