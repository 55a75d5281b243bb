#ifndef LAMCRAFT_PLATFORM_FOLDERLOCK_H
#define LAMCRAFT_PLATFORM_FOLDERLOCK_H

#include <memory>
#include <string>

namespace lamcraft::platform {

/// Keeps other runs of the program from changing files in a folder while it lives, for changes that
/// take no time. It waits a second at most for another holder, then goes without: a lock that
/// something else holds for long must not stop a run. Some network disks know no such locks.
class FolderLock {
 public:
  explicit FolderLock(const std::string& folder);
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  ~FolderLock();

 private:
  struct Handle;
  std::unique_ptr<Handle> handle_;
};

}  // namespace lamcraft::platform

#endif
