// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_TESTS_SUPPORT_BITS_H
#define KX_TESTS_SUPPORT_BITS_H

#include <cstddef>
#include <cstring>
#include <type_traits>
#include <vector>

namespace kx::test {

/// The bytes of numbers, or of records of numbers without gaps. Unlike values, equal bytes tell 0
/// from -0, and a NaN equals itself.
template <class T>
std::vector<unsigned char> bitsOf(const T* const numbers, const std::size_t count) {
  static_assert(std::is_trivially_copyable_v<T>);
  std::vector<unsigned char> bytes(count * sizeof(T));
  std::memcpy(bytes.data(), numbers, bytes.size());
  return bytes;
}

/// The same of one of them, or of an array.
template <class T>
std::vector<unsigned char> bitsOf(const T& numbers) {
  return bitsOf(&numbers, 1);
}

}  // namespace kx::test

#endif
