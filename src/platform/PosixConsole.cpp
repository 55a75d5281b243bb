// SPDX-License-Identifier: BSD-3-Clause
#include "platform/Console.h"

namespace lamcraft::platform {

bool supportsConsoleFonts() {
  return true;
}

void setConsoleFont(const wchar_t* /*faceName*/) {}

void setConsoleCodePage(unsigned /*codePage*/) {}

}  // namespace lamcraft::platform
