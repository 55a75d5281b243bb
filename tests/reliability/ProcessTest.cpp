// SPDX-License-Identifier: BSD-3-Clause
// A system that gives a run too little: memory, files, threads, a console, its libraries.

#include <sys/resource.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reliability/ForkedRun.h"
#include "reliability/MaterialFolder.h"
#include "support/Environment.h"
#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;

class Process : public testing::Test {
 protected:
  void SetUp() override { folder_.write("deck.qdk", completeDeck().text()); }
  void TearDown() override { removeVariable("KXFAKE_FAULT"); }

  Ending run(const std::function<void()>& prepare = [] {}) {
    return runForked({"deck.qdk", "out"}, folder_.path().string(), prepare);
  }
  /// The program in a process of its own, started by a shell command that ends in $RUN.
  ProcessResult runInShell(const std::string& command,
                           const std::string& libraries = LAMCRAFT_FAKE_FOLDER) {
    return test::run({"/bin/sh",
                      {"-c", command},
                      {{"RUN", LAMCRAFT_PROGRAM " deck.qdk out"}, {"LD_LIBRARY_PATH", libraries}},
                      folder_.path().string()});
  }

  TemporaryFolder folder_;
  fs::path out_ = folder_.path() / "out";
  Files fresh_ = undisturbed(completeDeck());
};

/// The addresses that this process uses.
std::size_t addresses() {
  std::ifstream file("/proc/self/statm");
  std::size_t pages = 0;
  file >> pages;
  return pages * static_cast<std::size_t>(getpagesize());
}

TEST_F(Process, WithTooLittleMemorySaysSoAndWritesNothing) {
  if (LAMCRAFT_IS_SANITIZED) {
    GTEST_SKIP() << "sanitizers take more addresses than any limit";
  }
  constexpr std::size_t kMost = std::size_t{24} << 20;
  constexpr std::size_t kStep = std::size_t{64} << 10;
  std::string codes;
  for (std::size_t more = 0; more <= kMost; more += kStep) {
    fs::remove_all(out_);
    const Ending ending = run([more] { limit(RLIMIT_AS, addresses() + more); });
    ASSERT_EQ(ending.signal, 0) << more << "\n" << ending.out;
    const Files files = filesIn(out_);
    ASSERT_TRUE(isSound(files, {}, fresh_)) << more << ": " << namesOf(files);
    const bool isReported = ending.out.find("FATAL ERROR: ") != std::string::npos;
    ASSERT_TRUE(isReported || files == fresh_) << more << "\n" << ending.out;
    const std::string code = std::to_string(ending.exitCode);
    if (codes.empty() || code.front() != codes.back()) {
      codes += code;
    }
  }
  EXPECT_EQ(codes.back(), '0') << codes;
  EXPECT_EQ(filesIn(out_), fresh_) << "the most is enough";
}

/// An example with the engine, and more and more memory until it gets through.
class ProcessWithTheEngine : public Process, public testing::WithParamInterface<const char*> {};

TEST_P(ProcessWithTheEngine, AndTooLittleMemorySaysSoAndWritesNoData) {
  if (LAMCRAFT_IS_SANITIZED) {
    GTEST_SKIP() << "sanitizers take more addresses than any limit";
  }
  const std::string libraries = LAMCRAFT_ENGINE_FOLDER;
  fs::copy_file(fs::path(LAMCRAFT_EXAMPLES) / GetParam(),
                folder_.path() / "deck.qdk",
                fs::copy_options::overwrite_existing);
  ASSERT_EQ(runInShell("exec $RUN", libraries).exitCode, 0);
  const Files whole = filesIn(out_);
  constexpr int kNotStarted = 127;
  constexpr int kStep = 5000;
  constexpr int kPlenty = 400000;
  bool isThrough = false;
  for (int limit = kStep; !isThrough && limit < kPlenty; limit += kStep) {
    fs::remove_all(out_);
    const ProcessResult result =
        runInShell("ulimit -v " + std::to_string(limit) + "; exec $RUN", libraries);
    const Files files = filesIn(out_);
    isThrough = files == whole;
    // The deck's copy is written before the data are built.
    const bool isDeckAlone = files.size() == 1 && files.count("input.qdk") == 1;
    ASSERT_TRUE(isThrough || files.empty() || isDeckAlone) << limit << " kB: " << namesOf(files);
    const bool isReported = result.out.find("FATAL ERROR: ") != std::string::npos;
    ASSERT_TRUE(isThrough || result.exitCode == kNotStarted || isReported)
        << limit << " kB: exit code " << result.exitCode << "\n"
        << result.out << result.err;
  }
  EXPECT_TRUE(isThrough);
}

INSTANTIATE_TEST_SUITE_P(Examples,
                         ProcessWithTheEngine,
                         testing::Values("as4-3501-6.qdk", "plain-weave-glass-vinylester.qdk"));

TEST_F(Process, WithTooFewOpenFilesSaysSoAndWritesNothing) {
  if (LAMCRAFT_IS_SANITIZED) {
    GTEST_SKIP() << "sanitizers look at memory through files of their own";
  }
  for (unsigned long files = 3; files < 8; ++files) {
    fs::remove_all(out_);
    const Ending ending = run([files] {
      for (int file = 3; file < 8; ++file) {  // what the test may have been handed
        close(file);
      }
      limit(RLIMIT_NOFILE, files);
    });
    const bool isEnough = files > 3;  // beside the three streams: one, for one file after another
    EXPECT_EQ(ending.exitCode, isEnough ? 0 : 2) << files << "\n" << ending.out;
    EXPECT_EQ(filesIn(out_), isEnough ? fresh_ : Files{}) << files;
    if (!isEnough) {
      EXPECT_EQ(ending.out,
                "FATAL ERROR: An unknown error occurred in Parse\nCould not open file deck.qdk\n");
    }
  }
}

TEST_F(Process, ThatMayHaveNoThreadSaysSoAndWritesNothing) {
  fs::create_directory(out_);
  fs::permissions(out_, fs::perms::all);
  const Ending ending = run([] {
    becomeNobody();
    limit(RLIMIT_NPROC, 0);
  });
  EXPECT_EQ(ending.exitCode, 3);
  EXPECT_THAT(ending.out, HasSubstr("FATAL ERROR: An unknown error occurred in Create\nResource"));
  EXPECT_TRUE(filesIn(out_).empty());
}

TEST_F(Process, WhoseConsoleTakesNothingWritesTheSameFiles) {
  for (const std::string console : {">&-", ">/dev/full", "<&-", "2>&-", "<&- >&- 2>&-"}) {
    fs::remove_all(out_);
    const ProcessResult result = runInShell("exec $RUN " + console);
    EXPECT_EQ(result.exitCode, 0) << console;
    EXPECT_EQ(result.err, "") << console;
    EXPECT_EQ(filesIn(out_), fresh_) << console;
  }
}

TEST_F(Process, WhoseReaderGoesAwayWritesTheSameFiles) {
  runInShell("(sleep 0.2; exec $RUN) | true");
  EXPECT_EQ(filesIn(out_), fresh_);
}

TEST_F(Process, WithoutAnEnvironmentWritesTheSameFiles) {
  const ProcessResult result = runInShell("exec env -i LD_LIBRARY_PATH=\"$LD_LIBRARY_PATH\" $RUN");
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(filesIn(out_), fresh_);
}

TEST_F(Process, InALocaleThatIsNotInstalledEndsWithoutFiles) {
  const ProcessResult result = runInShell("exec env LC_ALL=xx_YY $RUN");
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.out, "FATAL ERROR: Unable to setup localization: \nbad locale name\n");
  EXPECT_FALSE(fs::exists(out_));
}

TEST_F(Process, WithABrokenLibraryDoesNotStart) {
  fs::create_directory(folder_.path() / "libraries");
  folder_.write("libraries/libkxdriver.so", "no library");
  const ProcessResult result = runInShell("exec $RUN", folder_.file("libraries"));
  EXPECT_EQ(result.exitCode, 127);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("libkxdriver.so"));
  EXPECT_FALSE(fs::exists(out_));
}

TEST_F(Process, WithALibraryThatLacksAFunctionDoesNotStart) {
  const ProcessResult result = runInShell("exec $RUN", LAMCRAFT_PARTIAL_FOLDER);
  EXPECT_EQ(result.exitCode, 127);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("undefined symbol"));
  EXPECT_FALSE(fs::exists(out_));
}

TEST_F(Process, WhoseLibraryThrowsSaysSoAndWritesNothing) {
  setVariable("KXFAKE_FAULT", "throw");
  const Ending ending = run();
  EXPECT_EQ(ending.exitCode, 3);
  EXPECT_THAT(ending.out,
              EndsWith("FATAL ERROR: An unknown error occurred in Create\nthe library failed\n"));
  EXPECT_TRUE(filesIn(out_).empty());
}

TEST_F(Process, WhoseLibraryAbortsEndsAndWritesNothing) {
  setVariable("KXFAKE_FAULT", "abort");
  EXPECT_EQ(run([] { limit(RLIMIT_CORE, 0); }).signal, SIGABRT);
  EXPECT_TRUE(filesIn(out_).empty());
}

TEST_F(Process, WhoseLibraryAnswersNoNumbersSaysSoAndWritesNothing) {
  setVariable("KXFAKE_FAULT", "nan");
  const Ending ending = run();
  EXPECT_EQ(ending.exitCode, 2);
  EXPECT_THAT(ending.out, HasSubstr("nan"));
  EXPECT_THAT(
      ending.out,
      EndsWith("FATAL ERROR: An error occured during solve: \n"
               "The micromechanics library found no numbers for the lamina of environment 1.\n"));
  EXPECT_TRUE(filesIn(out_).empty());
}

}  // namespace
}  // namespace lamcraft::test
