// SPDX-License-Identifier: BSD-3-Clause
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/UniDeck.h"
#include "windows/WindowsProgram.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;
using testing::StartsWith;

constexpr const char* kFirstLine = "Solving unidirectional composite:PLY\n";

class Files : public testing::Test {
 protected:
  void writeDeck(const UniDeck& deck, const std::string& name = "deck.qdk") const {
    windows_.folder().write(name, deck.text());
  }
  [[nodiscard]] fs::path path(const std::string& name) const {
    return windows_.folder().path() / name;
  }
  /// A deck whose material goes into a folder of its own below `folder`.
  static UniDeck deckFor(const std::string& folder) {
    UniDeck deck;
    deck.solve = "*SOLVE, MATDIR=\"" + folder + "\"\n1e-3, 1e-3\n";
    return deck;
  }

  WindowsProgram windows_;
};

TEST_F(Files, FileWithTheArchiveAttributeAloneIsOverwritten) {
  fs::create_directory(path("out"));
  windows_.folder().write("out/mdata.xml", "mine");  // Wine gives every file that attribute
  writeDeck(UniDeck());
  const ProcessResult result = windows_.run({"deck.qdk", "out"});
  EXPECT_THAT(result.out, StartsWith(kFirstLine));
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_NE(contentOf(path("out/mdata.xml")), "mine");
}

TEST_F(Files, ReadOnlyFileIsNeitherRefusedNorReplaced) {
  fs::create_directory(path("out"));
  windows_.folder().write("out/mdata.xml", "mine");
  fs::permissions(path("out/mdata.xml"), fs::perms::owner_read, fs::perm_options::replace);
  writeDeck(UniDeck());
  const ProcessResult result = windows_.run({"deck.qdk", "out"});
  EXPECT_THAT(result.out, StartsWith(kFirstLine));
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(fs::exists(path("out/input.qdk")));
  EXPECT_EQ(contentOf(path("out/mdata.xml")), "mine");
  EXPECT_EQ(fs::status(path("out/mdata.xml")).permissions(), fs::perms::owner_read);
}

TEST_F(Files, DeckHasTheLineEndsOfUnixAndDataHaveThoseOfWindows) {
  writeDeck(UniDeck());
  EXPECT_EQ(windows_.run({"deck.qdk", "out"}).exitCode, 0);
  EXPECT_EQ(contentOf(path("out/input.qdk")).find('\r'), std::string::npos);
  EXPECT_NE(contentOf(path("out/mdata.xml")).find("\r\n"), std::string::npos);
}

TEST_F(Files, NameThatTheCodePageCannotSpellIsNoOtherName) {
  writeDeck(UniDeck(), "a.qdk");
  writeDeck(UniDeck(), "\u0101.qdk");
  const ProcessResult result = windows_.run({"\u0101.qdk", "out"});
  EXPECT_EQ(result.out,
            "FATAL ERROR: An unknown error occurred in Parse\nCould not open file ?.qdk\n");
  EXPECT_EQ(result.exitCode, 2);
  fs::create_directory(path("e"));
  EXPECT_EQ(windows_.run({"a.qdk", "\u0113"}).out,
            "FATAL ERROR: Unable to create material directory:\n?\n");
  EXPECT_TRUE(fs::is_empty(path("e")));
}

TEST_F(Files, FolderMayEndWithABackslashInQuotes) {
  writeDeck(UniDeck());
  windows_.folder().write("run.cmd", "@lamcraft.exe deck.qdk \"my results\\\" more\r\n");
  const ProcessResult result = runUnderWine({"cmd", {"/c", "run.cmd"}, {}, path(".").string()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(fs::exists(path("my results/mdata.xml"))) << result.out;
}

TEST_F(Files, FolderNamedLikeTheDataFileIsNotRefused) {
  fs::create_directories(path("out/mdata.xml"));
  writeDeck(UniDeck());
  const ProcessResult result = windows_.run({"deck.qdk", "out"});
  EXPECT_THAT(result.out, StartsWith(kFirstLine));
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(fs::exists(path("out/input.qdk")));
  EXPECT_TRUE(fs::is_empty(path("out/mdata.xml")));
}

TEST_F(Files, MaterialGetsAFolderOfItsNameBehindABackslash) {
  fs::create_directory(path("materials"));
  writeDeck(deckFor("materials"));
  EXPECT_EQ(windows_.run({"deck.qdk"}).exitCode, 0);
  EXPECT_TRUE(fs::exists(path("materials/PLY/mdata.xml")));
}

TEST_F(Files, FolderOnADriveIsFound) {
  fs::create_directory(path("materials"));
  writeDeck(deckFor(windowsPath(windows_.folder().file("materials"))));
  EXPECT_EQ(windows_.run({"deck.qdk"}).exitCode, 0);
  EXPECT_TRUE(fs::exists(path("materials/PLY/mdata.xml")));
}

TEST_F(Files, FolderBelowAMissingOneIsRefused) {
  writeDeck(UniDeck());
  const ProcessResult result = windows_.run({"deck.qdk", "missing\\ply"});
  EXPECT_EQ(result.out, "FATAL ERROR: Unable to create material directory:\nmissing\\ply\n");
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_FALSE(fs::exists(path("missing")));
}

TEST_F(Files, MissingMaterialsFolderIsRefused) {
  writeDeck(deckFor("missing"));
  const ProcessResult result = windows_.run({"deck.qdk"});
  EXPECT_EQ(result.out, "FATAL ERROR: Materials directory does not exist: missing\n");
  EXPECT_EQ(result.exitCode, 0);
}

TEST_F(Files, MaterialNameWithABackslashNeedsItsFolder) {
  fs::create_directory(path("materials"));
  UniDeck deck = deckFor("materials");
  deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=\"a\\b\"\n1\n";
  writeDeck(deck);
  EXPECT_EQ(windows_.run({"deck.qdk"}).out,
            "FATAL ERROR: Unable to create material directory:\nmaterials\\a\\b\n");
}

TEST_F(Files, PathsMayHoldBlanksAndUmlauts) {
  const std::string deck = "Pr\u00fcf \u00e4ste.qdk";
  const std::string results = "Ergebnisse f\u00fcr \u00d6l";
  writeDeck(UniDeck(), deck);
  const ProcessResult result = windows_.run({deck, results});
  EXPECT_THAT(result.out, StartsWith(kFirstLine));
  EXPECT_TRUE(fs::exists(path(results) / "mdata.xml"));
  EXPECT_TRUE(fs::exists(path(results) / "input.qdk"));
}

TEST_F(Files, UmlautsOfADeckAreReadInTheCodePageOfWindows) {
  fs::create_directory(path("Werkstoffe \u00fc"));
  UniDeck deck = deckFor("Werkstoffe \u00fc");
  deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=\"\u00d6l\"\n1\n";
  windows_.folder().write("deck.qdk", inCodePage(deck.text(), 1252));
  EXPECT_EQ(windows_.run({"deck.qdk"}).exitCode, 0);
  EXPECT_TRUE(fs::exists(path("Werkstoffe \u00fc/\u00d6l/mdata.xml")));
}

TEST_F(Files, PathsAreShownInTheBytesInWhichTheyCame) {
  const ProcessResult result = windows_.run({"fehlt-\u00fc.qdk"});
  EXPECT_EQ(result.out,
            "FATAL ERROR: An unknown error occurred in Parse\n"
            "Could not open file fehlt-\xfc.qdk\n");
}

}  // namespace
}  // namespace lamcraft::test
