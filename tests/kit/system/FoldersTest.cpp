// SPDX-License-Identifier: BSD-3-Clause
#include "system/Folders.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;
using lamcraft::test::contentOf;
using lamcraft::test::TemporaryFolder;

struct Places {
  TemporaryFolder root;
  fs::path part = root.path() / ".a.part";
  fs::path folder = root.path() / "a";
  fs::path aside = root.path() / ".a.old";

  Places() {
    fs::create_directory(part);
    root.write(".a.part/new", "new");
  }
  void replace() const { replaceFolder(part, folder, aside); }
  [[nodiscard]] std::size_t count() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(root.path()), fs::directory_iterator()));
  }
};

TEST(Folders, TakeTheirNameWhereThereIsNone) {
  const Places places;
  places.replace();
  EXPECT_EQ(contentOf(places.folder / "new"), "new");
  EXPECT_EQ(places.count(), 1U);
}

TEST(Folders, ReplaceOthersAsAWhole) {
  const Places places;
  fs::create_directory(places.folder);
  places.root.write("a/old", "old");
  fs::create_directory(places.aside);  // of a run that was killed
  places.replace();
  EXPECT_TRUE(fs::exists(places.folder / "new"));
  EXPECT_FALSE(fs::exists(places.folder / "old"));
  EXPECT_FALSE(fs::exists(places.part));
}

TEST(Folders, ReplaceAFileOfTheirName) {
  const Places places;
  places.root.write("a", "a file");
  places.replace();
  EXPECT_EQ(contentOf(places.folder / "new"), "new");
  EXPECT_EQ(places.count(), 1U);
}

TEST(Folders, KnowTheRunningProgram) {
  EXPECT_EQ(ownExecutable().stem(), "kit_system_test");
}

}  // namespace
}  // namespace lamkit
