// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_VERDICT_AMOUNT_H
#define LAMKIT_VERDICT_AMOUNT_H

#include <string>

#include "model/PropertyTables.h"

/// Numbers in messages, in base units; check/Wording.h has those in the units of a deck.
namespace lamkit {

/// A number in base units, with a unit that keeps it short: "126 GPa", "4.5e-05 1/K".
[[nodiscard]] std::string amount(double number, lamcraft::Dimension dimension);

/// Two digits: what is an estimate itself.
[[nodiscard]] std::string roughly(double number);

/// A part as per cent, without a sign: "3.2 %".
[[nodiscard]] std::string percent(double part);

}  // namespace lamkit

#endif
