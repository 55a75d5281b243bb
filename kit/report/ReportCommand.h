// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_REPORT_REPORTCOMMAND_H
#define LAMKIT_REPORT_REPORTCOMMAND_H

#include <CLI/CLI.hpp>

#include "command/Context.h"

namespace lamkit {

/// Adds "lamkit report FOLDER... -o PAGE.html". Both arguments must outlive the parsing.
void addReport(CLI::App& program, Context& context);

}  // namespace lamkit

#endif
