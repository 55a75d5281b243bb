// SPDX-License-Identifier: BSD-3-Clause
// Decks that are none: folders, pipes, devices, other encodings, bytes without sense, and far too
// much.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reliability/ForkedRun.h"
#include "reliability/MaterialFolder.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;
using namespace std::string_literals;

const std::string kBom = "\xef\xbb\xbf";

/// A text of ASCII as UTF-16, without a mark at its beginning.
std::string utf16(const std::string& text, const bool isBigEndian) {
  std::string wide;
  for (const char c : text) {
    wide += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  }
  return wide;
}

class Deck : public testing::Test {
 protected:
  Ending run(
      const std::string& deck, const std::function<void()>& prepare = [] {}) {
    return runForked({deck, "out"}, folder_.path().string(), prepare);
  }
  Ending runText(const std::string& text) {
    folder_.write("deck.qdk", text);
    return run("deck.qdk");
  }

  void expectUnopened(const Ending& ending, const std::string& deck) const {
    EXPECT_EQ(ending.exitCode, 2);
    EXPECT_EQ(
        ending.out,
        "FATAL ERROR: An unknown error occurred in Parse\nCould not open file " + deck + "\n");
    EXPECT_FALSE(fs::exists(out_));
  }
  void expectMalformed(const Ending& ending, const std::string& text) const {
    EXPECT_EQ(ending.exitCode, 1);
    EXPECT_EQ(ending.out, "FATAL ERROR: Malformed input file: \n" + text + "\n");
    EXPECT_FALSE(fs::exists(out_));
  }

  TemporaryFolder folder_;
  fs::path out_ = folder_.path() / "out";
  std::string text_ = completeDeck().text();
  Files fresh_ = undisturbed(completeDeck());
};

TEST_F(Deck, ThatIsAFolderCannotBeOpened) {
  expectUnopened(run("."), ".");
}

TEST_F(Deck, ThatIsAFifoCannotBeOpened) {
  ASSERT_EQ(mkfifo(folder_.file("fifo").c_str(), 0600), 0);
  expectUnopened(run("fifo"), "fifo");
  const int writer = open(folder_.file("fifo").c_str(), O_RDWR);
  ASSERT_EQ(write(writer, text_.data(), text_.size()), static_cast<ssize_t>(text_.size()));
  expectUnopened(run("fifo"), "fifo");
  expectUnopened(run("/dev/stdin", [writer] { dup2(writer, STDIN_FILENO); }), "/dev/stdin");
  close(writer);
}

TEST_F(Deck, FromAPipeIsRead) {
  folder_.write("deck.qdk", text_);
  const Ending ending = run("/dev/stdin", [this] {
    int ends[2];
    if (pipe(ends) != 0 || write(ends[1], text_.data(), text_.size()) < 0) {
      throw std::exception();
    }
    dup2(ends[0], STDIN_FILENO);
    close(ends[0]);
    close(ends[1]);
  });
  EXPECT_EQ(ending.exitCode, 0);
  EXPECT_EQ(filesIn(out_), fresh_);
}

TEST_F(Deck, ThatIsAnEndlessDeviceCannotBeOpened) {
  expectUnopened(run("/dev/zero"), "/dev/zero");
  expectUnopened(run("/dev/urandom"), "/dev/urandom");
  expectUnopened(run("/dev/ptmx"), "/dev/ptmx");  // a terminal, but a new one that nobody has
}

TEST_F(Deck, AtTheEndOfALoopOfLinksCannotBeOpened) {
  fs::create_symlink("loop", folder_.path() / "loop");
  expectUnopened(run("loop"), "loop");
}

TEST_F(Deck, WhoseNameIsTooLongCannotBeOpened) {
  const std::string name(4096, 'x');
  expectUnopened(run(name), name);
}

TEST_F(Deck, OfAnotherUserCannotBeOpened) {
  folder_.write("deck.qdk", text_);
  fs::permissions(folder_.path() / "deck.qdk", fs::perms::none);
  expectUnopened(run("deck.qdk", becomeNobody), "deck.qdk");
}

TEST_F(Deck, ThatIsEmptyIsMalformed) {
  expectMalformed(runText(""), "Keyword, , missing parent keyword: MATERIAL");
  expectMalformed(run("/dev/null"), "Keyword, , missing parent keyword: MATERIAL");
}

TEST_F(Deck, InUtf16IsMalformed) {
  for (const bool isBigEndian : {false, true}) {
    const std::string mark = isBigEndian ? "\xfe\xff" : "\xff\xfe";
    expectMalformed(runText(mark + utf16(text_, isBigEndian)),
                    "Keyword, , missing parent keyword: MATERIAL");
  }
  expectMalformed(runText(utf16(text_, true)), "Keyword, , missing parent keyword: MATERIAL");
  // Its first byte is a star; the name behind it begins with NUL, which ends the message.
  expectMalformed(runText(utf16(text_, false)), "Keyword, ");
}

TEST_F(Deck, WithAByteOrderMarkBeforeItsFirstKeywordLosesThatKeyword) {
  expectMalformed(runText(kBom + text_), "Keyword, FVF, missing parent keyword: MATERIAL");
}

TEST_F(Deck, WithAByteOrderMarkBeforeACommentIsRead) {
  EXPECT_EQ(runText(kBom + "** a comment\n" + text_).exitCode, 0);
  Files expected = fresh_;
  expected["input.qdk"] = kBom + "** a comment\n" + expected["input.qdk"];
  EXPECT_EQ(filesIn(out_), expected);
}

TEST_F(Deck, WithNulBytesInANameEndsTheNameThere) {
  UniDeck deck = completeDeck();
  deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=PLY\0XYZ, OVERWRITE\n1\n"s;
  EXPECT_EQ(runText(deck.text()).exitCode, 0);
  Files files = filesIn(out_);
  EXPECT_NE(files["mdata.xml"].find("material=\"PLY\" "), std::string::npos);
  EXPECT_EQ(files["mdata.xml"].substr(files["mdata.xml"].size() - 7), "</ZRN>\n");
}

TEST_F(Deck, WithBytesInANameThatXmlHasNotHandsThemOn) {
  const std::string latin = "F\xc4SER";
  const std::string control = "A\x01"s + "B\x1b";
  for (const auto& [name, written] : {std::pair{latin, latin}, {control, "A&#x01;B&#x1B;"}}) {
    UniDeck deck = completeDeck();
    deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=" + name + ", OVERWRITE\n1\n";
    EXPECT_EQ(runText(deck.text()).exitCode, 0);
    Files files = filesIn(out_);
    EXPECT_THAT(files["input.qdk"], HasSubstr("NAME=" + name + ", "));
    for (const std::string file : {"mdata.xml", "fdata.xml"}) {
      EXPECT_THAT(files[file], HasSubstr("<ZRN material=\"" + written + "\" ")) << file;
    }
  }
}

TEST_F(Deck, WithNulBytesForBlanksInNumbersIsRefusedOrRead) {
  UniDeck deck = completeDeck();
  deck.matrix = "*MATRIX, LAW=ISO\n\0004.2e9, 0.34, 45e-6\n"s;
  const Ending before = runText(deck.text());
  EXPECT_EQ(before.exitCode, 3) << "a number that begins with NUL is none";
  EXPECT_FALSE(fs::exists(out_ / "mdata.xml"));
  deck.matrix = "*MATRIX, LAW=ISO\n4.2e9\0, 0.34, 45e-6\n"s;
  EXPECT_EQ(runText(deck.text()).exitCode, 0) << "what follows a number does not count";
}

TEST_F(Deck, OfRandomBytesEndsWithAMessageAndNoFiles) {
  std::mt19937 random(1);
  for (int i = 0; i < 100; ++i) {
    std::string bytes(1 + random() % 20000, ' ');
    for (char& byte : bytes) {
      byte = static_cast<char>(random());
    }
    const Ending ending = runText(bytes);
    ASSERT_EQ(ending.exitCode, 1) << i;
    ASSERT_THAT(ending.out, StartsWith("FATAL ERROR: Malformed input file: \n")) << i;
    ASSERT_TRUE(filesIn(out_).empty()) << i;
  }
}

TEST_F(Deck, CutAnywhereEndsWithAMessageOrWholeFiles) {
  for (std::size_t size = 0; size < text_.size(); ++size) {
    fs::remove_all(out_);
    const Ending ending = runText(text_.substr(0, size));
    ASSERT_EQ(ending.signal, 0);
    const Files files = filesIn(out_);
    if (ending.exitCode != 0) {
      ASSERT_THAT(ending.out, HasSubstr("FATAL ERROR: ")) << size;
      ASSERT_TRUE(files.empty()) << size;
    }
    for (const auto& [name, content] : files) {
      ASSERT_EQ(content.empty() ? ' ' : content.back(), '\n') << size << name;
    }
  }
}

TEST_F(Deck, BeyondMemoryIsReported) {
  if (LAMCRAFT_IS_SANITIZED) {
    GTEST_SKIP() << "sanitizers take more addresses than any limit";
  }
  const std::string huge = folder_.write("huge.qdk", text_);
  fs::resize_file(
      huge, std::uintmax_t{2200} << 20);  // NUL bytes, of which the disk knows only their number
  constexpr unsigned long kMemory = 1UL << 30;
  const Ending ending = run(huge, [] { limit(RLIMIT_AS, kMemory); });
  EXPECT_EQ(ending.exitCode, 2);
  EXPECT_EQ(ending.out, "FATAL ERROR: An unknown error occurred in Parse\nstd::bad_alloc\n");
  EXPECT_FALSE(fs::exists(out_));
}

}  // namespace
}  // namespace lamcraft::test
