// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_GOLDEN_NUMERICTEXT_H
#define LAMCRAFT_TESTS_GOLDEN_NUMERICTEXT_H

#include <functional>
#include <string>

namespace lamcraft::test {

/// How far two numbers may lie apart: relative to the larger one, plus absolute. Both infinite:
/// any two numbers pass.
struct Tolerance {
  double relative = 0.0;
  double absolute = 0.0;
};

/// Compares two texts line by line: the same words in the same places, and numbers in the same
/// places within the tolerance of their line. Blanks before a number do not count, since its sign
/// takes one. A digit that follows a letter, as in E11, belongs to a word.
///
/// Answers what is wrong with the first line that deviates, or an empty text.
std::string firstDeviation(const std::string& expected,
                           const std::string& actual,
                           const std::function<Tolerance(const std::string& line)>& toleranceOf);

}  // namespace lamcraft::test

#endif
