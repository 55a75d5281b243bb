#ifndef LAMCRAFT_TESTS_FUZZ_CALLINPUT_H
#define LAMCRAFT_TESTS_FUZZ_CALLINPUT_H

#include <algorithm>
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

/// Numbers that a call may write, between words that it must not touch.
template <typename Number>
class Guarded {
 public:
  explicit Guarded(const std::vector<Number>& start) : all_(start.size() + 2 * kGuard) {
    std::memset(all_.data(), kPattern, all_.size() * sizeof(Number));
    std::copy(start.begin(), start.end(), begin());
  }
  explicit Guarded(const std::size_t count) : Guarded(std::vector<Number>(count)) {}
  Guarded(const Guarded&) = delete;
  Guarded& operator=(const Guarded&) = delete;
  ~Guarded() {
    require(isPattern(all_.data()) && isPattern(&all_[all_.size() - kGuard]),
            "a call writes its outputs and nothing beside them");
  }

  Number* data() { return all_.data() + kGuard; }
  Number* begin() { return data(); }
  Number* end() { return all_.data() + all_.size() - kGuard; }
  Number& operator[](const std::size_t index) { return data()[index]; }

 private:
  static constexpr std::size_t kGuard = 8;
  static constexpr unsigned char kPattern = 0xA5;

  static bool isPattern(const Number* words) {
    const auto* const bytes = reinterpret_cast<const unsigned char*>(words);
    return std::all_of(bytes, bytes + kGuard * sizeof(Number), [](const unsigned char byte) {
      return byte == kPattern;
    });
  }

  std::vector<Number> all_;
};

}  // namespace lamcraft::fuzz

#endif
