// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_SUPPORT_ENVIRONMENT_H
#define LAMCRAFT_TESTS_SUPPORT_ENVIRONMENT_H

#include <string>

namespace lamcraft::test {

/// Sets an environment variable of this process, which std::getenv answers from then on.
void setVariable(const std::string& name, const std::string& value);

/// Removes an environment variable of this process; nothing when there is none.
void removeVariable(const std::string& name);

}  // namespace lamcraft::test

#endif
