// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/Number.h"

#include <algorithm>
#include <charconv>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace abqinp {
namespace {

[[noreturn]] void fail(const std::string_view text) {
  throw std::invalid_argument(std::string(text));
}

/// `text` from where std::from_chars reads what a stream reads: behind blanks and a "+".
std::string_view numberIn(const std::string_view text) {
  std::string_view number = text;
  number.remove_prefix(std::min(number.find_first_not_of(" \t\n\v\f\r"), number.size()));
  const bool isSigned = !number.empty() && (number.front() == '+' || number.front() == '-');
  const std::string_view digits = number.substr(isSigned ? 1 : 0);
  if (digits.find_first_of("0123456789.") != 0) {  // no "inf", "nan" or second sign
    fail(text);
  }
  return number.front() == '+' ? digits : number;
}

/// Beyond the range of a double the stream tells too large (a failure) from too small (a value).
double outOfRange(const std::string_view number, const std::string_view text) {
  std::istringstream stream{std::string(number)};
  stream.imbue(std::locale::classic());
  double value = 0.0;
  if (!(stream >> value)) {
    fail(text);
  }
  return value;
}

}  // namespace

double toDouble(const std::string_view text) {
  const std::string_view number = numberIn(text);
  double value = 0.0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  const auto length = static_cast<std::size_t>(end - number.data());
  const bool hasExponent = number.substr(0, length).find_first_of("eE") != std::string_view::npos;
  const bool isCut = !hasExponent && number.substr(length).find_first_of("eE") == 0;
  if (error == std::errc::result_out_of_range) {
    return outOfRange(number, text);
  }
  if (error != std::errc() || isCut) {
    fail(text);
  }
  return value;
}

std::int32_t toInt(const std::string_view text) {
  const std::string_view number = numberIn(text);
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc()) {
    fail(text);
  }
  return value;
}

}  // namespace abqinp
