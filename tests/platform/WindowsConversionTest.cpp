// SPDX-License-Identifier: BSD-3-Clause
#include "platform/WindowsConversion.h"

#include <windows.h>

#include <string>

#include <gtest/gtest.h>

namespace lamcraft::platform {
namespace {

/// What the conversion makes of a text when it may write `room` bytes.
struct Converted {
  std::codecvt_base::result result;
  std::string bytes;
  std::size_t charactersRead;
};

Converted converted(const std::wstring& text, std::size_t room = 100) {
  const std::locale locale(std::locale::classic(), new ConsoleConversion);
  const auto& conversion = std::use_facet<std::codecvt<wchar_t, char, std::mbstate_t>>(locale);
  std::string bytes(room, '\0');
  std::mbstate_t state{};
  const wchar_t* fromNext = nullptr;
  char* toNext = nullptr;
  const auto result = conversion.out(state,
                                     text.data(),
                                     text.data() + text.size(),
                                     fromNext,
                                     bytes.data(),
                                     bytes.data() + bytes.size(),
                                     toNext);
  return {result,
          bytes.substr(0, static_cast<std::size_t>(toNext - bytes.data())),
          static_cast<std::size_t>(fromNext - text.data())};
}

/// The tests have no console, so that the code page is that of Windows.
bool isWesternEuropean() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &mode) == 0 && GetACP() == 1252;
}

TEST(WindowsConversion, LettersOfTheCodePageBecomeItsBytes) {
  if (!isWesternEuropean()) {
    GTEST_SKIP() << "the code page is another";
  }
  const Converted text = converted(L"Schicht \u00fc\u20ac");
  EXPECT_EQ(text.result, std::codecvt_base::ok);
  EXPECT_EQ(text.bytes, "Schicht \xfc\x80");
}

TEST(WindowsConversion, WhatTheCodePageLacksIsReplaced) {
  if (!isWesternEuropean()) {
    GTEST_SKIP() << "the code page is another";
  }
  EXPECT_EQ(converted(L"a\u7e4ab").bytes, "a?b");
}

TEST(WindowsConversion, PairOfSurrogatesIsOneCharacter) {
  if (!isWesternEuropean()) {
    GTEST_SKIP() << "the code page is another";
  }
  const Converted text = converted(
      L"a\xd83d\xde00"
      L"b");
  EXPECT_EQ(text.charactersRead, 4U);
  EXPECT_EQ(text.result, std::codecvt_base::ok);
  EXPECT_EQ(text.bytes.front(), 'a');
  EXPECT_EQ(text.bytes.back(), 'b');
}

TEST(WindowsConversion, StopsWhereTheRoomEnds) {
  const Converted text = converted(L"fiber", 3);
  EXPECT_EQ(text.result, std::codecvt_base::partial);
  EXPECT_EQ(text.bytes, "fib");
  EXPECT_EQ(text.charactersRead, 3U);
}

TEST(WindowsConversion, NarrowTextStaysAsItIsWhereTheOutputIsNoConsole) {
  if (!isWesternEuropean()) {
    GTEST_SKIP() << "the code page is another";
  }
  const std::locale locale(std::locale::classic(), new NarrowConsoleConversion);
  const auto& conversion = std::use_facet<std::codecvt<char, char, std::mbstate_t>>(locale);
  const std::string text = "t\xe9.qdk";
  std::string bytes(100, '\0');
  std::mbstate_t state{};
  const char* fromNext = nullptr;
  char* toNext = nullptr;
  EXPECT_EQ(conversion.out(state,
                           text.data(),
                           text.data() + text.size(),
                           fromNext,
                           bytes.data(),
                           bytes.data() + bytes.size(),
                           toNext),
            std::codecvt_base::noconv);
}

}  // namespace
}  // namespace lamcraft::platform
