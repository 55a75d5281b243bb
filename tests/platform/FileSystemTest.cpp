#include "platform/FileSystem.h"

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamcraft::platform {
namespace {

using test::TemporaryFolder;

TEST(FileSystem, MissingFileHasNoAttributes) {
  const TemporaryFolder folder;
  EXPECT_EQ(fileAttributes(folder.file("nothing")), std::nullopt);
  EXPECT_EQ(fileAttributes(""), std::nullopt);
  EXPECT_FALSE(isFolder(folder.file("nothing")));
  EXPECT_FALSE(isNormalFile(folder.file("nothing")));
}

TEST(FileSystem, FolderHasTheFolderBitAlone) {
  const TemporaryFolder folder;
  EXPECT_EQ(fileAttributes(folder.path().string()), kFolderAttribute);
  EXPECT_TRUE(isFolder(folder.path().string()));
  EXPECT_FALSE(isNormalFile(folder.path().string()));
}

TEST(FileSystem, FolderIsFoundWithASeparatorAtItsEnd) {
  const TemporaryFolder folder;
  EXPECT_TRUE(isFolder(folder.path().string() + pathSeparator()));
}

TEST(FileSystem, FileIsNoFolder) {
  const TemporaryFolder folder;
  EXPECT_FALSE(isFolder(folder.write("mdata.xml", "x")));
}

TEST(FileSystem, CreatesAFolder) {
  const TemporaryFolder folder;
  EXPECT_TRUE(createFolder(folder.file("material")));
  EXPECT_TRUE(isFolder(folder.file("material")));
}

TEST(FileSystem, CreatesFoldersWithBlanksAndUmlauts) {
  const TemporaryFolder folder;
  const std::string name = "Faser \xc3\xbc";
  EXPECT_TRUE(createFolder(folder.path().string() + pathSeparator() + name));
  EXPECT_TRUE(isFolder(folder.path().string() + pathSeparator() + name));
}

TEST(FileSystem, DoesNotCreateParents) {
  const TemporaryFolder folder;
  EXPECT_FALSE(createFolder(folder.file("missing") + pathSeparator() + "material"));
  EXPECT_FALSE(isFolder(folder.file("missing")));
}

TEST(FileSystem, DoesNotCreateWhatIsThere) {
  const TemporaryFolder folder;
  EXPECT_FALSE(createFolder(folder.path().string()));
}

}  // namespace
}  // namespace lamcraft::platform
