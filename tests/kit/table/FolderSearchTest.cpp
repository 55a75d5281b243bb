// SPDX-License-Identifier: BSD-3-Clause
#include "table/FolderSearch.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "command/Context.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

using lamcraft::test::TemporaryFolder;

void makeFolder(const TemporaryFolder& root, const std::string& name, const std::string& file) {
  std::filesystem::create_directories(root.path() / name);
  root.write(name + "/" + file, "");
}

TEST(FolderSearch, TakesAMaterialFolderAsItIs) {
  const TemporaryFolder root;
  makeFolder(root, "a", "mdata.xml");
  makeFolder(root, "b", "run.json");
  EXPECT_EQ(materialFolders(root.file("a")), std::vector<std::string>{root.file("a")});
  EXPECT_EQ(materialFolders(root.file("b")), std::vector<std::string>{root.file("b")});
}

TEST(FolderSearch, LooksIntoOtherFoldersByName) {
  const TemporaryFolder root;
  for (const char* const name : {"c", "a", "b", ".d.part"}) {
    makeFolder(root, name, "mdata.xml");
  }
  makeFolder(root, "e", "notes.txt");
  EXPECT_EQ(materialFolders(root.path().string()),
            (std::vector<std::string>{root.file("a"), root.file("b"), root.file("c")}));
}

TEST(FolderSearch, SaysWhereThereIsNoMaterial) {
  const TemporaryFolder root;
  EXPECT_THROW((void)materialFolders(root.path().string()), Failure);
  EXPECT_THROW((void)materialFolders(root.file("gone")), Failure);
}

}  // namespace
}  // namespace lamkit
