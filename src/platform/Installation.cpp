// SPDX-License-Identifier: BSD-3-Clause
#include "platform/Installation.h"

namespace lamcraft::platform {

std::string catalogueFolderBelow(const std::wstring& installationFolder) {
  std::string narrow;
  for (const wchar_t character : installationFolder + L"bin\\locale") {
    narrow += static_cast<char>(static_cast<unsigned char>(character & 0xff));
  }
  return narrow;
}

}  // namespace lamcraft::platform
