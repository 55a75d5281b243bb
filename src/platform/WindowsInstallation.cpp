// SPDX-License-Identifier: BSD-3-Clause
#include <windows.h>

#include <array>

#include "platform/Installation.h"

namespace lamcraft::platform {

namespace {

constexpr const wchar_t* kInstallationKey = L"SOFTWARE\\Tarvelle\\Corvan QTR\\2023";

std::optional<std::wstring> installLocation() {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, kInstallationKey, 0, KEY_READ | KEY_WOW64_64KEY, &key) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  std::array<wchar_t, 1024> value{};
  auto size = static_cast<DWORD>(sizeof(value));
  DWORD type = REG_NONE;
  const LSTATUS answer = RegQueryValueExW(
      key, L"InstallLocation", nullptr, &type, reinterpret_cast<BYTE*>(value.data()), &size);
  RegCloseKey(key);
  const bool isText = type == REG_SZ || type == REG_EXPAND_SZ;
  if (answer != ERROR_SUCCESS || !isText) {
    return std::nullopt;
  }
  value.back() = L'\0';  // the registry need not end a text with a null
  return std::wstring(value.data());
}

}  // namespace

std::optional<std::string> installedCatalogueFolder() {
  const auto folder = installLocation();
  if (!folder) {
    return std::nullopt;
  }
  return catalogueFolderBelow(*folder);
}

}  // namespace lamcraft::platform
