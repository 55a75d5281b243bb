// SPDX-License-Identifier: BSD-3-Clause
// Folders and files that do not take what the program writes, and what others do to them meanwhile.

#include <sys/stat.h>

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

  /// Starts a run and waits until it solves, which then takes 300 milliseconds.
  std::unique_ptr<ForkedRun> solving(const std::function<void()>& prepare = [] {}) {
    const fs::path calls = folder_.write("calls.txt", "");
    fs::permissions(calls, fs::perms::all);
    setVariable("KXFAKE_SLEEP_MS", "300");
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

TEST_F(Folder, ThatTakesNoNewFileTakesItsFiles) {
  fillWithOld();
  for (const auto& [name, content] : old_) {
    fs::permissions(out_ / name, kEverybody);
  }
  fs::permissions(out_, kReadOnly);
  EXPECT_EQ(run(becomeNobody).exitCode, 0);
  EXPECT_EQ(filesIn(out_), fresh_);
}

TEST_F(Folder, IsAskedOnceBeforeTheSolveWhetherItHoldsAMaterial) {
  UniDeck deck = completeDeck();
  deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=PLY\n1\n";  // no OVERWRITE
  folder_.write("deck.qdk", deck.text());
  const auto running = solving();
  folder_.write("out/mdata.xml", "another run's");
  EXPECT_EQ(running->wait().exitCode, 0);
  EXPECT_EQ(filesIn(out_), undisturbed(deck)) << "the solve is not thrown away";
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

TEST_F(Folder, LinkToNothingMakesRoomForAFile) {
  fs::create_symlink(folder_.file("missing"), out_ / "input.qdk");
  EXPECT_EQ(run().exitCode, 0);
  EXPECT_EQ(filesIn(out_), fresh_);
  EXPECT_FALSE(fs::exists(folder_.path() / "missing"));
}

TEST_F(Folder, FifosAndDevicesStayInThePlacesOfDataFiles) {
  fs::create_symlink("/dev/full", out_ / "mdata.xml");
  ASSERT_EQ(mkfifo((out_ / "fdata.xml").c_str(), 0600), 0);
  EXPECT_EQ(run().exitCode, 0);
  EXPECT_EQ(namesOf(filesIn(out_)), "input.qdk ");
  EXPECT_TRUE(fs::is_character_file(out_ / "mdata.xml"));
  EXPECT_TRUE(fs::is_fifo(out_ / "fdata.xml"));
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

TEST_F(Folder, OldDataThatAreWriteProtectedStay) {
  for (const std::string name : {"mdata.xml", "fdata.xml"}) {
    fillWithOld();
    fs::permissions(out_, fs::perms::all);
    for (const auto& file : old_) {
      fs::permissions(out_ / file.first, fs::perms::all);
    }
    fs::permissions(out_ / name, fs::perms::owner_read | fs::perms::others_read);
    EXPECT_EQ(run(becomeNobody).exitCode, 0);
    Files expected = fresh_;
    expected[name] = old_.at(name);
    EXPECT_EQ(filesIn(out_), expected);
  }
}

TEST_F(Folder, OldDataThatCanNeitherBeRemovedNorWrittenCostNeitherTheOldNorTheNewOnes) {
  if (!isAdministrator()) {
    GTEST_SKIP() << kTakesTwoUsers;
  }
  fs::permissions(out_, fs::perms::all | fs::perms::sticky_bit);
  for (const std::string name : {"mdata.xml", "fdata.xml"}) {
    fs::remove(out_ / "mdata.xml");
    fs::remove(out_ / "fdata.xml");
    folder_.write("out/" + name, old_.at(name));
    EXPECT_EQ(run(becomeNobody).exitCode, 0);
    Files expected = fresh_;
    expected[name] = old_.at(name);
    EXPECT_EQ(filesIn(out_), expected);
  }
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

TEST_F(Folder, OfSeveralRunsAtATimeHoldsWholeFiles) {
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
    ASSERT_EQ(namesOf(files), "fdata.xml input.qdk mdata.xml ") << "and no parts";
    for (const auto& [name, content] : files) {
      ASSERT_TRUE(content == fresh_.at(name) || content == old_.at(name)) << name;
    }
  }
}

}  // namespace
}  // namespace lamcraft::test
