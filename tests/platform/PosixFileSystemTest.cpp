#include "platform/FileSystem.h"

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

}  // namespace
}  // namespace lamcraft::platform
