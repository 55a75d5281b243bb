// SPDX-License-Identifier: BSD-3-Clause
#include "golden/NumericText.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <sstream>
#include <vector>

namespace lamcraft::test {

namespace {

/// A line taken apart: its text with "#" for every number, and the numbers.
struct SplitLine {
  std::string words;
  std::vector<double> numbers;
};

bool isWordCharacter(const char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool isDigit(const char c) {
  return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

bool startsNumber(const std::string& line, const std::size_t place) {
  if (place > 0 && isWordCharacter(line[place - 1])) {
    return false;
  }
  const bool isSigned = line[place] == '-' && place + 1 < line.size();
  return isDigit(line[place]) || (isSigned && isDigit(line[place + 1]));
}

SplitLine split(const std::string& line) {
  SplitLine result;
  for (std::size_t place = 0; place < line.size();) {
    if (!startsNumber(line, place)) {
      result.words += line[place++];
      continue;
    }
    char* end = nullptr;
    result.numbers.push_back(std::strtod(line.c_str() + place, &end));
    place = static_cast<std::size_t>(end - line.c_str());
    while (!result.words.empty() && result.words.back() == ' ') {
      result.words.pop_back();
    }
    result.words += '#';
  }
  return result;
}

bool isWithin(const double expected, const double actual, const Tolerance& tolerance) {
  const double scale = std::max(std::abs(expected), std::abs(actual));
  return std::abs(expected - actual) <= tolerance.relative * scale + tolerance.absolute;
}

bool isSame(const std::string& expected, const std::string& actual, const Tolerance& tolerance) {
  const SplitLine left = split(expected);
  const SplitLine right = split(actual);
  return left.words == right.words &&
         std::equal(left.numbers.begin(),
                    left.numbers.end(),
                    right.numbers.begin(),
                    right.numbers.end(),
                    [&](const double a, const double b) { return isWithin(a, b, tolerance); });
}

}  // namespace

std::string firstDeviation(const std::string& expected,
                           const std::string& actual,
                           const std::function<Tolerance(const std::string& line)>& toleranceOf) {
  std::istringstream left(expected);
  std::istringstream right(actual);
  std::string leftLine;
  std::string rightLine;
  for (int number = 1;; ++number) {
    const bool hasLeft = static_cast<bool>(std::getline(left, leftLine));
    const bool hasRight = static_cast<bool>(std::getline(right, rightLine));
    if (!hasLeft && !hasRight) {
      return {};
    }
    if (!hasLeft || !hasRight || !isSame(leftLine, rightLine, toleranceOf(leftLine))) {
      return "line " + std::to_string(number) + "\nexpected: " + (hasLeft ? leftLine : "(end)") +
             "\nactual:   " + (hasRight ? rightLine : "(end)");
    }
  }
}

}  // namespace lamcraft::test
