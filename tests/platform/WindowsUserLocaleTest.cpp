// SPDX-License-Identifier: BSD-3-Clause
#include <clocale>
#include <cstdio>
#include <cwchar>
#include <string>

#include <gtest/gtest.h>

#include "platform/UserLocale.h"

namespace lamcraft::platform {
namespace {

TEST(WindowsUserLocale, NameIsThatOfTheCLibrary) {
  const std::string name = userLocaleName();
  EXPECT_STREQ(std::setlocale(LC_ALL, ""), name.c_str());
  std::setlocale(LC_ALL, "C");
}

TEST(WindowsUserLocale, NumbersStayAsTheyAreInC) {
  userLocaleName();
  userLocale();
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

TEST(WindowsUserLocale, WideTextsOfTheLocaleHaveAConversion) {
  const std::locale user = userLocale();
  const auto& conversion = std::use_facet<std::codecvt<wchar_t, char, std::mbstate_t>>(user);
  const std::wstring text = L"fiber";
  std::string bytes(text.size(), '\0');
  std::mbstate_t state{};
  const wchar_t* fromNext = nullptr;
  char* toNext = nullptr;
  EXPECT_EQ(conversion.out(state,
                           text.data(),
                           text.data() + text.size(),
                           fromNext,
                           bytes.data(),
                           bytes.data() + bytes.size(),
                           toNext),
            std::codecvt_base::ok);
  EXPECT_EQ(bytes, "fiber");
}

}  // namespace
}  // namespace lamcraft::platform
