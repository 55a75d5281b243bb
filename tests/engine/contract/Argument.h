// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_TESTS_CONTRACT_ARGUMENT_H
#define KX_TESTS_CONTRACT_ARGUMENT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <vector>

namespace kx::test {

/// What an argument holds until it is filled or written.
inline constexpr int kUntouched = -7;

/// One argument of a call: `count` numbers in a block of their own between `guard` words that the
/// call must not touch. The process ends when it did.
template <typename Number, std::size_t count, std::size_t guard>
class Argument {
 public:
  using value_type = Number;
  using iterator = Number*;
  using const_iterator = const Number*;

  Argument() : words_(count + 2 * guard) {
    std::memset(words_.data(), kPattern, words_.size() * sizeof(Number));
    fill(kUntouched);
  }
  Argument(const Argument&) = default;
  Argument& operator=(const Argument&) = default;
  ~Argument() {
    require(isPattern(words_.data()) && isPattern(end()),
            "a call writes its outputs and nothing beside them");
  }

  /// Takes `count` numbers.
  template <typename Numbers>
  Argument& operator=(const Numbers& numbers) {
    require(numbers.size() == count, "an argument gets as many numbers as the contract says");
    std::copy(numbers.begin(), numbers.end(), begin());
    return *this;
  }
  Argument& operator=(const std::initializer_list<Number> numbers) {
    return operator=<std::initializer_list<Number>>(numbers);
  }
  void fill(const Number number) { std::fill(begin(), end(), number); }

  Number* data() { return words_.data() + guard; }
  [[nodiscard]] const Number* data() const { return words_.data() + guard; }
  Number* begin() { return data(); }
  [[nodiscard]] const Number* begin() const { return data(); }
  Number* end() { return data() + count; }
  [[nodiscard]] const Number* end() const { return data() + count; }
  [[nodiscard]] static constexpr std::size_t size() { return count; }
  Number& operator[](const std::size_t index) { return data()[index]; }
  const Number& operator[](const std::size_t index) const { return data()[index]; }

  /// The number, where there is but one.
  Number& value() {
    static_assert(count == 1);
    return *data();
  }
  [[nodiscard]] Number value() const {
    static_assert(count == 1);
    return *data();
  }

  template <typename Numbers>
  bool operator==(const Numbers& numbers) const {
    return std::equal(begin(), end(), std::begin(numbers), std::end(numbers));
  }

 private:
  static constexpr unsigned char kPattern = 0xA5;

  static void require(const bool holds, const char* const fact) {
    if (!holds) {
      std::fprintf(stderr, "fault: not true that %s\n", fact);
      std::abort();
    }
  }
  static bool isPattern(const Number* const words) {
    const auto* const bytes = reinterpret_cast<const unsigned char*>(words);
    return std::all_of(bytes, bytes + guard * sizeof(Number), [](const unsigned char byte) {
      return byte == kPattern;
    });
  }

  std::vector<Number> words_;
};

/// What a call only reads: the block ends with it, so that a sanitizer sees what is read behind.
template <typename Number, std::size_t count>
using In = Argument<Number, count, 0>;

/// What a call writes, be it read before or not.
template <typename Number, std::size_t count = 1>
using Out = Argument<Number, count, 8>;

}  // namespace kx::test

#endif
