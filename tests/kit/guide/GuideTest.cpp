// SPDX-License-Identifier: BSD-3-Clause
// Holds the guide to lamkit check: what it shows is what the program says.

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;
using lamcraft::test::ProcessResult;
using lamcraft::test::ProcessRun;
using lamcraft::test::TemporaryFolder;

/// A fenced block, and the heading that it stands under.
struct Block {
  std::string heading;
  std::string language;
  std::string text;
};

std::vector<Block> blocksOfTheGuide() {
  std::vector<Block> blocks;
  std::istringstream in(lamcraft::test::contentOf(fs::path(LAMCRAFT_ROOT) / "docs/lamkit.md"));
  std::string heading;
  bool isInBlock = false;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("```", 0) == 0) {
      isInBlock = !isInBlock;
      if (isInBlock) {
        blocks.push_back({heading, line.substr(3), {}});
      }
    } else if (isInBlock) {
      blocks.back().text += line + "\n";
    } else if (line.rfind('#', 0) == 0) {
      heading = line.substr(line.find(' ') + 1);
    }
  }
  return blocks;
}

/// Replaces the lines of a diff that begin with "-" or " " by those with "+" or " ".
std::string patched(const std::string& deck, const std::string& diff) {
  std::string before;
  std::string after;
  std::istringstream in(diff);
  for (std::string line; std::getline(in, line);) {
    const std::string text = line.substr(1) + "\n";
    before += line[0] == '+' ? "" : text;
    after += line[0] == '-' ? "" : text;
  }
  const std::string all = "\n" + deck;
  const std::size_t at = all.find("\n" + before);
  EXPECT_NE(at, std::string::npos) << "not in the deck:\n" << before;
  return at == std::string::npos ? deck
                                 : deck.substr(0, at) + after + deck.substr(at + before.size());
}

ProcessResult check(const TemporaryFolder& folder, const std::string& name) {
  ProcessRun process;
  process.program = LAMKIT_PROGRAM;
  process.arguments = {"check", "--quiet", name};
  process.folder = folder.path().string();
  return run(process);
}

void runCommand(const TemporaryFolder& folder, const std::string& command) {
  ProcessRun process;
  process.program = "/bin/sh";
  process.arguments = {"-c", command};
  process.folder = folder.path().string();
  EXPECT_EQ(run(process).exitCode, 0) << command;
}

std::string plyOfTheGuide(const std::vector<Block>& blocks) {
  for (const Block& block : blocks) {
    if (block.heading == "The deck of the examples") {
      return block.text;
    }
  }
  return {};
}

TEST(Guide, HasNothingToSayAboutItsDeck) {
  const TemporaryFolder folder;
  folder.write("ply.qdk", plyOfTheGuide(blocksOfTheGuide()));
  const ProcessResult result = check(folder, "ply.qdk");
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.exitCode, 0);
}

TEST(Guide, ShowsForEveryRuleWhatTheProgramSays) {
  const std::vector<Block> blocks = blocksOfTheGuide();
  const std::string ply = plyOfTheGuide(blocks);
  std::set<std::string> rules;
  for (std::size_t i = 0; i + 1 < blocks.size(); ++i) {
    const Block& change = blocks[i];
    if ((change.language != "diff" && change.language != "sh") ||
        blocks[i + 1].language != "text") {
      continue;
    }
    const TemporaryFolder folder;
    const bool isDiff = change.language == "diff";
    folder.write("ply.qdk", isDiff ? patched(ply, change.text) : ply);
    if (!isDiff) {
      runCommand(folder, change.text);
    }
    const std::string said = check(folder, isDiff ? "ply.qdk" : "saved.qdk").out;
    std::istringstream shown(blocks[i + 1].text);
    for (std::string line; std::getline(shown, line);) {
      EXPECT_NE(("\n" + said).find("\n" + line + "\n"), std::string::npos)
          << change.heading << " shows\n"
          << line << "\nthe program says\n"
          << said;
      EXPECT_NE(line.find("[" + change.heading + "]"), std::string::npos) << line;
    }
    rules.insert(change.heading);
  }
  constexpr std::size_t kRules = 31;
  EXPECT_EQ(rules.size(), kRules);
}

}  // namespace
}  // namespace lamkit
