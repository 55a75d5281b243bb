#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
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

/// Opens a file that exists for writing; -1 when there is none, or something that is no file.
int openForWriting(const std::string& path) {
  struct stat status {};
  const int file = open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
  if (file >= 0 && (fstat(file, &status) != 0 || !S_ISREG(status.st_mode))) {
    close(file);
    return -1;
  }
  return file;
}

bool empty(const int file) {
  return ftruncate(file, 0) == 0;
}

bool writeAll(const int file, const char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t written = write(file, bytes, size);
    if (written <= 0) {
      return false;
    }
    bytes += written;
    size -= static_cast<std::size_t>(written);
  }
  return true;
}

bool copyBytes(const int from, const int to) {
  std::array<char, 32768> piece{};
  ssize_t size = 0;
  while ((size = read(from, piece.data(), piece.size())) > 0) {
    if (!writeAll(to, piece.data(), static_cast<std::size_t>(size))) {
      return false;
    }
  }
  return size == 0;
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
  constexpr mode_t kBits = 07777;
  struct stat status {};
  if (mkdir(path.c_str(), kDefaultAccess) != 0) {
    return false;
  }
  const bool isNarrow = stat(path.c_str(), &status) == 0 && (status.st_mode & S_IRWXU) != S_IRWXU;
  if (isNarrow) {
    chmod(path.c_str(), (status.st_mode & kBits) | S_IRWXU);
  }
  return true;
}

bool hasAnEnd(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    return true;
  }
  if (S_ISFIFO(status.st_mode)) {
    return withoutLinks(path) == nullptr;
  }
  if (S_ISCHR(status.st_mode)) {
    return isNullDevice(status) || isTerminal(path);
  }
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
  constexpr mode_t kDefaultAccess = 0666;       // less what the user's mask takes away
  constexpr mode_t kOwner = S_IRUSR | S_IWUSR;  // but for this, or nobody could write it
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kDefaultAccess);
  if (file < 0) {
    return errno == EEXIST ? Creation::taken : Creation::failed;
  }
  struct stat status {};
  const bool isNarrow = fstat(file, &status) == 0 && (status.st_mode & kOwner) != kOwner;
  if (isNarrow) {
    fchmod(file, (status.st_mode & kDefaultAccess) | kOwner);
  }
  close(file);
  return Creation::done;
}

bool replaceFile(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}

bool overwriteFile(const std::string& from, const std::string& to) {
  const int source = open(from.c_str(), O_RDONLY | O_CLOEXEC);
  const int file = source < 0 ? -1 : openForWriting(to);
  bool isDone = file >= 0 && empty(file) && copyBytes(source, file);
  if (file >= 0 && !isDone) {  // what was cut short must not look as if it were whole
    empty(file);
  }
  if (file >= 0) {
    isDone = close(file) == 0 && isDone;
  }
  if (source >= 0) {
    close(source);
  }
  return isDone;
}

void copyAccess(const std::string& from, const std::string& to) {
  constexpr mode_t kAccess = 0777;
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  struct stat status {};
  if (stat(from.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return;
  }
  // Without its group, the rights of the group would be those of another one.
  if (chown(to.c_str(), status.st_uid, status.st_gid) == 0 ||
      chown(to.c_str(), kSameOwner, status.st_gid) == 0) {
    chmod(to.c_str(), status.st_mode & kAccess);
  }
}

bool removeFile(const std::string& path) {
  if (isFolder(path)) {
    return true;
  }
  if (unlink(path.c_str()) == 0 || errno == ENOENT) {
    return true;
  }
  const int file = openForWriting(path);
  const bool isEmpty = file >= 0 && empty(file);
  if (file >= 0) {
    close(file);
  }
  return isEmpty;
}

}  // namespace lamcraft::platform
