// SPDX-License-Identifier: BSD-3-Clause
#include "platform/WindowsText.h"

#include <windows.h>

namespace lamcraft::platform {

std::wstring widened(const std::string& text) {
  const int length = static_cast<int>(text.size());
  const int wideLength = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(wideLength), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), wideLength);
  return wide;
}

std::string narrowed(const std::wstring& text) {
  const DWORD exactly = GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;  // no "a" for an "\u0101"
  const int length = static_cast<int>(text.size());
  const auto convert = [&](char* const bytes, const int size) {
    return WideCharToMultiByte(CP_ACP, exactly, text.data(), length, bytes, size, nullptr, nullptr);
  };
  std::string narrow(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  convert(narrow.data(), static_cast<int>(narrow.size()));
  return narrow;
}

}  // namespace lamcraft::platform
