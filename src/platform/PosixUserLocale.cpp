#include <stdexcept>

#include "platform/UserLocale.h"

namespace lamcraft::platform {

std::locale userLocale() {
  try {
    return std::locale("");
  } catch (const std::runtime_error&) {
    throw std::runtime_error("bad locale name");  // the library's own text names its internals
  }
}

std::string userLocaleName() {
  return userLocale().name();
}

std::string localeBackend() {
  return "std";
}

}  // namespace lamcraft::platform
