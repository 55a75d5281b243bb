// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_COMMAND_OPTIONS_H
#define LAMKIT_COMMAND_OPTIONS_H

#include <CLI/CLI.hpp>

#include "command/Context.h"

namespace lamkit {

/// Gives a subcommand --format, --color and --quiet, which set their members of `context`. Both
/// must outlive the parsing of the command line. Colours are "auto": on a terminal, unless NO_COLOR
/// is set.
void addFindingOptions(CLI::App& command, Context& context);

/// Whether the standard error stream is a terminal.
[[nodiscard]] bool isErrorTerminal();

/// Gives a subcommand --quiet alone.
void addQuietOption(CLI::App& command, Context& context);

}  // namespace lamkit

#endif
