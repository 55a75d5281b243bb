// SPDX-License-Identifier: BSD-3-Clause
#include <filesystem>
#include <system_error>

#include "platform/Installation.h"

namespace lamcraft::platform {

std::optional<std::string> installedCatalogueFolder() {
  namespace fs = std::filesystem;
  std::error_code failure;
  const fs::path executable = fs::read_symlink("/proc/self/exe", failure);
  if (failure) {
    return std::nullopt;
  }
  const fs::path folder = executable.parent_path() / ".." / "share" / "locale";
  if (!fs::is_directory(folder, failure)) {
    return std::nullopt;
  }
  return folder.string();
}

}  // namespace lamcraft::platform
