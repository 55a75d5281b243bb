// SPDX-License-Identifier: BSD-3-Clause
#include "folder/MaterialFolder.h"

#include <algorithm>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

using lamcraft::test::contentOf;
using lamcraft::test::TemporaryFolder;

const std::string kGolden = LAMCRAFT_TEST_DATA "/golden/examples/";

std::string goldenFile(const std::string& example, const std::string& name) {
  return contentOf(kGolden + example + "/engine/" + name);
}

/// The fault of a folder, and its message.
std::pair<FolderFault, std::string> faultOf(const std::string& path) {
  try {
    (void)readFolder(path);
  } catch (const FolderError& error) {
    return {error.fault(), error.what()};
  }
  ADD_FAILURE() << path << " was read";
  return {};
}

TEST(MaterialFolder, HoldsDataFatigueDataAndDeckCopy) {
  const TemporaryFolder folder;
  folder.write("mdata.xml", goldenFile("ge1-glass-epoxy", "mdata.xml"));
  folder.write("fdata.xml", goldenFile("ge1-glass-epoxy", "fdata.xml"));
  const std::string deck = folder.write("input.qdk", "*MATERIAL\n");
  const MaterialFolder read = readFolder(folder.path().string());
  EXPECT_EQ(read.data.name, "ge1-glass-epoxy");
  ASSERT_EQ(read.data.environments.size(), 3U);
  EXPECT_FALSE(read.data.environments[0].hasFatigueFit);
  EXPECT_TRUE(read.withFatigue(0).hasFatigueFit);
  EXPECT_EQ(read.deckCopy, deck);
}

TEST(MaterialFolder, NeedsNeitherFatigueDataNorDeckCopy) {
  const TemporaryFolder folder;
  folder.write("mdata.xml", goldenFile("as4-3501-6", "mdata.xml"));
  const MaterialFolder read = readFolder(folder.path().string());
  EXPECT_FALSE(read.fatigueData.has_value());
  EXPECT_FALSE(read.deckCopy.has_value());
  EXPECT_EQ(&read.withFatigue(0), &read.data.environments.front());
}

TEST(MaterialFolder, ThatIsMissingOrEmptyIsSaidToBe) {
  const TemporaryFolder folder;
  const auto [missing, text] = faultOf(folder.file("gone"));
  EXPECT_EQ(missing, FolderFault::missing);
  EXPECT_EQ(text, folder.file("gone") + ": there is no such folder");
  EXPECT_EQ(faultOf(folder.path().string()).first, FolderFault::noData);
  EXPECT_FALSE(holdsMaterial(folder.path().string()));
}

TEST(MaterialFolder, CutOffAnywhereIsUnreadable) {
  const TemporaryFolder folder;
  const std::string whole = goldenFile("as4-3501-6", "mdata.xml");
  const std::size_t end = whole.rfind('>');  // line ends after it are of no account
  for (std::size_t length = 0; length <= end; length += 7) {
    folder.write("mdata.xml", whole.substr(0, length));
    EXPECT_EQ(faultOf(folder.path().string()).first, FolderFault::unreadable) << length;
  }
  folder.write("mdata.xml", whole.substr(0, end));
  EXPECT_EQ(faultOf(folder.path().string()).first, FolderFault::unreadable);
  folder.write("mdata.xml", whole);
  folder.write("fdata.xml", whole.substr(0, end / 2));
  EXPECT_EQ(faultOf(folder.path().string()).first, FolderFault::unreadable);
}

TEST(MaterialFolder, OfAnotherProgramIsUnreadable) {
  const TemporaryFolder folder;
  std::string nested;
  for (int i = 0; i < 100000; ++i) {
    nested += "<a>";
  }
  for (const std::string& content : {std::string("<html></html>"),
                                     std::string("hello"),
                                     std::string("<ZRN material='a' version='7.0'></ZRN>"),
                                     std::string("<ZRN material='a' version='6.0'></ZRN>"),
                                     std::string("\0\0\0", 3),
                                     std::string(100000, '<'),
                                     nested}) {
    folder.write("mdata.xml", content);
    EXPECT_EQ(faultOf(folder.path().string()).first, FolderFault::unreadable)
        << content.substr(0, 60);
  }
}

TEST(MaterialFolder, WithoutAFiberIsUnreadable) {
  const TemporaryFolder folder;
  std::string content = goldenFile("as4-3501-6", "mdata.xml");
  const std::size_t start = content.rfind("<constituent");
  const std::string end = "</constituent>";
  content.erase(start, content.find(end, start) + end.size() - start);
  folder.write("mdata.xml", content);
  EXPECT_EQ(faultOf(folder.path().string()).first, FolderFault::unreadable);
}

TEST(MaterialFolder, MessagesNameFileLineAndReason) {
  const TemporaryFolder folder;
  std::string content = goldenFile("as4-3501-6", "mdata.xml");
  const std::size_t at = content.find("<E11 value=\"");
  content.replace(at + 12, 4, "oops");
  const std::string path = folder.write("mdata.xml", content);
  const auto [fault, text] = faultOf(folder.path().string());
  const auto line = 1 + std::count(content.begin(), content.begin() + static_cast<long>(at), '\n');
  EXPECT_EQ(text.find(path + ":" + std::to_string(line) + ": \"value\" of <E11> is no number"), 0U)
      << text;
}

}  // namespace
}  // namespace lamkit
