// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CARD_CARDTEXT_H
#define LAMKIT_CARD_CARDTEXT_H

#include <string>
#include <vector>

#include "card/CardMaterial.h"

namespace lamkit {

/// A number such as "1.260000000E+11", whatever the locale: ten digits, at most 17 characters.
[[nodiscard]] std::string cardNumber(double value, int digitsAfterPoint = 9);

/// A number with up to seven digits for a text, such as "296.15".
[[nodiscard]] std::string shortNumber(double value);

/// Numbers with ", " between them.
[[nodiscard]] std::string cardNumbers(const std::vector<double>& values);

/// The text as comment lines: each starts with `mark` and has at most 80 characters where words can
/// be parted; control characters become "?".
[[nodiscard]] std::string commentOf(const std::string& mark, const std::string& text);

/// The head of a card as comment lines: what it is, in which units, where the numbers come from,
/// and the verdict with its findings. `remark` says what the solver makes of it.
[[nodiscard]] std::string headOf(const CardMaterial& card,
                                 const std::string& mark,
                                 const std::string& remark);

}  // namespace lamkit

#endif
