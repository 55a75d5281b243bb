// SPDX-License-Identifier: BSD-3-Clause
// Holds the completion of bash: it offers what the program's help lists.

#include <string>

#include <gtest/gtest.h>

#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

/// What bash offers behind the last of these words, which are separated by blanks.
std::string offered(const std::string& words) {
  const lamcraft::test::TemporaryFolder folder;
  folder.write("ply.qdk", "");
  folder.write("notes.txt", "");
  lamcraft::test::ProcessRun process;
  process.program = "/bin/bash";
  process.arguments = {"-c",
                       "source '" LAMCRAFT_ROOT
                       "/packaging/completions/lamkit.bash'; COMP_WORDS=('" LAMKIT_PROGRAM "' " +
                           words +
                           "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _lamkit; "
                           "echo \"${COMPREPLY[*]}\""};
  process.folder = folder.path().string();
  const std::string out = lamcraft::test::run(process).out;
  return out.substr(0, out.find('\n'));
}

TEST(Completion, OffersTheSubcommands) {
  EXPECT_EQ(offered("ch"), "check");
  EXPECT_EQ(offered("--v"), "--version");
}

TEST(Completion, OffersTheOptionsOfASubcommandAndTheirValues) {
  EXPECT_EQ(offered("check --fo"), "--format");
  EXPECT_EQ(offered("check --format = ''"), "text json");
  EXPECT_EQ(offered("check --color a"), "auto always");
}

TEST(Completion, OffersDecksToCheckAndFoldersToJudge) {
  EXPECT_EQ(offered("check ''"), "ply.qdk");
  EXPECT_EQ(offered("verdict ''"), "");
}

}  // namespace
}  // namespace lamkit
