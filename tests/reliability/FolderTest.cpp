// Folders and files that do not take what the program writes, and what others do to them meanwhile.

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reliability/ForkedRun.h"
#include "reliability/MaterialFolder.h"
#include "support/Environment.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;

constexpr auto kReadOnly =
    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec;
constexpr auto kEverybody = fs::perms::owner_read | fs::perms::owner_write |
                            fs::perms::others_read | fs::perms::others_write;

constexpr const char* kTakesTwoUsers = "takes files of another user: run it as the administrator";

uid_t ownerOf(const fs::path& file) {
  struct stat status {};
  EXPECT_EQ(stat(file.c_str(), &status), 0);
  return status.st_uid;
}

class Folder : public testing::Test {
 protected:
  void SetUp() override {
    folder_.write("deck.qdk", deck_.text());
    fs::create_directory(out_);
  }
  void TearDown() override {
    fs::permissions(out_, fs::perms::owner_all, ignored_);
    removeVariable("KXFAKE_SLEEP_MS");
    removeVariable("KXFAKE_LOG");
  }

  Ending run(const std::function<void()>& prepare = [] {}) {
    return runForked({"deck.qdk", "out"}, folder_.path().string(), prepare);
  }

  /// Starts a run and waits until it solves, which then takes so many milliseconds.
  std::unique_ptr<ForkedRun> solving(
      const std::function<void()>& prepare = [] {}, const std::string& duration = "300") {
    const fs::path calls = folder_.write("calls.txt", "");
    fs::permissions(calls, fs::perms::all);
    setVariable("KXFAKE_SLEEP_MS", duration);
    setVariable("KXFAKE_LOG", calls.string());
    auto run = std::make_unique<ForkedRun>(
        std::vector<std::string>{"deck.qdk", "out"}, folder_.path().string(), prepare);
    const auto isSolving = [&] {
      return contentOf(calls).find("UNI_OPTIMIZATION") != std::string::npos;
    };
    constexpr int kPatience = 20000;
    for (int i = 0; i < kPatience && !isSolving(); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(isSolving());
    return run;
  }

  static void expectUnopened(const Ending& ending, const std::string& file) {
    EXPECT_EQ(ending.exitCode, 3);
    EXPECT_THAT(ending.out,
                EndsWith("FATAL ERROR: An unknown error occurred in Create\nCould not open file " +
                         file + "\n"));
  }

  TemporaryFolder folder_;
  fs::path out_ = folder_.path() / "out";
  UniDeck deck_ = completeDeck();
  Files fresh_ = undisturbed(deck_);
  Files old_ = undisturbed(completeDeck("0.5"));
  std::error_code ignored_;

  void fillWithOld() const {
    for (const auto& [name, content] : old_) {
      folder_.write("out/" + name, content);
    }
  }
};

TEST_F(Folder, ThatIsReadOnlyKeepsWhatItHolds) {
  fillWithOld();
  fs::permissions(out_, kReadOnly);
  expectUnopened(run(becomeNobody), "out/input.qdk");
  EXPECT_EQ(filesIn(out_), old_);
}

TEST_F(Folder, ThatCannotBeCreatedIsRefused) {
  fs::remove(out_);
  fs::permissions(folder_.path(), kReadOnly);
  const Ending ending = run(becomeNobody);
  fs::permissions(folder_.path(), fs::perms::owner_all);
  EXPECT_EQ(ending.exitCode, 0);
  EXPECT_EQ(ending.out, "FATAL ERROR: Unable to create material directory:\nout\n");
  EXPECT_FALSE(fs::exists(out_));
}

TEST_F(Folder, ThatIsAFileIsRefused) {
  fs::remove(out_);
  folder_.write("out", "mine");
  const Ending ending = run();
  EXPECT_EQ(ending.exitCode, 0);
  EXPECT_EQ(ending.out, "FATAL ERROR: Unable to create material directory:\nout\n");
  EXPECT_EQ(contentOf(out_), "mine");
}

TEST_F(Folder, ThatVanishesDuringTheSolveIsMissed) {
  const auto running = solving();
  fs::remove_all(out_);
  expectUnopened(running->wait(), "out/input.qdk");
  EXPECT_FALSE(fs::exists(out_));
  fs::create_directory(out_);
}

TEST_F(Folder, ThatBecomesReadOnlyDuringTheSolveKeepsWhatItHolds) {
  fillWithOld();
  fs::permissions(out_, fs::perms::all);
  const auto running = solving(becomeNobody);
  fs::permissions(out_, kReadOnly);
  expectUnopened(running->wait(), "out/input.qdk");
  EXPECT_EQ(filesIn(out_), old_);
}

TEST_F(Folder, ThatAnotherRunFillsDuringTheSolveIsNotOverwritten) {
  UniDeck slow = completeDeck();
  UniDeck quick = completeDeck("0.5");
  for (UniDeck* const deck : {&slow, &quick}) {
    deck->material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=PLY\n1\n";  // no OVERWRITE
  }
  folder_.write("deck.qdk", slow.text());
  folder_.write("quick.qdk", quick.text());
  const auto running = solving([] {}, "1500");  // many times what the quick one takes
  removeVariable("KXFAKE_SLEEP_MS");
  EXPECT_EQ(runForked({"quick.qdk", "out"}, folder_.path().string()).exitCode, 0);
  const Files quickOnes = filesIn(out_);
  EXPECT_EQ(quickOnes, undisturbed(quick));
  const Ending ending = running->wait();
  EXPECT_EQ(ending.exitCode, 0);
  EXPECT_THAT(ending.out,
              EndsWith("FATAL ERROR: The target mdata already exists: out/mdata.xml\nUse the "
                       "OVERWRITE parameter with *MATERIAL to overwrite this file\n"));
  EXPECT_EQ(filesIn(out_), quickOnes) << "and no parts";
}

TEST_F(Folder, CopyOfTheDeckThatMayNotBeWrittenStays) {
  fillWithOld();
  fs::permissions(out_, fs::perms::all);
  fs::permissions(out_ / "input.qdk", fs::perms::owner_read | fs::perms::others_read);
  expectUnopened(run(becomeNobody), "out/input.qdk");
  EXPECT_EQ(filesIn(out_), old_);
}

TEST_F(Folder, NamedLikeTheCopyOfTheDeckStopsTheRun) {
  fillWithOld();
  fs::remove(out_ / "input.qdk");
  fs::create_directory(out_ / "input.qdk");
  expectUnopened(run(), "out/input.qdk");
  EXPECT_EQ(namesOf(filesIn(out_)), "fdata.xml mdata.xml ");
}

TEST_F(Folder, NamedLikeADataFileIsInItsPlace) {
  for (const std::string name : {"mdata.xml", "fdata.xml"}) {
    fs::remove_all(out_);
    fs::create_directories(out_ / name);
    EXPECT_EQ(run().exitCode, 0);
    Files others = fresh_;
    others.erase(name);
    EXPECT_EQ(filesIn(out_), others);
    EXPECT_TRUE(fs::is_empty(out_ / name));
  }
}

TEST_F(Folder, WhatIsNoFileMakesRoomForOne) {
  fs::create_symlink("/dev/full", out_ / "mdata.xml");
  fs::create_symlink(folder_.file("missing"), out_ / "input.qdk");
  ASSERT_EQ(mkfifo((out_ / "fdata.xml").c_str(), 0600), 0);
  EXPECT_EQ(run().exitCode, 0);
  EXPECT_EQ(filesIn(out_), fresh_);
  EXPECT_FALSE(fs::is_symlink(out_ / "mdata.xml"));
  EXPECT_FALSE(fs::exists(folder_.path() / "missing"));
}

TEST_F(Folder, LinksToFilesAreFollowed) {
  const fs::path elsewhere = folder_.path() / "elsewhere";
  fs::create_directory(elsewhere);
  for (const auto& [name, content] : old_) {
    folder_.write("elsewhere/" + name, content);
    fs::create_symlink("../elsewhere/" + name, out_ / name);
  }
  EXPECT_EQ(run().exitCode, 0);
  EXPECT_EQ(filesIn(elsewhere), fresh_);
  EXPECT_EQ(filesIn(out_), fresh_);
  EXPECT_TRUE(fs::is_symlink(out_ / "mdata.xml"));
}

TEST_F(Folder, LinksIntoAFolderThatTakesNoFileAreFollowed) {
  const fs::path elsewhere = folder_.path() / "elsewhere";
  fs::create_directory(elsewhere);
  for (const auto& [name, content] : old_) {
    folder_.write("elsewhere/" + name, content);
    fs::permissions(elsewhere / name, kEverybody);
    fs::create_symlink("../elsewhere/" + name, out_ / name);
  }
  fs::permissions(out_, fs::perms::all);
  fs::permissions(elsewhere, kReadOnly);
  EXPECT_EQ(run(becomeNobody).exitCode, 0);
  fs::permissions(elsewhere, fs::perms::owner_all);
  EXPECT_EQ(filesIn(elsewhere), fresh_);
  EXPECT_EQ(filesIn(out_), fresh_) << "and no parts";
  EXPECT_TRUE(fs::is_symlink(out_ / "mdata.xml"));
}

TEST_F(Folder, UnderAnyMaskTakesFilesThatTheirOwnerMayWrite) {
  fs::permissions(folder_.path(), fs::perms::all);
  const auto masked = {std::pair{mode_t{0777}, 0600U}, std::pair{mode_t{0222}, 0644U}};
  for (const auto& [mask, access] : masked) {
    fs::remove_all(out_);
    const Ending ending = run([taken = mask] {
      becomeNobody();
      umask(taken);
    });
    EXPECT_EQ(ending.exitCode, 0) << ending.out;
    EXPECT_EQ(filesIn(out_), fresh_);
    for (const auto& [name, content] : fresh_) {
      EXPECT_EQ(fs::status(out_ / name).permissions(), fs::perms{access}) << name;
    }
  }
}

TEST_F(Folder, OldFilesHandTheirAccessOn) {
  fillWithOld();
  const auto access = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write;
  const uid_t owner = isAdministrator() ? kNobody : geteuid();  // who else may give files away?
  for (const auto& [name, content] : old_) {
    ASSERT_EQ(chown((out_ / name).c_str(), owner, getegid()), 0);
    fs::permissions(out_ / name, access);
    fs::create_hard_link(out_ / name, folder_.path() / ("second-" + name));
  }
  EXPECT_EQ(run().exitCode, 0);
  EXPECT_EQ(filesIn(out_), fresh_);
  for (const auto& [name, content] : fresh_) {
    EXPECT_EQ(fs::status(out_ / name).permissions(), access) << name;
    EXPECT_EQ(ownerOf(out_ / name), owner) << name;
    EXPECT_EQ(contentOf(folder_.path() / ("second-" + name)), old_.at(name));
  }
}

TEST_F(Folder, OfOthersWhereNothingMayBeReplacedTakesTheFiles) {
  if (!isAdministrator()) {
    GTEST_SKIP() << kTakesTwoUsers;
  }
  fillWithOld();
  fs::permissions(out_, fs::perms::all | fs::perms::sticky_bit);
  for (const auto& [name, content] : old_) {
    fs::permissions(out_ / name, kEverybody);
  }
  EXPECT_EQ(run(becomeNobody).exitCode, 0);
  EXPECT_EQ(filesIn(out_), fresh_) << "and no parts";
}

TEST_F(Folder, OldDataThatAreWriteProtectedAreReplaced) {
  fillWithOld();
  fs::permissions(out_, fs::perms::all);
  for (const std::string name : {"mdata.xml", "fdata.xml"}) {
    fs::permissions(out_ / name, fs::perms::owner_read | fs::perms::others_read);
  }
  fs::permissions(out_ / "input.qdk", fs::perms::all);
  EXPECT_EQ(run(becomeNobody).exitCode, 0);
  EXPECT_EQ(filesIn(out_), fresh_);
}

TEST_F(Folder, OldDataThatCanNeitherBeRemovedNorEmptiedStopTheRun) {
  if (!isAdministrator()) {
    GTEST_SKIP() << kTakesTwoUsers;
  }
  fillWithOld();
  fs::permissions(out_, fs::perms::all | fs::perms::sticky_bit);
  fs::permissions(out_ / "input.qdk", fs::perms::all);
  fs::permissions(out_ / "mdata.xml", fs::perms::owner_read | fs::perms::others_read);
  expectUnopened(run(becomeNobody), "out/mdata.xml");
  EXPECT_EQ(filesIn(out_), old_);
}

TEST_F(Folder, OfTheDeckTakesTheFilesBesideIt) {
  const std::string before = contentOf(folder_.path() / "deck.qdk");
  EXPECT_EQ(runForked({"deck.qdk", "."}, folder_.path().string()).exitCode, 0);
  Files expected = fresh_;
  expected["deck.qdk"] = before;
  EXPECT_EQ(filesIn(folder_.path()), expected);
}

TEST_F(Folder, WhoseCopyIsTheDeckGetsTheSameFilesAgain) {
  fs::copy_file(folder_.path() / "deck.qdk", out_ / "input.qdk");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(runForked({"out/input.qdk", "out"}, folder_.path().string()).exitCode, 0);
    EXPECT_EQ(filesIn(out_), fresh_);
  }
}

TEST_F(Folder, TakesTheFilesOfOneOfSeveralRunsAtATime) {
  const UniDeck other = completeDeck("0.5");
  folder_.write("other.qdk", other.text());
  for (int round = 0; round < 20; ++round) {
    std::vector<std::unique_ptr<ForkedRun>> runs;
    for (const std::string deck : {"deck.qdk", "other.qdk", "deck.qdk", "other.qdk"}) {
      runs.push_back(std::make_unique<ForkedRun>(std::vector<std::string>{deck, "out"},
                                                 folder_.path().string()));
    }
    for (const auto& running : runs) {
      EXPECT_EQ(running->wait().exitCode, 0);
    }
    const Files files = filesIn(out_);
    ASSERT_TRUE(files == fresh_ || files == old_) << namesOf(files);
  }
}

TEST_F(Folder, LockedBySomebodyElseTakesTheFilesAllTheSame) {
  const int lock = open(out_.c_str(), O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(flock(lock, LOCK_EX), 0);
  EXPECT_EQ(run().exitCode, 0);
  EXPECT_EQ(filesIn(out_), fresh_);
  close(lock);
}

}  // namespace
}  // namespace lamcraft::test
