// SPDX-License-Identifier: BSD-3-Clause
#include "platform/WindowsText.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace lamcraft::platform {
namespace {

TEST(WindowsText, AsciiIsTheSameInEveryCodePage) {
  EXPECT_EQ(widened("C:\\Materials\\AS4 3501-6"), L"C:\\Materials\\AS4 3501-6");
  EXPECT_EQ(widened(""), L"");
}

TEST(WindowsText, BytesAreReadInTheCodePageOfWindows) {
  if (GetACP() != 1252) {
    GTEST_SKIP() << "the code page is " << GetACP();
  }
  EXPECT_EQ(widened("\xd6l f\xfcr \x80"), L"\u00d6l f\u00fcr \u20ac");
}

TEST(WindowsText, WhatTheCodePageLacksIsNoOtherLetter) {
  if (GetACP() != 1252) {
    GTEST_SKIP() << "the code page is " << GetACP();
  }
  EXPECT_EQ(narrowed(L"\u00d6l \u20ac"), "\xd6l \x80");
  EXPECT_EQ(narrowed(L"\u0101.qdk"), "?.qdk");
}

}  // namespace
}  // namespace lamcraft::platform
