// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_SYSTEM_HEXADECIMAL_H
#define LAMKIT_SYSTEM_HEXADECIMAL_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace lamkit {

/// Two lower-case digits for each byte.
template <std::size_t Count>
std::string hexadecimal(const std::uint8_t (&bytes)[Count]) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(2 * Count);
  for (const std::uint8_t byte : bytes) {
    text += kDigits[byte >> 4U];
    text += kDigits[byte & 0xFU];
  }
  return text;
}

}  // namespace lamkit

#endif
