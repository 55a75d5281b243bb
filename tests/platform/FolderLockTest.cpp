#include "platform/FolderLock.h"

#include <atomic>
#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamcraft::platform {
namespace {

TEST(FolderLock, IsHeldByOneAtATime) {
  const test::TemporaryFolder folder;
  std::atomic<bool> isHeld{true};
  std::thread other;
  {
    const FolderLock first(folder.path().string());
    other = std::thread([&] {
      const FolderLock second(folder.path().string());
      EXPECT_FALSE(isHeld);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    isHeld = false;
  }
  other.join();
}

TEST(FolderLock, GoesWithoutForAFolderThatIsNotThere) {
  const test::TemporaryFolder folder;
  EXPECT_NO_THROW(FolderLock(folder.file("missing")));
}

}  // namespace
}  // namespace lamcraft::platform
