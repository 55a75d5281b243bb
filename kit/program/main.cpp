// SPDX-License-Identifier: BSD-3-Clause
#include <iostream>

#include "program/Program.h"

int main(const int count, const char* const* const arguments) {
  return static_cast<int>(lamkit::run(count, arguments, std::cout, std::cerr));
}
