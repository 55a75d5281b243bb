// SPDX-License-Identifier: BSD-3-Clause
#include <cstdlib>

#include "support/Environment.h"

namespace lamcraft::test {

void setVariable(const std::string& name, const std::string& value) {
  _putenv_s(name.c_str(), value.c_str());
}

void removeVariable(const std::string& name) {
  _putenv_s(name.c_str(), "");
}

}  // namespace lamcraft::test
