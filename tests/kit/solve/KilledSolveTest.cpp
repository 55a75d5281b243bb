// SPDX-License-Identifier: BSD-3-Clause
// A solve that is killed at any moment and taken up again ends as one that nobody disturbed.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "kit/solve/SolvedDecks.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;

constexpr int kKills = 200;

/// lamkit, running beside the test.
class RunningSolve {
 public:
  RunningSolve(const SolvedDecks& solved, const std::vector<std::string>& more) {
    std::vector<std::string> words = solved.arguments(more);
    words.insert(words.begin(), LAMKIT_PROGRAM);
    std::vector<char*> pointers;
    for (std::string& word : words) {
      pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    std::vector<std::string> texts;
    for (const auto& [name, value] : solved.environment) {
      texts.push_back(name + "=" + value);
    }
    std::vector<char*> environment;
    for (std::string& text : texts) {
      environment.push_back(text.data());
    }
    environment.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
      posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
    }
    started_ =
        posix_spawn(&id_, LAMKIT_PROGRAM, &actions, nullptr, pointers.data(), environment.data()) ==
        0;
    posix_spawn_file_actions_destroy(&actions);
  }

  [[nodiscard]] bool isStarted() const { return started_; }
  [[nodiscard]] pid_t id() const { return id_; }

  /// Kills it; false when it had come to its end before.
  bool kill() {
    ::kill(id_, SIGKILL);
    int status = 0;
    waitpid(id_, &status, 0);
    return WIFSIGNALED(status);
  }

 private:
  pid_t id_ = 0;
  bool started_ = false;
};

TEST(KilledSolve, IsTakenUpAgainToTheSameFolders) {
  SolvedDecks solved;
  for (int i = 0; i < 8; ++i) {
    solved.add("D" + std::to_string(i));
  }
  solved.add("R", "*MATERIAL, TYPE=UNI, SYSTEM=X, NAME=R\n1\n*LAMINNA\n1\n");
  ASSERT_NE(solved.solve({"--force"}).exitCode, 3);
  const auto undisturbed = solved.files();

  std::mt19937 random(1);  // the same moments in every run, as far as the machine has them
  std::uniform_int_distribution<int> microseconds(0, 60000);
  int ended = 0;
  for (int kills = 0; kills < kKills;) {
    // Half of the time over whole folders, half of the time from nothing.
    const bool isFresh = random() % 2 == 0;
    if (isFresh) {
      fs::remove_all(solved.root.path() / "out");
    }
    RunningSolve solve(solved,
                       isFresh ? std::vector<std::string>{"--force"}
                               : std::vector<std::string>{"--force", "--resume"});
    ASSERT_TRUE(solve.isStarted());
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
    if (solve.kill()) {
      ++kills;
    } else {
      ASSERT_LT(++ended, 100 * kKills) << "solves end before they can be killed";
    }
    if (kills % 20 == 0) {
      ASSERT_NE(solved.solve({"--force", "--resume"}).exitCode, 3);
      ASSERT_EQ(solved.files(), undisturbed) << "after " << kills << " kills";
    }
  }
}

/// Whether a process runs whose command line holds a text.
bool isRunning(const std::string& text) {
  for (const auto& entry : fs::directory_iterator("/proc")) {
    std::ifstream file(entry.path() / "cmdline", std::ios::binary);
    const std::string line((std::istreambuf_iterator<char>(file)), {});
    if (line.find(text) != std::string::npos) {
      return true;
    }
  }
  return false;
}

TEST(KilledSolve, TakesItsChildAlong) {
  SolvedDecks solved;
  solved.useFake();
  solved.environment["KXFAKE_SLEEP_MS"] = "100000";
  solved.add("A");
  RunningSolve solve(solved, {});
  const std::string part = solved.root.file("out/.A.part");
  const auto waitUntil = [&](const bool runs) {
    for (int i = 0; i < 1000 && isRunning(part) != runs; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  };
  waitUntil(true);
  ASSERT_TRUE(isRunning(part));
  ASSERT_TRUE(solve.kill());
  waitUntil(false);
  EXPECT_FALSE(isRunning(part));
  EXPECT_FALSE(fs::exists(solved.folder("A")));
}

}  // namespace
}  // namespace lamkit
