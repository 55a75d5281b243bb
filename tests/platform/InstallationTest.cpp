// SPDX-License-Identifier: BSD-3-Clause
#include "platform/Installation.h"

#include <gtest/gtest.h>

namespace lamcraft::platform {
namespace {

TEST(Installation, CataloguesLieInBinLocale) {
  EXPECT_EQ(catalogueFolderBelow(L"C:\\Program Files\\App\\"),
            "C:\\Program Files\\App\\bin\\locale");
}

TEST(Installation, NoSeparatorIsInserted) {
  EXPECT_EQ(catalogueFolderBelow(L"C:\\App"), "C:\\Appbin\\locale");
  EXPECT_EQ(catalogueFolderBelow(L""), "bin\\locale");
}

TEST(Installation, CharactersKeepTheirLowByte) {
  EXPECT_EQ(catalogueFolderBelow(L"\u00fc\u0141\\"), "\xfc\x41\\bin\\locale");
}

}  // namespace
}  // namespace lamcraft::platform
