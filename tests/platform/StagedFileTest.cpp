#include "platform/StagedFile.h"

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "platform/FileSystem.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::platform {
namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::TemporaryFolder;

void write(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

TEST(StagedFile, HasItsNameWhenItIsCommitted) {
  const TemporaryFolder folder;
  StagedFile file(folder.file("mdata.xml"));
  ASSERT_TRUE(file.create());
  write(file.part(), "new");
  EXPECT_EQ(file.part(), folder.file("mdata.xml.part"));
  EXPECT_FALSE(fs::exists(folder.path() / "mdata.xml"));
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(contentOf(folder.path() / "mdata.xml"), "new");
  EXPECT_FALSE(fs::exists(folder.path() / "mdata.xml.part"));
}

TEST(StagedFile, ReplacesWhatWasThere) {
  const TemporaryFolder folder;
  StagedFile file(folder.write("mdata.xml", "what was there before, and was longer"));
  ASSERT_TRUE(file.create());
  write(file.part(), "new");
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(contentOf(folder.path() / "mdata.xml"), "new");
}

TEST(StagedFile, IsRemovedWhenNobodyCommitsIt) {
  const TemporaryFolder folder;
  {
    StagedFile file(folder.write("mdata.xml", "old"));
    ASSERT_TRUE(file.create());
    write(file.part(), "half of it");
  }
  EXPECT_EQ(contentOf(folder.path() / "mdata.xml"), "old");
  EXPECT_FALSE(fs::exists(folder.path() / "mdata.xml.part"));
}

TEST(StagedFile, CannotBeCommittedWhenDiscarded) {
  const TemporaryFolder folder;
  StagedFile file(folder.file("mdata.xml"));
  EXPECT_FALSE(file.commit()) << "not created yet";
  ASSERT_TRUE(file.create());
  file.discard();
  EXPECT_FALSE(file.commit());
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(StagedFile, LeavesThePartsOfOthersAlone) {
  const TemporaryFolder folder;
  const std::string other = folder.write("mdata.xml.part", "another run's");
  StagedFile second(folder.file("mdata.xml"));
  StagedFile third(folder.file("mdata.xml"));
  ASSERT_TRUE(second.create());
  ASSERT_TRUE(third.create());
  EXPECT_EQ(second.part(), other + "2");
  EXPECT_EQ(third.part(), other + "3");
  EXPECT_TRUE(second.commit());
  EXPECT_EQ(contentOf(other), "another run's");
}

TEST(StagedFile, FindsANameBesideThePartsOfManyKilledRuns) {
  const TemporaryFolder folder;
  constexpr int kParts = 1500;
  const std::string first = folder.write("mdata.xml.part", "");
  for (int i = 2; i <= kParts; ++i) {
    ASSERT_EQ(createFile(first + std::to_string(i)), Creation::done);
  }
  StagedFile file(folder.file("mdata.xml"));
  ASSERT_TRUE(file.create());
  EXPECT_EQ(file.part(), first + std::to_string(kParts + 1));
}

TEST(StagedFile, DoesNotTakeTheNameOfAFolder) {
  const TemporaryFolder folder;
  fs::create_directory(folder.path() / "mdata.xml");
  StagedFile file(folder.file("mdata.xml"));
  ASSERT_TRUE(file.create());
  EXPECT_FALSE(file.commit());
  EXPECT_TRUE(fs::is_directory(folder.path() / "mdata.xml"));
}

TEST(StagedFile, RemovesWhatWasThereBefore) {
  const TemporaryFolder folder;
  const StagedFile file(folder.write("mdata.xml", "old"));
  EXPECT_TRUE(file.removeOld());
  EXPECT_TRUE(fs::is_empty(folder.path()));
  EXPECT_TRUE(file.removeOld()) << "there is none";
}

TEST(StagedFile, LeavesAFolderOfItsNameAlone) {
  const TemporaryFolder folder;
  fs::create_directory(folder.path() / "mdata.xml");
  const StagedFile file(folder.file("mdata.xml"));
  EXPECT_TRUE(file.removeOld()) << "no old content";
  EXPECT_TRUE(fs::is_directory(folder.path() / "mdata.xml"));
}

TEST(StagedFile, TakesThePlaceOfAWriteProtectedFileAndItsProtection) {
  const TemporaryFolder folder;
  const fs::path old = folder.write("mdata.xml", "old");
  fs::permissions(old,
                  fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  StagedFile file(old.string());
  ASSERT_TRUE(file.create());
  write(file.part(), "new");
  EXPECT_TRUE(file.removeOld());
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(contentOf(old), "new");
  EXPECT_EQ(fs::status(old).permissions() & fs::perms::owner_write, fs::perms::none);
  fs::permissions(old, fs::perms::owner_all);  // or Windows could not remove it
}

TEST(StagedFile, NeedsItsFolder) {
  const TemporaryFolder folder;
  StagedFile file(folder.file("missing") + pathSeparator() + "mdata.xml");
  EXPECT_FALSE(file.create());
  EXPECT_EQ(file.part(), "");
}

}  // namespace
}  // namespace lamcraft::platform
