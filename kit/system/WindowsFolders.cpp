// SPDX-License-Identifier: BSD-3-Clause
#include <windows.h>

#include <array>
#include <system_error>

#include "system/Exchange.h"
#include "system/Folders.h"

namespace lamkit {

bool exchangeFolders(const std::filesystem::path& /*one*/, const std::filesystem::path& /*other*/) {
  return false;
}

std::filesystem::path ownExecutable() {
  std::array<wchar_t, 32768> name{};  // the longest path there is
  const DWORD size = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
  if (size == 0 || size == name.size()) {
    throw std::filesystem::filesystem_error(
        "own executable",
        std::error_code(static_cast<int>(GetLastError()), std::system_category()));
  }
  return std::wstring(name.data(), size);
}

}  // namespace lamkit
