#include <sys/stat.h>

#include "platform/FileSystem.h"

namespace lamcraft::platform {

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

}  // namespace lamcraft::platform
