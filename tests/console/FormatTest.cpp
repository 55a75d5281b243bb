// SPDX-License-Identifier: BSD-3-Clause
#include "console/Format.h"

#include <locale>

#include <gtest/gtest.h>
#include <boost/locale.hpp>

#include "platform/UserLocale.h"

namespace lamcraft::console {
namespace {

/// Makes a locale global for the length of a test.
class GlobalLocale {
 public:
  explicit GlobalLocale(const std::locale& locale) : previous_(std::locale::global(locale)) {}
  explicit GlobalLocale(const char* name) : GlobalLocale(made(name)) {}
  GlobalLocale(const GlobalLocale&) = delete;
  GlobalLocale& operator=(const GlobalLocale&) = delete;
  ~GlobalLocale() { std::locale::global(previous_); }

 private:
  static std::locale made(const char* name) {
    auto backends = boost::locale::localization_backend_manager::global();
    backends.select(platform::localeBackend());
    return boost::locale::generator(backends)(name);
  }

  std::locale previous_;
};

TEST(Format, ScientificFillsTenColumns) {
  const GlobalLocale english("en_US.UTF-8");
  EXPECT_EQ(scientific(150000.0), " 1.500e+05");
  EXPECT_EQ(scientific(-0.25), "-2.500e-01");
  EXPECT_EQ(scientific(0.0), " 0.000e+00");
  EXPECT_EQ(scientific(-1.0e-300), "-1.000e-300");
}

TEST(Format, ScientificTakesTheDecimalMarkOfTheLocale) {
  const GlobalLocale german("de_DE.UTF-8");
  EXPECT_EQ(scientific(150000.0), " 1,500e+05");
}

TEST(Format, NumbersLookAlikeInEnglishAndC) {
  const GlobalLocale c("C");
  EXPECT_EQ(scientific(150000.0), " 1.500e+05");
  EXPECT_EQ(display(0.00123456789), "0.00123457");
  EXPECT_EQ(display(std::int64_t{12}), "12");
}

TEST(Format, DisplayGroupsTheDigitsOfLargeNumbers) {
  const GlobalLocale english("en_US.UTF-8");
  EXPECT_EQ(display(std::int64_t{1234567}), "1,234,567");
  EXPECT_EQ(display(12345.6), "12,345.6");
  EXPECT_EQ(display(1.5e-7), "1.5e-07");
}

TEST(Format, DisplayFollowsTheGlobalLocaleAtOnce) {
  {
    const GlobalLocale german("de_DE.UTF-8");
    EXPECT_EQ(display(0.5), "0,5");
    EXPECT_EQ(display(std::int64_t{1234567}), "1.234.567");
  }
  const GlobalLocale english("en_US.UTF-8");
  EXPECT_EQ(display(0.5), "0.5");
}

TEST(Format, ListSeparatorIsACommaWhereTheLocaleCarriesNone) {
  const GlobalLocale classic(std::locale::classic());
  EXPECT_EQ(listSeparator(), ", ");
}

TEST(Format, ListSeparatorIsASemicolonForTheTwoGermanNamesAlone) {
  const auto separatorOf = [](const char* name) {
    const GlobalLocale global(withListSeparator(std::locale::classic(), name));
    return listSeparator();
  };
  EXPECT_EQ(separatorOf("de_DE.UTF-8"), "; ");
  EXPECT_EQ(separatorOf("German_Germany.1252"), "; ");
  for (const char* name :
       {"", "C", "en_US.UTF-8", "de_DE.utf8", "de_DE", "de_AT.UTF-8", "German_Germany.65001"}) {
    EXPECT_EQ(separatorOf(name), ", ") << name;
  }
}

}  // namespace
}  // namespace lamcraft::console
