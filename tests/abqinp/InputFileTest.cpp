// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/InputFile.h"

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <filesystem>
#include <locale>
#include <stdexcept>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "TemporaryFile.h"

namespace abqinp {
namespace {

std::string walked(InputFile& deck) {
  std::string text;
  deck.restart();
  while (deck.nextKeyword()) {
    text += deck.currentKeyword()->toText(true);
  }
  return text;
}

template <typename Error, typename Call>
std::string messageOf(Call call) {
  try {
    call();
  } catch (const Error& error) {
    return error.what();
  }
  return "nothing was thrown";
}

TEST(InputFile, IsEmptyAtFirst) {
  InputFile deck;
  EXPECT_EQ(deck.countKeywords(), 0U);
  EXPECT_EQ(deck.currentKeyword(), nullptr);
  EXPECT_FALSE(deck.nextKeyword());
}

TEST(InputFile, IsMadeToBeDerivedFrom) {
  static_assert(std::has_virtual_destructor_v<InputFile>);
  static_assert(!std::is_copy_constructible_v<InputFile>);
}

TEST(InputFile, WalksOverTheBlocks) {
  const TemporaryFile file("** note\n*kw1, A=1\n1, 2\n*kw2\n");
  InputFile deck;
  deck.read(file.path());
  EXPECT_EQ(deck.currentKeyword(), nullptr) << "the cursor starts before the first block";
  ASSERT_TRUE(deck.nextKeyword());
  EXPECT_EQ(deck.currentKeyword()->comment(), "** note");
  ASSERT_TRUE(deck.nextKeyword());
  EXPECT_EQ(deck.currentKeyword()->name(), "KW1");
  EXPECT_EQ(deck.currentKeyword()->intValue(0, 1, 0), 2);
  ASSERT_TRUE(deck.nextKeyword());
  EXPECT_EQ(deck.currentKeyword()->name(), "KW2");
  EXPECT_FALSE(deck.nextKeyword());
  EXPECT_EQ(deck.currentKeyword(), nullptr);
  EXPECT_FALSE(deck.nextKeyword()) << "the end stays the end";
}

TEST(InputFile, WalksAgainAfterARestart) {
  const TemporaryFile file("** a\n*KW1\n1\n** b\n2\n*KW2\n");
  InputFile deck;
  deck.read(file.path());
  ASSERT_TRUE(deck.nextKeyword());
  deck.restart();
  EXPECT_EQ(deck.currentKeyword(), nullptr);
  EXPECT_EQ(walked(deck), "** a\n** b\n*KW1\n1\n2\n*KW2\n");
  EXPECT_EQ(walked(deck), "** a\n** b\n*KW1\n1\n2\n*KW2\n");
}

TEST(InputFile, CountsCommentsWhenNoNameIsGiven) {
  const TemporaryFile file("** a\n*kw1\n*kw2\n*kw1\n** b\n");
  InputFile deck;
  deck.read(file.path());
  EXPECT_EQ(deck.countKeywords(), 5U);
  EXPECT_EQ(deck.countKeywords("KW1"), 2U);
  EXPECT_EQ(deck.countKeywords("kw1"), 0U);
  EXPECT_EQ(deck.countKeywords("KW"), 0U);
}

TEST(InputFile, ReadsInPlaceOfWhatItHeld) {
  const TemporaryFile first("*KW1\n");
  const TemporaryFile second("*KW2\n");
  InputFile deck;
  deck.read(first.path());
  ASSERT_TRUE(deck.nextKeyword());
  deck.read(second.path());
  EXPECT_EQ(deck.currentKeyword(), nullptr);
  EXPECT_EQ(walked(deck), "*KW2\n");
}

TEST(InputFile, ReadsAnEmptyFile) {
  const TemporaryFile file;
  InputFile deck;
  deck.read(file.path());
  EXPECT_EQ(deck.countKeywords(), 0U);
  EXPECT_FALSE(deck.nextKeyword());
}

TEST(InputFile, NamesTheFileThatItCannotRead) {
  const TemporaryFile kept("*KW1\n");
  const std::string missing = kept.path() + "/missing.qdk";
  const std::string folder = std::filesystem::temp_directory_path().string();
  InputFile deck;
  deck.read(kept.path());
  EXPECT_EQ(messageOf<std::runtime_error>([&] { deck.read(missing); }),
            "Could not open file " + missing);
  EXPECT_EQ(messageOf<std::runtime_error>([&] { deck.read(folder); }),
            "Could not open file " + folder);
  EXPECT_EQ(messageOf<std::runtime_error>([&] { deck.read(""); }), "Could not open file ");
  EXPECT_EQ(walked(deck), "*KW1\n") << "what was read before is still there";
}

TEST(InputFile, NamesTheFileThatItCannotWrite) {
  const TemporaryFile file;
  const std::string below = file.path() + "/input.qdk";
  const std::string folder = std::filesystem::temp_directory_path().string();
  const InputFile deck;
  EXPECT_EQ(messageOf<std::runtime_error>([&] { deck.write(below, true); }),
            "Could not open file " + below);
  EXPECT_EQ(messageOf<std::runtime_error>([&] { deck.write(folder, true); }),
            "Could not open file " + folder);
}

TEST(InputFile, WritesSortedOrWrittenOrderWithOneBlankAfterCommas) {
  const TemporaryFile file(
      "**  A comment,\tas it is\r\n  *kw1 ,b = \" x \",a\r\n1.5e3,2,,\r\n\r\n3\r\n\r\n*kw2");
  const TemporaryFile copy("what stood there before, and was longer than what comes now, by far");
  InputFile deck;
  deck.read(file.path());
  deck.write(copy.path(), false);
  EXPECT_EQ(copy.content(),
            "**  A comment,\tas it is\n*KW1, A, B=\" x \"\n1.5E3, 2, , \n\n3\n*KW2\n");
  deck.write(copy.path(), true);
  EXPECT_EQ(copy.content(),
            "**  A comment,\tas it is\n*KW1, B=\" x \", A\n1.5E3, 2, , \n\n3\n*KW2\n");
}

TEST(InputFile, ReadsItsOwnCopyAsTheSameDeck) {
  const TemporaryFile file(
      "lost\n** a\n*kw1, Name=\"Carbon Epoxy\", b,\n c=1\n1,,2\n** b\n\n 3,\n\n*kw2\n\n4\n** c");
  const TemporaryFile first;
  const TemporaryFile second;
  InputFile deck;
  deck.read(file.path());
  deck.write(first.path(), true);
  deck.read(first.path());
  deck.write(second.path(), true);
  EXPECT_EQ(first.content(), second.content());
  EXPECT_EQ(walked(deck), first.content());
}

TEST(InputFile, WritesWhatAWalkShows) {
  std::string text = "lost\n";
  for (int i = 0; i < 5000; ++i) {
    text += i % 3 == 0 ? "** comment " + std::to_string(i) + "\n" : "";
    text += i % 50 == 0 ? "*kw, n=" + std::to_string(i) + "\n" : "1, 2.5e-3, \"a b\"\n";
  }
  const TemporaryFile file(text);
  const TemporaryFile copy;
  InputFile deck;
  deck.read(file.path());
  deck.write(copy.path(), true);
  EXPECT_EQ(copy.content(), walked(deck));
  EXPECT_EQ(deck.countKeywords(), 5000U / 3 + 1 + 100);
}

/// A conversion of file contents that no deck survives.
class EveryByteIsX : public std::codecvt<char, char, std::mbstate_t> {
 protected:
  bool do_always_noconv() const noexcept override { return false; }
  result do_in(std::mbstate_t& /*state*/,
               const char* from,
               const char* fromEnd,
               const char*& fromNext,
               char* to,
               char* toEnd,
               char*& toNext) const override {
    const auto count = std::min(fromEnd - from, toEnd - to);
    fromNext = from + count;
    toNext = std::fill_n(to, count, 'X');
    return ok;
  }
  result do_out(std::mbstate_t& state,
                const char* from,
                const char* fromEnd,
                const char*& fromNext,
                char* to,
                char* toEnd,
                char*& toNext) const override {
    return do_in(state, from, fromEnd, fromNext, to, toEnd, toNext);
  }
};

TEST(InputFile, ReadsAndWritesBytesThatNoLocaleConverts) {
  const TemporaryFile file("*KW1\n1.5\n");
  const TemporaryFile copy;
  const std::locale previous =
      std::locale::global(std::locale(std::locale::classic(), new EveryByteIsX));
  InputFile deck;
  deck.read(file.path());
  deck.write(copy.path(), true);
  std::locale::global(previous);
  EXPECT_EQ(walked(deck), "*KW1\n1.5\n");
  EXPECT_EQ(copy.content(), "*KW1\n1.5\n");
}

TEST(InputFile, ReportsAFullDisk) {
  if (!std::filesystem::exists("/dev/full")) {
    GTEST_SKIP() << "no device that is always full";
  }
  const TemporaryFile file("*KW1\n" + std::string(1000000, 'x') + "\n");
  InputFile deck;
  deck.read(file.path());
  EXPECT_EQ(messageOf<std::runtime_error>([&] { deck.write("/dev/full", true); }),
            "Could not write file /dev/full");
  EXPECT_EQ(deck.countKeywords(), 1U);
}

class IndexedFile : public InputFile {
 public:
  using InputFile::requireIndex;
};

TEST(InputFile, RefusesAnIndexBeyond32Bits) {
  EXPECT_NO_THROW(IndexedFile::requireIndex(0));
  EXPECT_NO_THROW(IndexedFile::requireIndex(2147483647U));
  EXPECT_EQ(messageOf<std::out_of_range>([] { IndexedFile::requireIndex(2147483648U); }),
            "Keyword index out of range");
  EXPECT_THROW(IndexedFile::requireIndex(std::uint64_t{1} << 32U), std::out_of_range);
}

TEST(InputFile, ReadsAMillionDataLinesWithACommentBetweenAnyTwo) {
  // In quadratic time this would take hours.
  std::string text = "** first\n";
  for (int i = 0; i < 300000; ++i) {
    text += "lost\n**\n";
  }
  text += "*sndata\n";
  for (int i = 0; i < 1000000; ++i) {
    text += "1.0,2\n** c\n";
  }
  const TemporaryFile file(text);
  InputFile deck;
  deck.read(file.path());
  EXPECT_EQ(deck.countKeywords(), 1300002U);
  std::size_t comments = 0;
  while (deck.nextKeyword() && deck.currentKeyword()->isComment()) {
    ++comments;
  }
  EXPECT_EQ(comments, 1300000U) << "the last comment stands behind the keyword";
  ASSERT_NE(deck.currentKeyword(), nullptr);
  EXPECT_EQ(deck.currentKeyword()->lineCount(), 1000000U);
  EXPECT_EQ(deck.currentKeyword()->doubleValue(999999, 1, 0.0), 2.0);
}

}  // namespace
}  // namespace abqinp
