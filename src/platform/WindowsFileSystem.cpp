// SPDX-License-Identifier: BSD-3-Clause
#include <windows.h>

#include "platform/FileSystem.h"
#include "platform/WindowsText.h"

namespace lamcraft::platform {

namespace {

Answer answerOf(const DWORD error) {
  switch (error) {
    case ERROR_FILE_EXISTS:
      return Answer::exists;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
      return Answer::denied;
    default:
      return Answer::failed;
  }
}

/// Brings what was written to the file from the system's memory to the disk.
bool synchronise(const std::wstring& path) {
  const HANDLE file = CreateFileW(path.c_str(),
                                  GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr,
                                  OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL,
                                  nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  const bool isDone = FlushFileBuffers(file) != 0;
  CloseHandle(file);
  return isDone;
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

bool isEndless(const std::string& /*path*/) {
  return false;
}

bool mayWrite(const std::string& path) {
  constexpr std::uint32_t kReadOnlyAttribute = FILE_ATTRIBUTE_READONLY;
  return (fileAttributes(path).value_or(0) & (kFolderAttribute | kReadOnlyAttribute)) == 0;
}

std::string fileBehind(const std::string& path) {
  return path;
}

Answer createFile(const std::string& path) {
  const HANDLE file = CreateFileW(
      widened(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return answerOf(GetLastError());
  }
  CloseHandle(file);
  return Answer::done;
}

Answer replaceFile(const std::string& from, const std::string& to) {
  constexpr int kAttempts = 20;
  constexpr DWORD kPause = 50;  // ms; programs that look into every new file let go of it soon
  const std::wstring source = widened(from);
  const std::wstring target = widened(to);
  Answer answer = synchronise(source) ? Answer::denied : Answer::failed;
  for (int i = 0; i < kAttempts && answer == Answer::denied; ++i) {
    if (i > 0) {
      Sleep(kPause);
    }
    const bool isDone = MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
    answer = isDone ? Answer::done : answerOf(GetLastError());
  }
  return answer;
}

void removeFile(const std::string& path) {
  DeleteFileW(widened(path).c_str());
}

}  // namespace lamcraft::platform
