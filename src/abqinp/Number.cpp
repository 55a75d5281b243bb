#include "abqinp/Number.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace abqinp {
namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

bool isDigit(const char c) noexcept {
  return c >= '0' && c <= '9';
}

bool isSign(const char c) noexcept {
  return c == '+' || c == '-';
}

/// A number's text from its first sign or digit on, walked character by character.
class Scan {
 public:
  explicit Scan(const std::string_view text) noexcept
      : text_(text), at_(std::min(text.find_first_not_of(kWhiteSpace), text.size())), begin_(at_) {}

  template <typename Accept>
  bool skip(Accept accept) noexcept {
    const bool accepted = at_ < text_.size() && accept(text_[at_]);
    at_ += accepted ? 1 : 0;
    return accepted;
  }
  std::size_t skipDigits() noexcept {
    const std::size_t from = at_;
    while (skip(isDigit)) {
    }
    return at_ - from;
  }
  [[nodiscard]] std::string_view extent() const noexcept {
    return text_.substr(begin_, at_ - begin_);
  }

 private:
  std::string_view text_;
  std::size_t at_;
  std::size_t begin_;
};

/// The characters that a stream collects for a floating-point number; empty when they are none.
std::string_view floatExtent(const std::string_view text) noexcept {
  Scan scan(text);
  scan.skip(isSign);
  std::size_t digits = scan.skipDigits();
  if (scan.skip([](const char c) { return c == '.'; })) {
    digits += scan.skipDigits();
  }
  if (digits == 0) {
    return {};
  }
  if (scan.skip([](const char c) { return c == 'e' || c == 'E'; })) {
    scan.skip(isSign);
    if (scan.skipDigits() == 0) {
      return {};
    }
  }
  return scan.extent();
}

std::string_view intExtent(const std::string_view text) noexcept {
  Scan scan(text);
  scan.skip(isSign);
  return scan.skipDigits() == 0 ? std::string_view() : scan.extent();
}

std::string_view withoutPlus(const std::string_view extent) noexcept {
  return !extent.empty() && extent.front() == '+' ? extent.substr(1) : extent;
}

[[noreturn]] void fail(const std::string_view text) {
  throw std::invalid_argument(std::string(text));
}

/// Beyond the range of a double the stream tells too large (a failure) from too small (a value).
double outOfRange(const std::string_view extent, const std::string_view text) {
  std::istringstream stream{std::string(extent)};
  stream.imbue(std::locale::classic());
  double value = 0.0;
  if (!(stream >> value)) {
    fail(text);
  }
  return value;
}

/// As the stream extracts it, step by step.
double extracted(const std::string_view text) {
  const std::string_view extent = withoutPlus(floatExtent(text));
  double value = 0.0;
  const auto result = std::from_chars(extent.data(), extent.data() + extent.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    return outOfRange(extent, text);
  }
  if (result.ec != std::errc()) {
    fail(text);
  }
  return value;
}

}  // namespace

double toDouble(const std::string_view text) {
  // Where digits come first, both agree but for an exponent without digits and the limits.
  const std::size_t sign = text.empty() || text.front() != '-' ? 0 : 1;
  if (text.size() > sign && isDigit(text[sign])) {
    const char* const end = text.data() + text.size();
    double value = 0.0;
    const auto result = std::from_chars(text.data(), end, value);
    const bool isCut = result.ptr != end && (*result.ptr == 'e' || *result.ptr == 'E');
    if (result.ec == std::errc() && !isCut) {
      return value;
    }
  }
  return extracted(text);
}

std::int32_t toInt(const std::string_view text) {
  const std::string_view extent = withoutPlus(intExtent(text));
  std::int32_t value = 0;
  const auto result = std::from_chars(extent.data(), extent.data() + extent.size(), value);
  if (result.ec != std::errc()) {
    fail(text);
  }
  return value;
}

}  // namespace abqinp
