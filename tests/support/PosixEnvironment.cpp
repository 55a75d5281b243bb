// SPDX-License-Identifier: BSD-3-Clause
#include <cstdlib>

#include "support/Environment.h"

namespace lamcraft::test {

void setVariable(const std::string& name, const std::string& value) {
  setenv(name.c_str(), value.c_str(), 1);
}

void removeVariable(const std::string& name) {
  unsetenv(name.c_str());
}

}  // namespace lamcraft::test
