#include <windows.h>

#include "platform/FileSystem.h"
#include "platform/WindowsText.h"

namespace lamcraft::platform {

std::string pathSeparator() {
  return "\\";
}

std::optional<std::uint32_t> fileAttributes(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(widened(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  return attributes;
}

bool createFolder(const std::string& path) {
  return CreateDirectoryW(widened(path).c_str(), nullptr) != 0;
}

}  // namespace lamcraft::platform
