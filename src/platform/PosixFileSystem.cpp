// SPDX-License-Identifier: BSD-3-Clause
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "platform/FileSystem.h"

namespace lamcraft::platform {

namespace {

struct Free {
  void operator()(char* text) const { std::free(text); }  // NOLINT: what realpath() allocated
};

/// The path without links; null where nothing of a name of its own is. A pipe that a process is
/// handed has none, though a path such as "/dev/stdin" leads to it.
std::unique_ptr<char, Free> withoutLinks(const std::string& path) {
  return std::unique_ptr<char, Free>(realpath(path.c_str(), nullptr));
}

bool isTerminal(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) {
    return false;
  }
  const bool isOne = isatty(file) == 1 && ptsname(file) == nullptr;  // no master of a new one
  close(file);
  return isOne;
}

/// Brings what was written to the file from the system's memory to the disk.
bool synchronise(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) {
    return false;
  }
  const bool isDone = fsync(file) == 0 || errno == EINVAL;  // a disk that knows no such thing
  close(file);
  return isDone;
}

Answer answerOf(const int error) {
  switch (error) {
    case EEXIST:
      return Answer::exists;
    case EACCES:
    case EPERM:
      return Answer::denied;
    default:
      return Answer::failed;
  }
}

bool isNullDevice(const struct stat& status) {
  struct stat null {};
  return stat("/dev/null", &null) == 0 && status.st_rdev == null.st_rdev;
}

}  // namespace

std::string pathSeparator() {
  return "/";
}

std::optional<std::uint32_t> fileAttributes(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    return std::nullopt;
  }
  return S_ISDIR(status.st_mode) ? kFolderAttribute : kNormalAttribute;
}

bool createFolder(const std::string& path) {
  constexpr mode_t kDefaultAccess = 0777;  // less what the user's mask takes away
  return mkdir(path.c_str(), kDefaultAccess) == 0;
}

bool isEndless(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    return false;
  }
  if (S_ISFIFO(status.st_mode)) {
    return withoutLinks(path) != nullptr;
  }
  if (S_ISCHR(status.st_mode)) {
    return !isNullDevice(status) && !isTerminal(path);
  }
  return S_ISBLK(status.st_mode);
}

bool mayWrite(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    return errno == ENOENT;
  }
  return S_ISREG(status.st_mode) && access(path.c_str(), W_OK) == 0;
}

std::string fileBehind(const std::string& path) {
  struct stat own {};
  const bool isLink = lstat(path.c_str(), &own) == 0 && S_ISLNK(own.st_mode);
  const auto real = isLink ? withoutLinks(path) : nullptr;
  return real == nullptr ? path : std::string(real.get());
}

Answer createFile(const std::string& path) {
  constexpr mode_t kDefaultAccess = 0666;  // less what the user's mask takes away
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kDefaultAccess);
  if (file < 0) {
    return answerOf(errno);
  }
  close(file);
  return Answer::done;
}

Answer replaceFile(const std::string& from, const std::string& to) {
  if (!synchronise(from)) {
    return Answer::failed;
  }
  return std::rename(from.c_str(), to.c_str()) == 0 ? Answer::done : answerOf(errno);
}

void removeFile(const std::string& path) {
  unlink(path.c_str());
}

}  // namespace lamcraft::platform
