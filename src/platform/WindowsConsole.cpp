// SPDX-License-Identifier: BSD-3-Clause
#include <windows.h>

#include <cwchar>

#include "platform/Console.h"

namespace lamcraft::platform {

bool supportsConsoleFonts() {
  OSVERSIONINFOEXW version{};
  version.dwOSVersionInfoSize = sizeof(version);
  version.dwMajorVersion = 6;
  version.dwMinorVersion = 0;
  version.wServicePackMajor = 0;
  DWORDLONG conditions = 0;
  conditions = VerSetConditionMask(conditions, VER_MAJORVERSION, VER_GREATER_EQUAL);
  conditions = VerSetConditionMask(conditions, VER_MINORVERSION, VER_GREATER_EQUAL);
  conditions = VerSetConditionMask(conditions, VER_SERVICEPACKMAJOR, VER_GREATER_EQUAL);
  return VerifyVersionInfoW(
             &version, VER_MAJORVERSION | VER_MINORVERSION | VER_SERVICEPACKMAJOR, conditions) != 0;
}

void setConsoleFont(const wchar_t* faceName) {
  CONSOLE_FONT_INFOEX font{};
  static_assert(sizeof(font) == 84, "the size by which the console knows the structure");
  font.cbSize = sizeof(font);
  font.FontWeight = 400;
  std::wcsncpy(font.FaceName, faceName, LF_FACESIZE - 1);
  SetCurrentConsoleFontEx(GetStdHandle(STD_OUTPUT_HANDLE), FALSE, &font);
}

void setConsoleCodePage(unsigned codePage) {
  SetConsoleOutputCP(codePage);
}

}  // namespace lamcraft::platform
