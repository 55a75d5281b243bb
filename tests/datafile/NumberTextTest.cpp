// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/NumberText.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <ostream>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "datafile/GermanLocale.h"

namespace lamcraft {
namespace {

std::string text(const double value) {
  return formatted(value).data();
}

/// The same by the C library; tests run in the C locale.
std::string printed(const double value) {
  char buffer[128];
  std::snprintf(buffer, sizeof buffer, "%21.14E", value);
  return buffer;
}

struct NumberCase {
  double value;
  const char* text;
};
std::ostream& operator<<(std::ostream& out, const NumberCase& row) {
  return out << row.text;
}

class NumberTextOf : public testing::TestWithParam<NumberCase> {};

TEST_P(NumberTextOf, AFixedNumber) {
  EXPECT_EQ(text(GetParam().value), GetParam().text);
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
const NumberCase kNumberCases[] = {
    {1500.0, " 1.50000000000000E+03"},
    {-1500.0, "-1.50000000000000E+03"},
    {0.0, " 0.00000000000000E+00"},
    {-0.0, "-0.00000000000000E+00"},
    {0.1, " 1.00000000000000E-01"},
    {9.999999999999999e22, " 1.00000000000000E+23"},  // rounds up into the next power
    {1000000000000025.0, " 1.00000000000002E+15"},    // a tie goes to the even digit
    {1000000000000035.0, " 1.00000000000004E+15"},
    {1e100, "1.00000000000000E+100"},
    {-1e-100, "-1.00000000000000E-100"},
    {5e-324, "4.94065645841247E-324"},
    {1.7976931348623157e308, "1.79769313486232E+308"},
    {kInfinity, "                  INF"},
    {-kInfinity, "                 -INF"},
    {kNotANumber, "                  NAN"},
    {std::copysign(kNotANumber, -1.0), "                 -NAN"},
};
INSTANTIATE_TEST_SUITE_P(NumberText, NumberTextOf, testing::ValuesIn(kNumberCases));

TEST(NumberText, AgreesWithPrintfOnAnyBits) {
  std::mt19937_64 bits(20231);
  for (int i = 0; i < 2'000'000; ++i) {
    const std::uint64_t pattern = bits();
    double value = 0.0;
    std::memcpy(&value, &pattern, sizeof value);
    if (std::isnan(value)) {  // printf need not show its sign, and Windows' does not
      continue;
    }
    ASSERT_STREQ(formatted(value).data(), printed(value).c_str()) << std::hex << pattern;
  }
}

TEST(NumberText, AgreesWithPrintfOnUsualNumbers) {
  std::mt19937_64 engine(77);
  std::uniform_real_distribution<double> exponent(-30.0, 30.0);
  std::uniform_int_distribution<int> digits(-99999, 99999);
  for (int i = 0; i < 200'000; ++i) {
    const double measured = digits(engine) * std::pow(10.0, std::floor(exponent(engine)));
    const double computed = std::exp(exponent(engine));
    ASSERT_EQ(text(measured), printed(measured));
    ASSERT_EQ(text(computed), printed(computed));
  }
}

TEST(NumberText, KeepsThePointInAGermanLocale) {
  const GermanLocale german;
  ASSERT_EQ(german.printed(1.5), "1,5");  // else this test shows nothing
  EXPECT_EQ(text(1500.0), " 1.50000000000000E+03");
}

}  // namespace
}  // namespace lamcraft
