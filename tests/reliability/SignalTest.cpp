// SPDX-License-Identifier: BSD-3-Clause
// A run that a signal ends, at every moment at which it can change anything: before and after each
// of its calls of the system.

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reliability/ForkedRun.h"
#include "reliability/MaterialFolder.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

/// A run that stops wherever it enters or leaves the system.
class SteppedRun {
 public:
  explicit SteppedRun(const std::string& folder)
      : run_({"deck.qdk", "out"}, folder, [] {
          ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
          raise(SIGSTOP);
        }) {
    int status = 0;
    waitpid(run_.id(), &status, 0);
    isStopped_ = WIFSTOPPED(status);
    ptrace(PTRACE_SETOPTIONS, run_.id(), nullptr, PTRACE_O_EXITKILL);
  }

  /// Goes on to the next stop; false when the run has ended.
  bool step() {
    int status = 0;
    if (!isStopped_ || ptrace(PTRACE_SYSCALL, run_.id(), nullptr, nullptr) != 0) {
      return false;
    }
    if (waitpid(run_.id(), &status, 0) != run_.id()) {
      return false;
    }
    isStopped_ = WIFSTOPPED(status);
    return isStopped_;
  }

  /// Lets the run go on with a signal, and answers the signal that ended it.
  int end(const int signal) {
    kill(run_.id(), signal);
    ptrace(PTRACE_DETACH, run_.id(), nullptr, signal);
    return run_.wait().signal;
  }

 private:
  ForkedRun run_;
  bool isStopped_ = false;
};

bool canStep() {
  const TemporaryFolder folder;
  SteppedRun run(folder.path().string());
  return run.step();
}

class Signal : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    if (!canStep()) {
      GTEST_SKIP() << "nobody may step through a process here";
    }
    folder_.write("deck.qdk", completeDeck().text());
  }

  void fillWith(const Files& files) const {
    fs::remove_all(out_);
    fs::create_directory(out_);
    for (const auto& [name, content] : files) {
      folder_.write("out/" + name, content);
    }
  }

  /// Ends the run at its stop of that number; false when it comes to its end before the signal
  /// does.
  [[nodiscard]] bool isEndedAt(const int stop) const {
    SteppedRun run(folder_.path().string());
    for (int i = 0; i < stop; ++i) {
      if (!run.step()) {
        return false;
      }
    }
    return run.end(GetParam()) == GetParam();
  }

  /// The states of the folder that were seen, in each the names of the new files. Threads make the
  /// number of a stop differ by a few from run to run.
  [[nodiscard]] std::set<std::string> endEverywhere(const Files& old) const {
    const Files fresh = undisturbed(completeDeck());
    std::set<std::string> states;
    for (int stop = 0;; ++stop) {
      fillWith(old);
      const bool isEnded = isEndedAt(stop);
      Files files = filesIn(out_, false);
      EXPECT_TRUE(isSound(files, old, fresh)) << "stop " << stop << ": " << namesOf(files);
      for (const auto& [name, content] : old) {
        if (files[name] == content) {
          files.erase(name);
        }
      }
      states.insert(namesOf(files));
      if (!isEnded) {
        return states;
      }
    }
  }

  TemporaryFolder folder_;
  fs::path out_ = folder_.path() / "out";
};

const auto kOneFileAfterTheOther = UnorderedElementsAre(
    "", "input.qdk ", "input.qdk mdata.xml ", "fdata.xml input.qdk mdata.xml ");

TEST_P(Signal, LeavesWholeFiles) {
  EXPECT_THAT(endEverywhere({}), kOneFileAfterTheOther);
}

TEST_P(Signal, LeavesTheOldFilesThatHaveNoWholeSuccessor) {
  EXPECT_THAT(endEverywhere(undisturbed(completeDeck("0.5"))), kOneFileAfterTheOther);
}

TEST_P(Signal, PartsItLeavesDoNotDisturbTheNextRun) {
  const Files fresh = undisturbed(completeDeck());
  fillWith({});
  int stop = 0;
  while (filesIn(out_) == filesIn(out_, false)) {
    ASSERT_TRUE(isEndedAt(stop++)) << "no run has left a part";
  }
  EXPECT_EQ(runForked({"deck.qdk", "out"}, folder_.path().string()).exitCode, 0);
  EXPECT_EQ(filesIn(out_, false), fresh);
}

INSTANTIATE_TEST_SUITE_P(Ends,
                         Signal,
                         testing::Values(SIGINT, SIGTERM, SIGKILL),
                         [](const auto& instance) {
                           return std::string(sigabbrev_np(instance.param));
                         });

}  // namespace
}  // namespace lamcraft::test
