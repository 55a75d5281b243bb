// SPDX-License-Identifier: BSD-3-Clause
#include <windows.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "platform/FileSystem.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::platform {
namespace {

using test::contentOf;

/// Keeps a file open as another program may do, and lets nobody else open, rename or remove it.
class OpenElsewhere {
 public:
  explicit OpenElsewhere(const std::string& path)
      : handle_(CreateFileA(path.c_str(),
                            GENERIC_READ,
                            0,
                            nullptr,
                            OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL,
                            nullptr)) {
    EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
  }
  OpenElsewhere(const OpenElsewhere&) = delete;
  OpenElsewhere& operator=(const OpenElsewhere&) = delete;
  ~OpenElsewhere() { CloseHandle(handle_); }

 private:
  HANDLE handle_;
};

/// The same for a moment, which ends while others wait for the file.
class OpenElsewhereForAMoment {
 public:
  explicit OpenElsewhereForAMoment(const std::string& path)
      : file_(std::make_unique<OpenElsewhere>(path)), thread_([this] {
          std::this_thread::sleep_for(std::chrono::milliseconds(200));
          file_.reset();
        }) {}
  OpenElsewhereForAMoment(const OpenElsewhereForAMoment&) = delete;
  OpenElsewhereForAMoment& operator=(const OpenElsewhereForAMoment&) = delete;
  ~OpenElsewhereForAMoment() { thread_.join(); }

 private:
  std::unique_ptr<OpenElsewhere> file_;
  std::thread thread_;
};

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

TEST(WindowsFileSystem, FileThatIsOpenElsewhereForAMomentIsReplaced) {
  const test::TemporaryFolder folder;
  const std::string from = folder.write("new", "new");
  const std::string to = folder.write("mdata.xml", "old");
  {
    const OpenElsewhereForAMoment other(to);
    EXPECT_EQ(replaceFile(from, to), Answer::done);
  }
  EXPECT_EQ(contentOf(to), "new");
  EXPECT_FALSE(fileAttributes(from));
}

TEST(WindowsFileSystem, FileThatStaysOpenElsewhereIsNotReplaced) {
  const test::TemporaryFolder folder;
  const std::string from = folder.write("new", "new");
  const std::string to = folder.write("mdata.xml", "old");
  {
    const OpenElsewhere other(to);
    EXPECT_EQ(replaceFile(from, to), Answer::denied);
  }
  EXPECT_EQ(contentOf(from), "new");
  EXPECT_EQ(contentOf(to), "old");
}

TEST(WindowsFileSystem, ReadOnlyFileMayNotBeWritten) {
  const test::TemporaryFolder folder;
  const std::string file = folder.write("mdata.xml", "x");
  ASSERT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_FALSE(mayWrite(file));
  SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_TRUE(mayWrite(file));
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
