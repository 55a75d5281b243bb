// SPDX-License-Identifier: BSD-3-Clause
#include <fcntl.h>

#include <cstdio>

#include "system/Exchange.h"
#include "system/Folders.h"

namespace lamkit {

bool exchangeFolders(const std::filesystem::path& one, const std::filesystem::path& other) {
  return renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0;
}

std::filesystem::path ownExecutable() {
  return std::filesystem::read_symlink("/proc/self/exe");
}

}  // namespace lamkit
