// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_TEXTRULES_H
#define LAMKIT_CHECK_TEXTRULES_H

#include <string_view>
#include <vector>

#include "findings/Finding.h"

namespace lamkit {

/// What is wrong with a deck as bytes, before anything is read into them: "byte-order-mark",
/// "utf-16", "cr-only" and "odd-character". Members `file` are left empty.
[[nodiscard]] std::vector<Finding> checkText(std::string_view deck);

/// What the lines of a deck hide: "trailing-comment", and data or a "*" that belong to no keyword.
[[nodiscard]] std::vector<Finding> checkLines(std::string_view deck);

/// Whether the deck is two-byte text, of which the reader makes nothing; further findings would be
/// noise.
[[nodiscard]] bool isTwoByteText(std::string_view deck) noexcept;

}  // namespace lamkit

#endif
