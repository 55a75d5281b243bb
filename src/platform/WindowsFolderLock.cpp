#include <windows.h>

#include "platform/FolderLock.h"

namespace lamcraft::platform {

/// Windows locks no folders: all runs of a user's session take turns instead.
struct FolderLock::Handle {
  HANDLE mutex = nullptr;
  bool isHeld = false;
};

FolderLock::FolderLock(const std::string& /*folder*/) : handle_(std::make_unique<Handle>()) {
  constexpr DWORD kWait = 1000;
  handle_->mutex = CreateMutexW(nullptr, FALSE, L"Local\\lamcraft-files");
  if (handle_->mutex == nullptr) {
    return;
  }
  const DWORD result = WaitForSingleObject(handle_->mutex, kWait);
  handle_->isHeld = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

FolderLock::~FolderLock() {
  if (handle_->isHeld) {
    ReleaseMutex(handle_->mutex);
  }
  if (handle_->mutex != nullptr) {
    CloseHandle(handle_->mutex);
  }
}

}  // namespace lamcraft::platform
