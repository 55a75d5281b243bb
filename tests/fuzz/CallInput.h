#ifndef LAMCRAFT_TESTS_FUZZ_CALLINPUT_H
#define LAMCRAFT_TESTS_FUZZ_CALLINPUT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/Target.h"

namespace lamcraft::fuzz {

/// The arguments of calls, drawn from the bytes of an input.
///
/// The first byte is 0 in an input without fits. Then come the calls, of which each starts with a
/// byte that names the function; its highest bit says that every number comes from the input.
/// Otherwise the numbers are the usual ones but for those that the input replaces: a byte tells how
/// many stay as they are (kEndOfCall: all that are left), then come the bytes of the next one.
/// Behind its end the input replaces nothing.
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
    keeps_ = replacesAll_ ? 0 : byte();
    return (code & 0x7FU) % count;
  }
  /// Any bit pattern, or the usual number.
  template <typename Number>
  Number number(const Number usual) {
    if (keeps_ == kEndOfCall) {
      return usual;
    }
    if (keeps_ > 0) {
      --keeps_;
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
    keeps_ = replacesAll_ ? 0 : byte();
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

 private:
  static constexpr unsigned kEndOfCall = 255;

  unsigned byte() { return at_ == end_ ? kEndOfCall : *at_++; }

  const std::uint8_t* at_;
  const std::uint8_t* end_;
  bool replacesAll_ = false;
  unsigned keeps_ = 0;
};

}  // namespace lamcraft::fuzz

#endif
