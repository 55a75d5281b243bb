// SPDX-License-Identifier: BSD-3-Clause
// What a power failure leaves: the system may bring the change of a name to the disk before the
// content of the file, unless the content is there already.

#include <dlfcn.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "reliability/ForkedRun.h"
#include "reliability/MaterialFolder.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;

/// What the run in the child calls is written into this file, when it has a name.
std::string& callLog() {
  static std::string path;
  return path;
}

void note(const std::string& call, const fs::path& file) {
  if (!callLog().empty()) {
    std::ofstream(callLog(), std::ios::app) << call << " " << file.filename().string() << "\n";
  }
}

template <typename Function>
Function* original(const char* const name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace
}  // namespace lamcraft::test

// In the places of the system's functions, for the program that this executable holds.
extern "C" int fsync(const int file) {
  namespace test = lamcraft::test;
  test::note("fsync", std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file)));
  return test::original<int(int)>("fsync")(file);
}
extern "C" int rename(const char* const from, const char* const to) noexcept {
  namespace test = lamcraft::test;
  test::note("rename", from);
  return test::original<int(const char*, const char*)>("rename")(from, to);
}

namespace lamcraft::test {
namespace {

TEST(PowerFailure, FindsFilesWholeOnTheDiskBeforeTheyTakeTheirNames) {
  const TemporaryFolder folder;
  folder.write("deck.qdk", completeDeck().text());
  const std::string log = folder.file("calls.txt");
  const Ending ending =
      runForked({"deck.qdk", "out"}, folder.path().string(), [&] { callLog() = log; });
  EXPECT_EQ(ending.exitCode, 0);
  EXPECT_EQ(contentOf(log),
            "fsync input.qdk.part\nrename input.qdk.part\n"
            "fsync mdata.xml.part\nrename mdata.xml.part\n"
            "fsync fdata.xml.part\nrename fdata.xml.part\n");
}

}  // namespace
}  // namespace lamcraft::test
