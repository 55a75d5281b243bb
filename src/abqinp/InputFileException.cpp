// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/InputFileException.h"

namespace abqinp {

InputFileException InputFileException::invalidKeyword(const std::string& name) {
  return InputFileException("Invalid keyword: " + name);
}

InputFileException InputFileException::misplacedKeyword(const std::string& name) {
  return InputFileException("Misplaced keyword: " + name);
}

InputFileException InputFileException::missingParent(const std::string& name,
                                                     const std::string& parent) {
  return InputFileException("Keyword, " + name + ", missing parent keyword: " + parent);
}

}  // namespace abqinp
