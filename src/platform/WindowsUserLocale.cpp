// SPDX-License-Identifier: BSD-3-Clause
#include <windows.h>

#include <clocale>
#include <stdexcept>

#include "platform/UserLocale.h"
#include "platform/WindowsConversion.h"

namespace lamcraft::platform {

namespace {

/// The standard library's locale for the user where the library can make it. mingw's knows "C"
/// alone and throws for any other name that LC_ALL or LANG asks for.
std::locale libraryLocale() {
  try {
    return std::locale("");
  } catch (const std::runtime_error&) {
    return std::locale::classic();
  }
}

}  // namespace

std::locale userLocale() {
  userLocaleName();                                 // throws for a user whose locale is not there
  return {libraryLocale(), new ConsoleConversion};  // owned by the locale
}

std::locale withConsoleBytes(const std::locale& base) {
  return {base, new NarrowConsoleConversion};
}

std::string userLocaleName() {
  const char* name = std::setlocale(LC_ALL, "");
  if (name == nullptr) {
    throw std::runtime_error("bad locale name");
  }
  std::string copy = name;
  std::setlocale(LC_ALL, "C");  // numbers of decks and data files are read and written in "C"
  return copy;
}

std::string shownLocaleName() {
  return {};
}

std::string localeBackend() {
  return "winapi";
}

}  // namespace lamcraft::platform
