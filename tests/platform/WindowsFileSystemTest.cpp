#include <windows.h>

#include <gtest/gtest.h>

#include "platform/FileSystem.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::platform {
namespace {

TEST(WindowsFileSystem, NewFileHasTheArchiveBitAlone) {
  const test::TemporaryFolder folder;
  const std::string file = folder.write("mdata.xml", "x");
  EXPECT_EQ(fileAttributes(file), FILE_ATTRIBUTE_ARCHIVE);
  EXPECT_FALSE(isNormalFile(file));
}

TEST(WindowsFileSystem, ReadOnlyFileIsNotNormalEither) {
  const test::TemporaryFolder folder;
  const std::string file = folder.write("mdata.xml", "x");
  ASSERT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_TRUE(fileAttributes(file).value_or(0) & FILE_ATTRIBUTE_READONLY);
  EXPECT_FALSE(isNormalFile(file));
  SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_NORMAL);  // or it could not be removed
}

TEST(WindowsFileSystem, OneBitDecidesWhatIsNormal) {
  EXPECT_EQ(kNormalAttribute, std::uint32_t{FILE_ATTRIBUTE_NORMAL});
  EXPECT_EQ(kFolderAttribute, std::uint32_t{FILE_ATTRIBUTE_DIRECTORY});
}

TEST(WindowsFileSystem, FoldersAreSeparatedByBackslashes) {
  EXPECT_EQ(pathSeparator(), "\\");
}

}  // namespace
}  // namespace lamcraft::platform
