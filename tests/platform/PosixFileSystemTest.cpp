// SPDX-License-Identifier: BSD-3-Clause
#include "platform/FileSystem.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamcraft::platform {
namespace {

TEST(PosixFileSystem, FileHasTheNormalBitAlone) {
  const test::TemporaryFolder folder;
  const std::string file = folder.write("mdata.xml", "x");
  EXPECT_EQ(fileAttributes(file), kNormalAttribute);
  EXPECT_TRUE(isNormalFile(file));
}

TEST(PosixFileSystem, FoldersAreSeparatedBySlashes) {
  EXPECT_EQ(pathSeparator(), "/");
}

TEST(PosixFileSystem, FifosAndSomeDevicesAreEndless) {
  const test::TemporaryFolder folder;
  const std::string fifo = folder.file("deck.qdk");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_TRUE(isEndless(fifo));
  EXPECT_TRUE(isEndless("/dev/zero"));
  EXPECT_TRUE(isEndless("/dev/ptmx"));
  EXPECT_FALSE(isEndless("/dev/null"));
}

TEST(PosixFileSystem, PipeThatTheProcessWasHandedIsNotEndless) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  EXPECT_FALSE(isEndless("/dev/fd/" + std::to_string(pipe[0])));
  for (const int file : pipe) {
    close(file);
  }
}

TEST(PosixFileSystem, OnlyFilesMayBeWritten) {
  const test::TemporaryFolder folder;
  const std::string fifo = folder.file("fifo");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_FALSE(mayWrite(fifo));
  EXPECT_FALSE(mayWrite("/dev/null"));
}

TEST(PosixFileSystem, LinkLeadsToItsFile) {
  const test::TemporaryFolder folder;
  const std::string file = folder.write("file", "x");
  const std::string to = folder.file("link");
  const std::string nowhere = folder.file("nowhere");
  ASSERT_EQ(symlink("file", to.c_str()), 0);
  ASSERT_EQ(symlink("missing", nowhere.c_str()), 0);
  EXPECT_EQ(fileBehind(to), file);
  EXPECT_EQ(fileBehind(file), file);
  EXPECT_EQ(fileBehind(nowhere), nowhere);
}

}  // namespace
}  // namespace lamcraft::platform
