// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/Number.h"

#include <cfloat>
#include <clocale>
#include <cstdint>
#include <cstring>
#include <limits>
#include <locale>
#include <optional>
#include <ostream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace abqinp {
namespace {

template <typename Number>
std::optional<Number> fromStream(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  Number value = 0;
  stream >> std::dec >> value;
  return stream.fail() ? std::nullopt : std::optional<Number>(value);
}

template <typename Number, Number (*convert)(std::string_view)>
std::optional<Number> converted(const std::string& text) {
  try {
    return convert(text);
  } catch (const std::invalid_argument& error) {
    EXPECT_EQ(error.what(), text);
    return std::nullopt;
  }
}

std::uint64_t bitsOf(const double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

bool sameBits(const std::optional<double>& a, const std::optional<double>& b) {
  return a.has_value() == b.has_value() && (!a.has_value() || bitsOf(*a) == bitsOf(*b));
}

struct DoubleCase {
  const char* text;
  double value;
};

std::ostream& operator<<(std::ostream& out, const DoubleCase& row) {
  return out << '"' << row.text << '"';
}

class DoubleOf : public testing::TestWithParam<DoubleCase> {};

TEST_P(DoubleOf, Text) {
  EXPECT_EQ(toDouble(GetParam().text), GetParam().value);
  EXPECT_TRUE(sameBits(toDouble(GetParam().text), fromStream<double>(GetParam().text)));
}

INSTANTIATE_TEST_SUITE_P(Number,
                         DoubleOf,
                         testing::Values(DoubleCase{"1.5E3", 1500.0},
                                         DoubleCase{"12ABC", 12.0},
                                         DoubleCase{"+7", 7.0},
                                         DoubleCase{"-0.5", -0.5},
                                         DoubleCase{".5", 0.5},
                                         DoubleCase{"5.", 5.0},
                                         DoubleCase{"1.E2", 100.0},
                                         DoubleCase{"1.5.3", 1.5},
                                         DoubleCase{"2e1e5", 20.0},
                                         DoubleCase{"2e1.5", 20.0},
                                         DoubleCase{"0x10", 0.0},
                                         DoubleCase{"000012", 12.0},
                                         DoubleCase{" \t\n\v\f\r3", 3.0},
                                         DoubleCase{"1D5", 1.0},
                                         DoubleCase{"1E-400", 0.0},
                                         DoubleCase{"5E-324", 4.9406564584124654e-324},
                                         DoubleCase{"1.7976931348623157E308", DBL_MAX}));

class NoDouble : public testing::TestWithParam<const char*> {};

TEST_P(NoDouble, FailsWithTheTextAsItsMessage) {
  try {
    toDouble(GetParam());
    FAIL() << "read a number from " << GetParam();
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(), GetParam());
  }
  EXPECT_FALSE(fromStream<double>(GetParam()).has_value());
}

INSTANTIATE_TEST_SUITE_P(Number,
                         NoDouble,
                         testing::Values("",
                                         " ",
                                         "ABC",
                                         "1E",
                                         "1E+",
                                         "1EX",
                                         "1E+-5",
                                         ".",
                                         "-",
                                         "+-5",
                                         "--5",
                                         "- 5",
                                         "E5",
                                         ".E5",
                                         "INF",
                                         "-INF",
                                         "NAN",
                                         "1E309",
                                         "-1E400",
                                         "\"1.5\""));

TEST(Number, IsThatOfAClassicStreamForRandomTexts) {
  const std::string alphabet = "0123456789012345+-..eEeExX ,\tAn";
  std::mt19937 random(20230417);
  std::uniform_int_distribution<std::size_t> length(0, 12);
  std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
  std::size_t numbers = 0;
  for (int i = 0; i < 100000; ++i) {
    std::string text(length(random), ' ');
    for (char& c : text) {
      c = alphabet[letter(random)];
    }
    const auto real = converted<double, toDouble>(text);
    EXPECT_TRUE(sameBits(real, fromStream<double>(text))) << '"' << text << '"';
    EXPECT_EQ((converted<std::int32_t, toInt>(text)), fromStream<std::int32_t>(text))
        << '"' << text << '"';
    numbers += real.has_value() ? 1 : 0;
  }
  EXPECT_GT(numbers, 20000U) << "too few of the texts are numbers";
}

TEST(Number, IsThatOfAClassicStreamToTheLastBit) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 50000; ++i) {
    const std::uint64_t bits = random();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(static_cast<int>(1 + random() % 25));
    text << value;
    EXPECT_TRUE(sameBits(converted<double, toDouble>(text.str()), fromStream<double>(text.str())))
        << text.str();
  }
}

TEST(Number, ReadsLongTextsOfDigits) {
  const std::string digits(5000, '7');
  EXPECT_TRUE(sameBits(toDouble("0." + digits), fromStream<double>("0." + digits)));
  EXPECT_TRUE(sameBits(toDouble("0." + std::string(5000, '0') + "1E5000"),
                       fromStream<double>("0." + std::string(5000, '0') + "1E5000")));
  EXPECT_THROW(toDouble(digits), std::invalid_argument);
  EXPECT_THROW(toInt(digits), std::invalid_argument);
}

TEST(Number, StopsAtANulByte) {
  EXPECT_EQ(toDouble(std::string_view("1\0002", 3)), 1.0);
  EXPECT_EQ(toInt(std::string_view("1\0002", 3)), 1);
}

TEST(Number, ReadsIntegersOf32Bits) {
  EXPECT_EQ(toInt("2147483647"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(toInt("-2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(toInt("+12ABC"), 12);
  EXPECT_EQ(toInt("1.9"), 1);
  EXPECT_EQ(toInt("0x10"), 0);
  EXPECT_EQ(toInt("010"), 10);
  EXPECT_THROW(toInt("2147483648"), std::invalid_argument);
  EXPECT_THROW(toInt("-2147483649"), std::invalid_argument);
  EXPECT_THROW(toInt("99999999999999999999"), std::invalid_argument);
  EXPECT_THROW(toInt(""), std::invalid_argument);
  EXPECT_THROW(toInt("+-1"), std::invalid_argument);
}

/// Numbers as German readers write them.
class DecimalComma : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(Number, DoesNotDependOnTheProgramsLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const std::locale german(std::locale::classic(), new DecimalComma);
  const std::locale previous = std::locale::global(german);
  std::setlocale(LC_ALL, "de_DE.UTF-8");  // where the system has it
  EXPECT_EQ(toDouble("1.5"), 1.5);
  EXPECT_EQ(toDouble("1.500.000"), 1.5);
  EXPECT_EQ(toDouble("1.5E-400"), 0.0);
  EXPECT_EQ(toInt("1.500"), 1);
  std::locale::global(previous);
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace abqinp
