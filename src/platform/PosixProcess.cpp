// SPDX-License-Identifier: BSD-3-Clause
#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "platform/Process.h"

namespace lamcraft::platform {

std::vector<std::string> commandLine(const int count, const char* const* const arguments) {
  return {arguments, arguments + count};
}

void turnWriteFaultsIntoErrors() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  // A new file gets the lowest number that is free.
  int file = open("/dev/null", O_RDWR);
  while (file >= 0 && file <= STDERR_FILENO) {
    file = open("/dev/null", O_RDWR);
  }
  if (file >= 0) {
    close(file);
  }
}

}  // namespace lamcraft::platform
