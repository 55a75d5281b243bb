// SPDX-License-Identifier: BSD-3-Clause
// A disk that is full before the last byte of a file is there.

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reliability/ForkedRun.h"
#include "reliability/MaterialFolder.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;

class FullDisk : public testing::Test {
 protected:
  /// Thousands of runs: in memory, where there is such a disk.
  static void SetUpTestSuite() {
    if (access("/dev/shm", W_OK) == 0) {
      setenv("TMPDIR", "/dev/shm", 0);
    }
  }
  void SetUp() override { folder_.write("deck.qdk", deck_.text()); }

  /// A run where no file takes more than `room` bytes; what is written there fails, as on a full
  /// disk.
  [[nodiscard]] Ending run(const std::size_t room) const {
    return runForked({"deck.qdk", "out"}, folder_.path().string(), [&] {
      std::signal(SIGXFSZ, SIG_DFL);  // which would end the process
      limit(RLIMIT_FSIZE, room);
    });
  }

  /// What must lie in the folder then: whole files alone, and the old one where the new one cannot
  /// be. No data of the new deck without its copy.
  [[nodiscard]] Files expected(const std::size_t room, const Files& old) const {
    Files files = old;
    if (room >= fresh_.at("input.qdk").size()) {
      for (const auto& [name, content] : fresh_) {
        if (content.size() <= room) {
          files[name] = content;
        }
      }
    }
    return files;
  }

  [[nodiscard]] std::size_t largest() const {
    std::size_t size = 0;
    for (const auto& [name, content] : fresh_) {
      size = std::max(size, content.size());
    }
    return size;
  }

  void fillWith(const Files& files) const {
    fs::remove_all(out_);
    fs::create_directory(out_);
    for (const auto& [name, content] : files) {
      folder_.write("out/" + name, content);
    }
  }

  void expectWholeFiles(const Files& old, const std::size_t step) const {
    ASSERT_EQ(fresh_.size(), 3U);
    for (std::size_t room = 0; room < largest() + step; room += step) {
      fillWith(old);
      const bool hasDeck = room >= fresh_.at("input.qdk").size();
      const Ending ending = run(room);
      ASSERT_EQ(ending.exitCode, hasDeck ? 0 : 3) << room;
      ASSERT_EQ(filesIn(out_), expected(room, old)) << room;
    }
  }

  TemporaryFolder folder_;
  fs::path out_ = folder_.path() / "out";
  UniDeck deck_ = completeDeck();
  Files fresh_ = undisturbed(deck_);
};

TEST_F(FullDisk, LeavesNoPieceOfAFileAtAnyByte) {
  expectWholeFiles({}, LAMCRAFT_IS_SANITIZED ? 29 : 1);  // a run then takes ten times as long
}

TEST_F(FullDisk, LeavesTheOldFileWhereTheNewOneHasNoRoom) {
  expectWholeFiles(undisturbed(completeDeck("0.5")), 13);
}

TEST_F(FullDisk, IsReportedWhenTheDeckCannotBeWritten) {
  // The console is a file here, too: room for its text, and a deck that is longer.
  UniDeck deck = deck_;
  deck.more += "** " + std::string(100000, 'x') + "\n";
  folder_.write("deck.qdk", deck.text());
  const Ending ending = run(50000);
  EXPECT_EQ(ending.exitCode, 3);
  EXPECT_THAT(ending.out,
              EndsWith("FATAL ERROR: An unknown error occurred in Create\n"
                       "Could not write file out/input.qdk.part\n"));
}

/// Writes the text in one piece, as the files of /proc want it.
bool put(const char* const path, const std::string& text) {
  std::ofstream file(path);
  file << text << std::flush;
  return file.good();
}

/// For a child: mounts of its own. Who is not the administrator becomes it among users of its own,
/// in which no file has an owner, and none can be created, until its own user is there.
bool becomeAlone() {
  if (unshare(CLONE_NEWNS) == 0) {
    return true;
  }
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && put("/proc/self/setgroups", "deny") &&
         put("/proc/self/uid_map", user + " " + user + " 1") &&
         put("/proc/self/gid_map", group + " " + group + " 1");
}

/// For a child: a disk of its own of `pages` pages at `folder`, seen by nobody else. False where
/// the system lets nobody have that.
bool mountDisk(const fs::path& folder, const std::size_t pages) {
  const bool isAlone = becomeAlone();
  const std::string size =
      "size=" + std::to_string(pages * static_cast<std::size_t>(getpagesize()));
  return isAlone && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("tmpfs", folder.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

/// Exit codes of a child that looks at its disk itself, which ends with it.
enum Verdict : int { isWhole = 0, isPartial = 1, isUnsound = 2, hasNoDisk = 3 };

Verdict tryDisk(const fs::path& folder, const std::size_t pages, const Files& fresh) {
  if (!mountDisk(folder / "out", pages)) {
    return hasNoDisk;
  }
  const Ending ending = runForked({"deck.qdk", "out"}, folder.string());
  const Files files = filesIn(folder / "out");
  const bool isReported = (ending.exitCode == 0) == (files.count("input.qdk") > 0);
  if (!isReported || !isSound(files, {}, fresh)) {
    return isUnsound;
  }
  return files == fresh ? isWhole : isPartial;
}

TEST_F(FullDisk, LeavesWholeFilesOnADiskOfAFewPages) {
  fillWith({});
  constexpr std::size_t kPages = 12;
  std::string verdicts;
  for (std::size_t pages = 1; pages <= kPages; ++pages) {
    const pid_t id = fork();
    if (id == 0) {
      _exit(tryDisk(folder_.path(), pages, fresh_));
    }
    int status = 0;
    waitpid(id, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == hasNoDisk) {
      GTEST_SKIP() << "nobody may mount a disk here";
    }
    EXPECT_NE(WEXITSTATUS(status), isUnsound) << pages << " pages";
    verdicts += WEXITSTATUS(status) == isWhole ? 'w' : 'p';
  }
  EXPECT_EQ(verdicts.front(), 'p') << "not even the deck and one file";
  EXPECT_EQ(verdicts.back(), 'w');
}

}  // namespace
}  // namespace lamcraft::test
