// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CARD_CARDCOMMAND_H
#define LAMKIT_CARD_CARDCOMMAND_H

#include <CLI/CLI.hpp>

#include "command/Context.h"

namespace lamkit {

/// Adds "lamkit card FOLDER --for SOLVER". Both arguments must outlive the parsing.
void addCard(CLI::App& program, Context& context);

}  // namespace lamkit

#endif
