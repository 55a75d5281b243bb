// SPDX-License-Identifier: BSD-3-Clause
#include "platform/Process.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/FileSystem.h"
#include "platform/WindowsText.h"

namespace lamcraft::platform {

namespace {

std::string withoutQuote(const std::string& argument) {
  const std::size_t quote = argument.find('"');
  return quote == std::string::npos ? argument : argument.substr(0, quote) + pathSeparator();
}

}  // namespace

std::vector<std::string> commandLine(int /*count*/, const char* const* /*arguments*/) {
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 0; i < count; ++i) {
    arguments.push_back(withoutQuote(narrowed(wide[i])));
  }
  LocalFree(wide);
  return arguments;
}

void turnWriteFaultsIntoErrors() {}

}  // namespace lamcraft::platform
