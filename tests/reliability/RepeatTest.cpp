// SPDX-License-Identifier: BSD-3-Clause
// The same deck gives the same bytes: again, with any number of threads, in every language.

#include <filesystem>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "reliability/MaterialFolder.h"
#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;

/// The files that the program makes of an example, with the engine.
Files filesOf(const std::string& example, const std::map<std::string, std::string>& variables) {
  const TemporaryFolder folder;
  ProcessRun process;
  process.program = LAMCRAFT_PROGRAM;
  process.arguments = {(fs::path(LAMCRAFT_EXAMPLES) / example).string(), "out"};
  process.environment = variables;
  process.environment["LD_LIBRARY_PATH"] = LAMCRAFT_ENGINE_FOLDER;
  process.folder = folder.path().string();
  EXPECT_EQ(run(process).exitCode, 0);
  return filesIn(folder.path() / "out");
}

constexpr const char* kPly = "as4-3501-6.qdk";
constexpr const char* kWeave = "plain-weave-glass-vinylester.qdk";

void expectSame(const std::map<std::string, std::string>& one,
                const std::map<std::string, std::string>& other) {
  for (const char* const example : {kPly, kWeave}) {
    const Files files = filesOf(example, one);
    EXPECT_GE(files.size(), 2U) << example;
    EXPECT_EQ(filesOf(example, other), files) << example;
  }
}

TEST(Repeat, GivesTheSameBytes) {
  expectSame({}, {});
}

TEST(Repeat, WithAnotherNumberOfThreadsGivesTheSameBytes) {
  expectSame({{"KX_THREADS", "1"}}, {{"KX_THREADS", "2"}});
}

TEST(Repeat, InAnotherLanguageGivesTheSameBytes) {
  expectSame({{"LC_ALL", "C"}}, {{"LC_ALL", "de_DE.UTF-8"}});
}

}  // namespace
}  // namespace lamcraft::test
