// SPDX-License-Identifier: BSD-3-Clause
#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "platform/UserLocale.h"

namespace lamcraft::platform {

std::locale userLocale() {
  try {
    return std::locale("");
  } catch (const std::runtime_error&) {
    throw std::runtime_error("bad locale name");  // the library's own text names its internals
  }
}

std::locale withConsoleBytes(const std::locale& base) {
  return base;
}

std::string userLocaleName() {
  return userLocale().name();
}

std::string shownLocaleName() {
  const char* const value = std::getenv("LC_ALL");
  const std::string_view name = value == nullptr ? std::string_view() : value;
  const bool namesLanguage = name != "C" && name != "POSIX" && name.substr(0, 2) != "C.";
  return namesLanguage ? std::string(name) : std::string();
}

std::string localeBackend() {
  return "std";
}

}  // namespace lamcraft::platform
