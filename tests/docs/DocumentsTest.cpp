// SPDX-License-Identifier: BSD-3-Clause
// Holds the guide to the program: every keyword is described, and what it shows as a deck runs.

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "material/KeywordTable.h"
#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;

/// The fenced blocks of a document by the heading above them; those that name a language, as shell
/// commands do, are left out.
std::map<std::string, std::vector<std::string>> blocksOf(const char* const document) {
  std::map<std::string, std::vector<std::string>> blocks;
  std::istringstream in(contentOf(fs::path(LAMCRAFT_ROOT) / document));
  std::string heading;
  bool isInBlock = false;
  bool isDeck = false;
  for (std::string line; std::getline(in, line);) {
    const bool isFence = line.rfind("```", 0) == 0;
    if (isFence) {
      isDeck = !isInBlock && line == "```";
      isInBlock = !isInBlock;
      if (isDeck) {
        blocks[heading].emplace_back();
      }
    } else if (isDeck) {
      blocks[heading].back() += line + "\n";
    } else if (!isInBlock && line.rfind('#', 0) == 0) {
      heading = line.substr(line.find(' ') + 1);
      blocks[heading];
    }
  }
  return blocks;
}

ProcessResult solve(const TemporaryFolder& folder, const std::string& deck) {
  folder.write("deck.qdk", deck);
  ProcessRun process;
  process.program = LAMCRAFT_PROGRAM;
  process.arguments = {"deck.qdk", "out"};
  process.environment["LD_LIBRARY_PATH"] = LAMCRAFT_FAKE_FOLDER;
  process.folder = folder.path();
  return run(process);
}

/// What a keyword needs above it: a material, and an environment to fill.
std::string frameOf(const std::string& keyword) {
  if (keyword == "MATERIAL") {
    return {};
  }
  const bool isWoven = keyword == "BVF" || keyword == "DEGRADATION";
  return "*MATERIAL, SYSTEM=CFRP, NAME=PLY, TYPE=" + std::string(isWoven ? "PLAINWEAVE" : "UNI") +
         "\n*ENVIRONMENT, MOISTURE=DRY, TEMPERATURE=296\n";
}

TEST(DeckReference, HasASectionForEveryKeyword) {
  const auto blocks = blocksOf("docs/deck.md");
  for (const KeywordRow& row : kKeywordRows) {
    EXPECT_EQ(blocks.count(row.name), 1U) << row.name;
  }
}

TEST(DeckReference, ShowsOnlyWhatTheProgramReads) {
  const auto blocks = blocksOf("docs/deck.md");
  int examples = 0;
  for (const KeywordRow& row : kKeywordRows) {
    for (const std::string& block : blocks.at(row.name)) {
      ++examples;
      EXPECT_NE(block.find(std::string("*") + row.name), std::string::npos) << row.name;
      const TemporaryFolder folder;
      const ProcessResult result = solve(folder, frameOf(row.name) + block);
      EXPECT_EQ(result.exitCode, 0) << row.name << "\n" << result.out;
    }
  }
  EXPECT_EQ(examples, 17) << "one for each keyword but FATIGUE";
}

/// The tests that the last column of a document's tables names, as "Suite.Name".
std::set<std::string> testsNamedIn(const char* const document) {
  std::set<std::string> names;
  std::istringstream in(contentOf(fs::path(LAMCRAFT_ROOT) / document));
  const std::regex row(R"(^\|.*\| `(\w+\.\w+)` \|$)");
  for (std::string line; std::getline(in, line);) {
    std::smatch found;
    if (std::regex_match(line, found, row)) {
      names.insert(found[1]);
    }
  }
  return names;
}

/// The tests of the sources in a folder.
std::set<std::string> testsIn(const fs::path& folder) {
  std::set<std::string> names;
  const std::regex test(R"(\nTEST(?:_F|_P)?\((\w+), (\w+)\))");
  for (const auto& entry : fs::directory_iterator(folder)) {
    const std::string source = contentOf(entry.path());
    for (std::sregex_iterator found(source.begin(), source.end(), test), end; found != end;
         ++found) {
      names.insert((*found)[1].str() + "." + (*found)[2].str());
    }
  }
  return names;
}

TEST(Reliability, HasARowForEveryTestAndATestForEveryRow) {
  const auto tests = testsIn(fs::path(LAMCRAFT_ROOT) / "tests" / "reliability");
  EXPECT_GT(tests.size(), 40U);
  EXPECT_EQ(testsNamedIn("docs/reliability.md"), tests);
}

TEST(Readme, HasAFirstDeckOfTwelveLinesThatRuns) {
  const auto blocks = blocksOf("README.md");
  const std::string& deck = blocks.at("A first deck of your own").at(0);
  EXPECT_EQ(std::count(deck.begin(), deck.end(), '\n'), 12);
  const TemporaryFolder folder;
  const ProcessResult result = solve(folder, deck);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.out.find("FATAL"), std::string::npos) << result.out;
  EXPECT_TRUE(fs::exists(folder.path() / "out" / "mdata.xml"));
}

}  // namespace
}  // namespace lamcraft::test
