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

bool hasAnEnd(const std::string& /*path*/) {
  return true;
}

bool mayWrite(const std::string& path) {
  constexpr std::uint32_t kReadOnlyAttribute = FILE_ATTRIBUTE_READONLY;
  return (fileAttributes(path).value_or(0) & (kFolderAttribute | kReadOnlyAttribute)) == 0;
}

std::string fileBehind(const std::string& path) {
  return path;
}

Creation createFile(const std::string& path) {
  const HANDLE file = CreateFileW(
      widened(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return GetLastError() == ERROR_FILE_EXISTS ? Creation::taken : Creation::failed;
  }
  CloseHandle(file);
  return Creation::done;
}

bool replaceFile(const std::string& from, const std::string& to) {
  return MoveFileExW(widened(from).c_str(), widened(to).c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

bool overwriteFile(const std::string& from, const std::string& to) {
  return CopyFileW(widened(from).c_str(), widened(to).c_str(), FALSE) != 0;
}

void copyAccess(const std::string& /*from*/, const std::string& /*to*/) {}

void removeFile(const std::string& path) {
  if (DeleteFileW(widened(path).c_str()) != 0) return;
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = CreateFileW(widened(path).c_str(),
                                  GENERIC_WRITE,
                                  kShared,
                                  nullptr,
                                  TRUNCATE_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL,
                                  nullptr);
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
}

}  // namespace lamcraft::platform
