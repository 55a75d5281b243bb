// SPDX-License-Identifier: BSD-3-Clause
#include "platform/FileSystem.h"

namespace lamcraft::platform {

namespace {

bool hasAttribute(const std::string& path, std::uint32_t attribute) {
  return (fileAttributes(path).value_or(0) & attribute) != 0;
}

}  // namespace

bool isFolder(const std::string& path) {
  return hasAttribute(path, kFolderAttribute);
}

bool isNormalFile(const std::string& path) {
  return hasAttribute(path, kNormalAttribute);
}

}  // namespace lamcraft::platform
