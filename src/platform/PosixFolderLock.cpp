#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/FolderLock.h"

namespace lamcraft::platform {

namespace {

constexpr int kTries = 1000;
constexpr std::chrono::milliseconds kPause{1};

}  // namespace

struct FolderLock::Handle {
  int file = -1;
};

FolderLock::FolderLock(const std::string& folder) : handle_(std::make_unique<Handle>()) {
  handle_->file = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  for (int i = 0; i < kTries && flock(handle_->file, LOCK_EX | LOCK_NB) != 0; ++i) {
    if (errno != EWOULDBLOCK) {
      break;
    }
    std::this_thread::sleep_for(kPause);
  }
}

FolderLock::~FolderLock() {
  if (handle_->file >= 0) {
    close(handle_->file);
  }
}

}  // namespace lamcraft::platform
