// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_FUZZ_CALLINPUT_H
#define LAMCRAFT_TESTS_FUZZ_CALLINPUT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <vector>

#include "fuzz/Target.h"

namespace lamcraft::fuzz {

/// The arguments of calls, drawn from the bytes of an input.
///
/// The first byte is 0 in an input without fits. Then come the calls, of which each starts with a
/// byte that names the function; its highest bit says that every number comes from the input.
/// Otherwise the numbers are the usual ones but for those that the input replaces: a byte tells how
/// many stay as they are (kEndOfCall: all that are left), then come the bytes of the next one. A
/// text counts as a number. Behind its end the input replaces nothing.
class CallInput {
 public:
  CallInput(const std::uint8_t* data, const std::size_t size) : at_(data), end_(data + size) {}

  [[nodiscard]] bool hasMore() const noexcept { return at_ != end_; }

  /// Whether there may be fits among the calls; asked before the first of them.
  bool hasFits() { return byte() != 0; }
  /// Starts a call; answers which of `count` functions it is.
  unsigned function(const unsigned count) {
    const auto code = byte();
    replacesAll_ = (code & 0x80U) != 0;
    countOn();
    return (code & 0x7FU) % count;
  }
  /// Any bit pattern, or the usual number.
  template <typename Number>
  Number number(const Number usual) {
    if (stays()) {
      return usual;
    }
    const auto size = static_cast<std::size_t>(end_ - at_);
    if (size < sizeof(Number)) {
      at_ = end_;
      keeps_ = kEndOfCall;
      return usual;
    }
    Number number{};
    std::memcpy(&number, at_, sizeof number);
    at_ += sizeof number;
    countOn();
    return number;
  }
  /// Exactly as many numbers as `usual` has, in a block of their own.
  template <typename Numbers>
  std::vector<double> numbers(const Numbers& usual) {
    std::vector<double> result;
    result.reserve(std::size(usual));
    for (const double value : usual) {
      result.push_back(number(value));
    }
    return result;
  }

  /// As numbers(), for one of many long arrays, so that a short input reaches the last of them: a
  /// byte says whether it stays as it is, every number is drawn, or a few, which take turns.
  template <typename Numbers>
  std::vector<double> manyNumbers(const Numbers& usual) {
    constexpr unsigned kChoices = 4;
    constexpr unsigned kMostInTurn = 12;
    const unsigned choice = keeps_ == kEndOfCall ? kEndOfCall : byte();
    if (choice == kEndOfCall || choice % kChoices == 0) {
      return {std::begin(usual), std::end(usual)};
    }
    countOn();
    if (choice % kChoices == 1) {
      return numbers(usual);
    }
    auto result = numbers(std::vector<double>(
        std::begin(usual), std::begin(usual) + 1 + choice / kChoices % kMostInTurn));
    const std::size_t inTurn = result.size();
    result.reserve(std::size(usual));
    while (result.size() < std::size(usual)) {
      result.push_back(result[result.size() - inTurn]);
    }
    return result;
  }
  /// Any bytes but a zero, and a zero, in a block of their own.
  std::vector<char> text(const char* const usual) {
    if (stays()) {
      return {usual, usual + std::strlen(usual) + 1};
    }
    constexpr unsigned kMostBytes = 32;
    std::vector<char> result;
    for (auto left = byte() % kMostBytes; left > 0 && hasMore(); --left) {
      result.push_back(static_cast<char>(byte()));
    }
    result.push_back('\0');
    result.shrink_to_fit();
    countOn();
    return result;
  }

 private:
  static constexpr unsigned kEndOfCall = 255;

  /// Whether the next number is the usual one, which is asked once for each.
  bool stays() {
    if (keeps_ > 0 && keeps_ != kEndOfCall) {
      --keeps_;
      return true;
    }
    return keeps_ == kEndOfCall;
  }
  void countOn() { keeps_ = replacesAll_ ? 0 : byte(); }
  unsigned byte() { return at_ == end_ ? kEndOfCall : *at_++; }

  const std::uint8_t* at_;
  const std::uint8_t* end_;
  bool replacesAll_ = false;
  unsigned keeps_ = 0;
};

}  // namespace lamcraft::fuzz

#endif
