// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/InputFileException.h"

#include <stdexcept>
#include <type_traits>

#include <gtest/gtest.h>

namespace abqinp {
namespace {

TEST(InputFileException, NamesTheKeywordAndItsFault) {
  EXPECT_STREQ(InputFileException::invalidKeyword("KW1").what(), "Invalid keyword: KW1");
  EXPECT_STREQ(InputFileException::misplacedKeyword("KW1").what(), "Misplaced keyword: KW1");
  EXPECT_STREQ(InputFileException::missingParent("KW1", "KW0").what(),
               "Keyword, KW1, missing parent keyword: KW0");
}

TEST(InputFileException, IsARuntimeErrorThatKeepsItsMessageThere) {
  static_assert(std::is_base_of_v<std::runtime_error, InputFileException>);
  static_assert(sizeof(InputFileException) == sizeof(std::runtime_error));
  static_assert(std::is_nothrow_copy_constructible_v<InputFileException>);
  try {
    throw InputFileException::invalidKeyword("A");
  } catch (const std::exception& error) {
    EXPECT_STREQ(error.what(), "Invalid keyword: A");
  }
}

}  // namespace
}  // namespace abqinp
