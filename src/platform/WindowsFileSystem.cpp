#include <windows.h>

#include "platform/FileSystem.h"
#include "platform/WindowsText.h"

namespace lamcraft::platform {

namespace {

/// Repeats for a second what fails because another program has the file open. Those that index or
/// inspect whatever is new let go of it soon.
template <class Attempt>
bool patiently(const Attempt& attempt) {
  constexpr int kAttempts = 20;
  constexpr DWORD kPause = 50;  // ms
  for (int i = 0; i < kAttempts; ++i) {
    if (attempt()) {
      return true;
    }
    const DWORD error = GetLastError();
    if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED) {
      return false;
    }
    Sleep(kPause);
  }
  return attempt();
}

DWORD attributesOf(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes;
}

/// Windows neither removes nor replaces a file that has the read-only attribute.
void allowWriting(const std::wstring& path) {
  const DWORD attributes = attributesOf(path);
  if ((attributes & FILE_ATTRIBUTE_READONLY) == 0) {
    return;
  }
  SetFileAttributesW(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
}

bool remove(const std::wstring& path) {
  if (DeleteFileW(path.c_str()) != 0) {
    return true;
  }
  const DWORD error = GetLastError();
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

bool empty(const std::wstring& path) {
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = CreateFileW(path.c_str(),
                                  GENERIC_WRITE,
                                  kShared,
                                  nullptr,
                                  TRUNCATE_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL,
                                  nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  CloseHandle(file);
  return true;
}

}  // namespace

std::string pathSeparator() {
  return "\\";
}

std::optional<std::uint32_t> fileAttributes(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(widened(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return std::nullopt;
  }
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
  if (isFolder(to)) {
    return false;
  }
  const std::wstring source = widened(from);
  const std::wstring target = widened(to);
  allowWriting(target);
  return patiently(
      [&] { return MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != 0; });
}

bool overwriteFile(const std::string& from, const std::string& to) {
  return CopyFileW(widened(from).c_str(), widened(to).c_str(), FALSE) != 0;
}

void copyAccess(const std::string& from, const std::string& to) {
  const DWORD readOnly = attributesOf(widened(from)) & FILE_ATTRIBUTE_READONLY;
  const std::wstring target = widened(to);
  if (readOnly != 0) {
    SetFileAttributesW(target.c_str(), attributesOf(target) | readOnly);
  }
}

bool removeFile(const std::string& path) {
  if (isFolder(path)) {
    return true;
  }
  const std::wstring name = widened(path);
  allowWriting(name);
  return patiently([&] { return remove(name) || empty(name); });
}

}  // namespace lamcraft::platform
