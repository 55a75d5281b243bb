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
  if (file < 0) return false;
  const bool isOne = isatty(file) == 1;
  close(file);
  return isOne;
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
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return S_ISDIR(status.st_mode) ? kFolderAttribute : kNormalAttribute;
}

bool createFolder(const std::string& path) {
  constexpr mode_t kDefaultAccess = 0777;  // less what the user's mask takes away
  return mkdir(path.c_str(), kDefaultAccess) == 0;
}

bool hasAnEnd(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return true;
  if (S_ISFIFO(status.st_mode)) return withoutLinks(path) == nullptr;
  if (S_ISCHR(status.st_mode)) return isNullDevice(status) || isTerminal(path);
  return !S_ISBLK(status.st_mode);
}

bool mayWrite(const std::string& path) {
  return !isFolder(path) && (access(path.c_str(), W_OK) == 0 || errno == ENOENT);
}

std::string fileBehind(const std::string& path) {
  struct stat own {};
  struct stat behind {};
  const bool isLink = lstat(path.c_str(), &own) == 0 && S_ISLNK(own.st_mode);
  const bool isFile = stat(path.c_str(), &behind) == 0 && S_ISREG(behind.st_mode);
  const auto real = isLink && isFile ? withoutLinks(path) : nullptr;
  return real == nullptr ? path : std::string(real.get());
}

Creation createFile(const std::string& path) {
  constexpr mode_t kDefaultAccess = 0666;  // less what the user's mask takes away
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kDefaultAccess);
  if (file < 0) return errno == EEXIST ? Creation::taken : Creation::failed;
  close(file);
  return Creation::done;
}

bool replaceFile(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}

void removeFile(const std::string& path) {
  unlink(path.c_str());  // which leaves folders alone
}

}  // namespace lamcraft::platform
