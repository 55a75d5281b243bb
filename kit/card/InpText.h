// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CARD_INPTEXT_H
#define LAMKIT_CARD_INPTEXT_H

#include <string>
#include <vector>

#include "card/CardMaterial.h"

/// What the input files of CalculiX and Abaqus have in common.
namespace lamkit::inp {

/// The numbers of one line of a table, without the temperature.
using NumbersOf = std::vector<double> (*)(const CardEnvironment& environment);

/// A keyword with a line of numbers and temperature for each temperature.
[[nodiscard]] std::string tableOf(const std::string& keyword,
                                  const CardMaterial& card,
                                  NumbersOf numbersOf);

/// "*MATERIAL" with engineering constants, expansion and density over temperature. Engineering
/// constants take two lines: eight on the first, the ninth and the temperature on the second.
[[nodiscard]] std::string materialOf(const CardMaterial& card);

}  // namespace lamkit::inp

#endif
