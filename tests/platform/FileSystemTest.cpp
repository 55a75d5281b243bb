// SPDX-License-Identifier: BSD-3-Clause
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

TEST(FileSystem, MayWriteFilesAndWhereNothingIs) {
  const TemporaryFolder folder;
  EXPECT_TRUE(mayWrite(folder.file("nothing")));
  EXPECT_TRUE(mayWrite(folder.write("file", "x")));
  EXPECT_FALSE(mayWrite(folder.path().string()));
}

TEST(FileSystem, CreatesAFileWhereNothingIs) {
  const TemporaryFolder folder;
  EXPECT_EQ(createFile(folder.file("file")), Answer::done);
  EXPECT_EQ(createFile(folder.file("file")), Answer::exists);
  EXPECT_EQ(createFile(folder.file("missing") + pathSeparator() + "file"), Answer::failed);
}

TEST(FileSystem, PutsAFileInThePlaceOfAnother) {
  const TemporaryFolder folder;
  const std::string from = folder.write("from", "new");
  const std::string to = folder.write("to", "what was there before, and was longer");
  EXPECT_EQ(replaceFile(from, to), Answer::done);
  EXPECT_EQ(test::contentOf(to), "new");
  EXPECT_EQ(fileAttributes(from), std::nullopt);
  EXPECT_EQ(replaceFile(from, to), Answer::failed) << "there is none any more";
  EXPECT_EQ(test::contentOf(to), "new");
}

TEST(FileSystem, RemovesFilesAndLeavesFolders) {
  const TemporaryFolder folder;
  removeFile(folder.write("file", "x"));
  EXPECT_EQ(fileAttributes(folder.file("file")), std::nullopt);
  removeFile(folder.path().string());
  EXPECT_TRUE(isFolder(folder.path().string()));
}

TEST(FileSystem, FilesFoldersAndNothingHaveAnEnd) {
  const TemporaryFolder folder;
  EXPECT_FALSE(isEndless(folder.write("deck.qdk", "*KW1\n")));
  EXPECT_FALSE(isEndless(folder.path().string()));
  EXPECT_FALSE(isEndless(folder.file("nothing")));
}

}  // namespace
}  // namespace lamcraft::platform
