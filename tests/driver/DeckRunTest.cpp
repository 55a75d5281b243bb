// SPDX-License-Identifier: BSD-3-Clause
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"
#include "support/UniDeck.h"

// The program on decks, from outside: what it says, how it ends, which files it leaves.

namespace lamcraft {
namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::ProcessResult;
using test::UniDeck;
using testing::HasSubstr;
using testing::StartsWith;

class DeckRun : public testing::Test {
 protected:
  /// Runs the program on `deck` in a folder of its own, with the stand-in library, whose calls come
  /// into "calls.txt".
  ProcessResult run(const UniDeck& deck,
                    const std::vector<std::string>& moreArguments = {},
                    const std::string& locale = "C") {
    std::vector<std::string> arguments{folder_.write("deck.qdk", deck.text())};
    arguments.insert(arguments.end(), moreArguments.begin(), moreArguments.end());
    ProcessResult result = test::run({LAMCRAFT_PROGRAM,
                                      arguments,
                                      {{"LC_ALL", locale},
                                       {"LD_LIBRARY_PATH", LAMCRAFT_FAKE_FOLDER},
                                       {"KXFAKE_LOG", folder_.file("calls.txt")}},
                                      folder_.path().string()});
    EXPECT_EQ(result.err, "");
    return result;
  }

  [[nodiscard]] bool exists(const std::string& file) const {
    return fs::exists(folder_.path() / file);
  }
  void makeFolder(const std::string& name) const { fs::create_directory(folder_.path() / name); }
  [[nodiscard]] std::string solveIn(const std::string& folder) const {
    return "*SOLVE, MATDIR=\"" + folder_.file(folder) + "\"\n1e-3, 1e-3\n";
  }

  test::TemporaryFolder folder_;
};

void expectRefusal(const ProcessResult& result, const std::string& text) {
  EXPECT_EQ(result.out, text);
  EXPECT_EQ(result.exitCode, 0);
}

TEST_F(DeckRun, UnknownKeywordIsAMalformedFile) {
  UniDeck deck;
  deck.more = "*BRAID\n1\n";
  const ProcessResult result = run(deck, {"out"});
  EXPECT_EQ(result.out, "FATAL ERROR: Malformed input file: \nInvalid keyword: BRAID\n");
  EXPECT_EQ(result.exitCode, 1);
}

TEST_F(DeckRun, KeywordOutOfPlaceIsAMalformedFile) {
  UniDeck deck;
  deck.more = "*BVF\n0.4, 0.4\n";
  ProcessResult result = run(deck, {"out"});
  EXPECT_EQ(result.out, "FATAL ERROR: Malformed input file: \nMisplaced keyword: BVF\n");
  EXPECT_EQ(result.exitCode, 1);

  deck.material = "** no material\n";
  result = run(deck, {"out"});
  EXPECT_EQ(result.out,
            "FATAL ERROR: Malformed input file: \n"
            "Keyword, FVF, missing parent keyword: MATERIAL\n");
  EXPECT_EQ(result.exitCode, 1);
}

TEST_F(DeckRun, HeadlineIsTranslatedAndTheTextBelowIsNot) {
  UniDeck deck;
  deck.more = "*BRAID\n1\n";
  EXPECT_EQ(run(deck, {"out"}, "de_DE.UTF-8").out,
            "SCHWERWIEGENDER FEHLER: Fehlerhafte Eingabedatei: \nInvalid keyword: BRAID\n");
}

TEST_F(DeckRun, UnknownTypeCountsAsAFailedSolve) {
  UniDeck deck;
  deck.material = "*MATERIAL, TYPE=BRAID, SYSTEM=XYZ, NAME=PLY\n1\n";
  const ProcessResult result = run(deck, {"out"});
  EXPECT_EQ(result.out,
            "FATAL ERROR: An error occured during solve: \nInvalid Material TYPE specified.\n");
  EXPECT_EQ(result.exitCode, 2);
}

TEST_F(DeckRun, WordInPlaceOfANumberIsQuoted) {
  UniDeck deck;
  deck.matrix = "*MATRIX, LAW=ISO\nstiff, 0.34, 45e-6\n";
  const ProcessResult result = run(deck, {"out"});
  EXPECT_EQ(result.out, "FATAL ERROR: An unknown error occurred in Create\nSTIFF\n");
  EXPECT_EQ(result.exitCode, 3);
}

TEST_F(DeckRun, MissingParameterIsNamed) {
  UniDeck deck;
  deck.more = "*ENVIRONMENT, MOISTURE=WET\n";
  const ProcessResult result = run(deck, {"out"});
  EXPECT_EQ(result.out,
            "FATAL ERROR: An unknown error occurred in Create\n"
            "ENVIRONMENT does not have a parameter named TEMPERATURE\n");
  EXPECT_EQ(result.exitCode, 3);
}

TEST_F(DeckRun, FolderInPlaceOfADeckCannotBeRead) {
  const ProcessResult result = test::run({LAMCRAFT_PROGRAM, {folder_.path().string()}});
  EXPECT_EQ(result.out,
            "FATAL ERROR: An unknown error occurred in Parse\nCould not open file " +
                folder_.path().string() + "\n");
  EXPECT_EQ(result.exitCode, 2);
}

TEST_F(DeckRun, ResultsFolderIsTheThirdArgumentAndLaterOnesAreIgnored) {
  const ProcessResult result = run(UniDeck(), {"results", "more", "arguments"});
  EXPECT_THAT(result.out, StartsWith("Solving unidirectional composite:PLY\n"));
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(exists("results/input.qdk"));
  EXPECT_TRUE(exists("results/mdata.xml"));
  EXPECT_FALSE(exists("more"));
}

TEST_F(DeckRun, ResultsFolderNeedsNoMaterialsFolder) {
  UniDeck deck;
  deck.solve = solveIn("missing");
  run(deck, {"results"});
  EXPECT_TRUE(exists("results/mdata.xml"));
}

TEST_F(DeckRun, MaterialGetsAFolderOfItsNameInTheMaterialsFolder) {
  makeFolder("Materials \xc3\xbc");
  UniDeck deck;
  deck.solve = solveIn("Materials \xc3\xbc");
  EXPECT_EQ(run(deck).exitCode, 0);
  EXPECT_TRUE(exists("Materials \xc3\xbc/PLY/mdata.xml"));
}

TEST_F(DeckRun, MaterialWithoutANameGoesIntoTheMaterialsFolderItself) {
  makeFolder("materials");
  UniDeck deck;
  deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=\n1\n";
  deck.solve = solveIn("materials");
  EXPECT_EQ(run(deck).exitCode, 0);
  EXPECT_TRUE(exists("materials/mdata.xml"));
}

TEST_F(DeckRun, MissingMaterialsFolderIsRefused) {
  expectRefusal(run(UniDeck()), "FATAL ERROR: Materials directory does not exist: \n");
  UniDeck deck;
  deck.solve = solveIn("missing");
  expectRefusal(
      run(deck),
      "FATAL ERROR: Materials directory does not exist: " + folder_.file("missing") + "\n");
  EXPECT_FALSE(exists("missing"));
}

TEST_F(DeckRun, EmptyResultsFolderCountsAsGiven) {
  makeFolder("materials");
  UniDeck deck;
  deck.solve = solveIn("materials");
  expectRefusal(run(deck, {""}), "FATAL ERROR: Unable to create material directory:\n\n");
  EXPECT_FALSE(exists("materials/PLY"));
}

TEST_F(DeckRun, FolderBelowAMissingOneIsRefused) {
  expectRefusal(run(UniDeck(), {"missing/ply"}),
                "FATAL ERROR: Unable to create material directory:\nmissing/ply\n");
  EXPECT_FALSE(exists("missing"));
}

TEST_F(DeckRun, ExistingMaterialIsKeptUnlessTheDeckSaysOverwrite) {
  makeFolder("out");
  folder_.write("out/mdata.xml", "mine");
  expectRefusal(run(UniDeck(), {"out"}),
                "FATAL ERROR: The target mdata already exists: out/mdata.xml\n"
                "Use the OVERWRITE parameter with *MATERIAL to overwrite this file\n");
  EXPECT_EQ(contentOf(folder_.path() / "out/mdata.xml"), "mine");
  EXPECT_FALSE(exists("out/input.qdk"));

  UniDeck deck;
  deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=PLY, OVERWRITE\n1\n";
  EXPECT_EQ(run(deck, {"out"}).exitCode, 0);
  EXPECT_NE(contentOf(folder_.path() / "out/mdata.xml"), "mine");
}

TEST_F(DeckRun, LibraryGetsTheMaximumErrorsAtEachSolveKeyword) {
  UniDeck deck;
  deck.solve = "*SOLVE, MATDIR=X\n*SOLVE, MATDIR=X\n1e-4\n*SOLVE, MATDIR=X\n";
  deck.more = "*BRAID\n";
  run(deck, {"out"});
  const auto calls = [](const std::string& first) {
    return "SETMAXERROR\n  compositeKind: 2\n  selector: 1\n  maximumError: " + first +
           "\nSETMAXERROR\n  compositeKind: 2\n  selector: 2\n  maximumError: 0.001\n";
  };
  EXPECT_EQ(contentOf(folder_.path() / "calls.txt"),
            calls("0.001") + calls("0.0001") + calls("0.0001"));
}

TEST_F(DeckRun, FolderNamedLikeTheDataFileDoesNotCountAsOne) {
  makeFolder("out");
  makeFolder("out/mdata.xml");
  EXPECT_THAT(run(UniDeck(), {"out"}).out, StartsWith("Solving unidirectional composite:PLY\n"));
}

TEST_F(DeckRun, FatigueDataAreWrittenForDecksWithFatigueTestsAlone) {
  makeFolder("out");
  folder_.write("out/fdata.xml", "old");
  run(UniDeck(), {"out"});
  EXPECT_EQ(contentOf(folder_.path() / "out/fdata.xml"), "old");

  UniDeck deck;
  deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=PLY, OVERWRITE\n1\n";
  deck.more = "*SNDATA\n600e6, 1e3, 10, 0, 0.1\n";
  run(deck, {"out"});
  EXPECT_NE(contentOf(folder_.path() / "out/fdata.xml"), "old");
}

TEST_F(DeckRun, DataFilesAreTheSameWhenTheConsoleTakesNothing) {
  run(UniDeck(), {"shown"});
  const auto runInShell = [&](const std::string& results, const std::string& redirection) {
    return test::run({"/bin/sh",
                      {"-c", "exec \"$0\" deck.qdk " + results + redirection, LAMCRAFT_PROGRAM},
                      {{"LD_LIBRARY_PATH", LAMCRAFT_FAKE_FOLDER}},
                      folder_.path().string()});
  };
  for (const std::string redirection : {" >&-", " >/dev/full", " <&- >&- 2>&-"}) {
    fs::remove_all(folder_.path() / "silent");
    const ProcessResult result = runInShell("silent", redirection);
    EXPECT_EQ(result.exitCode, 0) << redirection;
    EXPECT_EQ(result.err, "") << redirection;
    for (const char* file : {"input.qdk", "mdata.xml"}) {
      EXPECT_EQ(contentOf(folder_.path() / "silent" / file),
                contentOf(folder_.path() / "shown" / file))
          << file << redirection;
    }
  }
}

TEST_F(DeckRun, ValuesAfterDefaultsAreConvertedLikeAnyOthers) {
  UniDeck deck;
  deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=CFL-TSP, NAME=PLY\n2\n";  // newton and millimetre
  const std::string values =
      "*FIBER\n225e3, 15e3, 0.2, 0.07, 15e3, -5e-7, 15e-6\n*MATRIX, LAW=ISO\n4.2e3, 0.34, 45e-6\n";
  const auto callsWith = [&](const std::string& keywords) {
    fs::remove(folder_.path() / "calls.txt");
    deck.more = keywords;
    EXPECT_EQ(run(deck, {"out"}).exitCode, 0);
    fs::remove_all(folder_.path() / "out");
    return contentOf(folder_.path() / "calls.txt");
  };
  const std::string calls = callsWith("*FIBER, DEFAULT\n*MATRIX, DEFAULT\n" + values);
  EXPECT_EQ(calls, callsWith(values));
  EXPECT_THAT(calls, HasSubstr("fiber: 225000000000 15000000000"));
  EXPECT_THAT(calls, HasSubstr("matrix: 4200000000 4200000000"));
}

TEST_F(DeckRun, DataFilesAreTheSameInEveryLanguage) {
  UniDeck deck;
  deck.more = "*SNDATA\n600e6, 1e3, 10, 0, 0.1\n";
  run(deck, {"english"}, "en_US.UTF-8");
  run(deck, {"german"}, "de_DE.UTF-8");
  run(deck, {"c"}, "C");
  for (const char* file : {"input.qdk", "mdata.xml", "fdata.xml"}) {
    const std::string english = contentOf(folder_.path() / "english" / file);
    EXPECT_EQ(contentOf(folder_.path() / "german" / file), english) << file;
    EXPECT_EQ(contentOf(folder_.path() / "c" / file), english) << file;
  }
}

}  // namespace
}  // namespace lamcraft
