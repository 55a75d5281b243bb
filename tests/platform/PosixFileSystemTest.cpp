#include "platform/FileSystem.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamcraft::platform {
namespace {

mode_t accessOf(const std::string& path) {
  constexpr mode_t kBits = 07777;
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & kBits;
}

TEST(PosixFileSystem, FileHasTheNormalBitAlone) {
  const test::TemporaryFolder folder;
  const std::string file = folder.write("mdata.xml", "x");
  EXPECT_EQ(fileAttributes(file), kNormalAttribute);
  EXPECT_TRUE(isNormalFile(file));
}

TEST(PosixFileSystem, FoldersAreSeparatedBySlashes) {
  EXPECT_EQ(pathSeparator(), "/");
}

TEST(PosixFileSystem, OwnerMayUseWhatIsCreatedUnderAnyMask) {
  const test::TemporaryFolder folder;
  for (const mode_t mask : {0777U, 0222U, 0077U, 0022U, 0000U}) {
    const std::string file = folder.file("file" + std::to_string(mask));
    const std::string subfolder = folder.file("folder" + std::to_string(mask));
    const mode_t before = umask(mask);
    EXPECT_EQ(createFile(file), Creation::done);
    EXPECT_TRUE(createFolder(subfolder));
    umask(before);
    EXPECT_EQ(accessOf(file), (0666U & ~mask) | 0600U);
    EXPECT_EQ(accessOf(subfolder), (0777U & ~mask) | 0700U);
  }
}

TEST(PosixFileSystem, SetGroupBitOfAFolderIsHandedOnUnderAnyMask) {
  const test::TemporaryFolder folder;
  ASSERT_EQ(chmod(folder.path().c_str(), 02700), 0);
  const mode_t before = umask(0777);
  EXPECT_TRUE(createFolder(folder.file("out")));
  umask(before);
  EXPECT_EQ(accessOf(folder.file("out")), 02700U);
}

TEST(PosixFileSystem, FifosAndEndlessDevicesHaveNoEnd) {
  const test::TemporaryFolder folder;
  const std::string fifo = folder.file("deck.qdk");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_FALSE(hasAnEnd(fifo));
  EXPECT_FALSE(hasAnEnd("/dev/zero"));
  EXPECT_FALSE(hasAnEnd("/dev/ptmx"));
  EXPECT_TRUE(hasAnEnd("/dev/null"));
}

TEST(PosixFileSystem, PipeThatTheProcessWasHandedHasAnEnd) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  EXPECT_TRUE(hasAnEnd("/dev/fd/" + std::to_string(pipe[0])));
  for (const int file : pipe) {
    close(file);
  }
}

TEST(PosixFileSystem, OverwrittenFileStaysTheSameFile) {
  const test::TemporaryFolder folder;
  const std::string from = folder.write("from", "new");
  const std::string to = folder.write("to", "what was there before, and was longer");
  ASSERT_EQ(link(to.c_str(), folder.file("other name").c_str()), 0);
  EXPECT_TRUE(overwriteFile(from, to));
  EXPECT_EQ(test::contentOf(folder.file("other name")), "new");
  EXPECT_EQ(test::contentOf(from), "new");
}

TEST(PosixFileSystem, OnlyFilesThatAreThereAreOverwritten) {
  const test::TemporaryFolder folder;
  const std::string from = folder.write("from", "new");
  const std::string fifo = folder.file("fifo");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_FALSE(overwriteFile(from, fifo)) << "would wait for a reader";
  EXPECT_FALSE(overwriteFile(from, folder.path().string()));
  EXPECT_FALSE(overwriteFile(from, folder.file("missing")));
  EXPECT_FALSE(fileAttributes(folder.file("missing")));
  EXPECT_FALSE(overwriteFile(folder.file("missing"), from));
  EXPECT_EQ(test::contentOf(from), "new");
}

TEST(PosixFileSystem, AccessIsThatOfTheOtherFile) {
  const test::TemporaryFolder folder;
  const std::string from = folder.write("from", "");
  const std::string to = folder.write("to", "");
  for (const mode_t access : {0640U, 0444U, 0666U}) {
    ASSERT_EQ(chmod(from.c_str(), access), 0);
    copyAccess(from, to);
    EXPECT_EQ(accessOf(to), access);
  }
  copyAccess(folder.file("missing"), to);
  copyAccess("/dev/null", to);
  EXPECT_EQ(accessOf(to), 0666U) << "nothing to take it from";
}

}  // namespace
}  // namespace lamcraft::platform
