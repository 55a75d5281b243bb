// SPDX-License-Identifier: BSD-3-Clause
#include "driver/Run.h"
#include "platform/Process.h"

int main(int argc, char** argv) {
  return static_cast<int>(lamcraft::driver::run(lamcraft::platform::commandLine(argc, argv)));
}
