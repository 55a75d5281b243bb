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

TEST(PosixFileSystem, FifosAndEndlessDevicesHaveNoEnd) {
  const test::TemporaryFolder folder;
  const std::string fifo = folder.file("deck.qdk");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_FALSE(hasAnEnd(fifo));
  EXPECT_FALSE(hasAnEnd("/dev/zero"));
  EXPECT_TRUE(hasAnEnd("/dev/null"));
}

TEST(PosixFileSystem, PipeThatTheProcessWasHandedHasAnEnd) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  EXPECT_TRUE(hasAnEnd("/dev/fd/" + std::to_string(pipe[0])));
  for (const int file : pipe) close(file);
}

}  // namespace
}  // namespace lamcraft::platform
