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

}  // namespace lamcraft::platform
