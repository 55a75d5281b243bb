// SPDX-License-Identifier: BSD-3-Clause
#include <string>

#include <gtest/gtest.h>

#include "datafile/UniXML.h"
#include "datafile/XmlExpectation.h"
#include "model/support/TestComposite.h"

#ifndef _WIN32
#include <sys/resource.h>
#include <csignal>
#endif

namespace lamcraft {
namespace {

std::unique_ptr<TestComposite> smallUni() {
  auto uni = testUni();
  uni->addEnvironment("DRY", 300.0);
  return uni;
}

TEST(Saving, IntoAFolderThatIsNotThereIsSilent) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  UniXML writer(testing::TempDir() + "no such folder/mdata.xml");
  EXPECT_FALSE(writer.writeDocument(*smallUni(), false));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Saving, ReplacesALongerFileWhole) {
  const std::string path = temporaryPath();
  const std::string expected = written<UniXML>(*smallUni());
  {
    std::ofstream old(path);
    old << std::string(2 * expected.size(), 'x');
  }
  EXPECT_TRUE(UniXML(path).writeDocument(*smallUni(), false));
  EXPECT_EQ(contentOf(path), expected);
  std::remove(path.c_str());
}

#ifndef _WIN32

/// Lets no file grow beyond a size, as a full disk does, as long as it lives.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(const rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*handler_)(int);
  rlimit before_{};
};

TEST(Saving, FailsOnADiskThatIsFullBeforeTheLastByte) {
  const std::string whole = written<UniXML>(*smallUni());
  const std::string path = temporaryPath();
  for (std::size_t room = 0; room <= whole.size(); ++room) {
    bool isSaved = false;
    {
      const FileSizeLimit full(room);
      isSaved = UniXML(path).writeDocument(*smallUni(), false);
    }
    EXPECT_EQ(isSaved, room == whole.size()) << room;
    EXPECT_EQ(contentOf(path), whole.substr(0, room));
    std::remove(path.c_str());
  }
}

#endif

}  // namespace
}  // namespace lamcraft
