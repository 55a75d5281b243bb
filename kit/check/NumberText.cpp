// SPDX-License-Identifier: BSD-3-Clause
#include "check/NumberText.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

#include "abqinp/Number.h"

namespace lamkit {

namespace {

bool isDigit(const char character) {
  return character >= '0' && character <= '9';
}

std::size_t endOfDigits(const std::string& text, std::size_t at) {
  while (at < text.size() && isDigit(text[at])) {
    ++at;
  }
  return at;
}

std::size_t endOfExponent(const std::string& text, const std::size_t at) {
  if (at >= text.size() || (text[at] != 'E' && text[at] != 'e')) {
    return at;
  }
  const bool hasSign = at + 1 < text.size() && (text[at + 1] == '+' || text[at + 1] == '-');
  const std::size_t digits = at + (hasSign ? 2 : 1);
  const std::size_t end = endOfDigits(text, digits);
  return end > digits ? end : at;
}

/// Where the number at the start of the text ends.
std::size_t endOfNumber(const std::string& text) {
  std::size_t at = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  at = endOfDigits(text, at);
  if (at < text.size() && text[at] == '.') {
    at = endOfDigits(text, at + 1);
  }
  return endOfExponent(text, at);
}

}  // namespace

NumberText readNumber(const std::string& text) {
  NumberText result;
  result.isEmpty = text.empty();
  try {
    result.number = result.isEmpty ? 0.0 : abqinp::toDouble(text);
    result.isNumber = !result.isEmpty;
    result.ignored = text.substr(endOfNumber(text));
  } catch (const std::invalid_argument&) {
    result.isNumber = false;
  }
  return result;
}

bool changesNumber(const std::string& ignored) {
  if (std::none_of(ignored.begin(), ignored.end(), isDigit)) {
    return false;
  }
  const auto first = static_cast<unsigned char>(ignored.front());
  const bool isLetter = (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z');
  const bool isExponent = ignored.find_first_not_of("DdEe+-0123456789") == std::string::npos;
  return !isLetter || isExponent;
}

bool isFraction(const std::string& text) {
  const std::size_t digits = endOfDigits(text, 0);
  return digits > 0 && endOfExponent(text, digits) == text.size();
}

bool isWhole(const std::string& text) {
  const std::size_t first = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  return text.size() > first && endOfDigits(text, first) == text.size();
}

}  // namespace lamkit
