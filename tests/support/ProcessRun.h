// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_SUPPORT_PROCESSRUN_H
#define LAMCRAFT_TESTS_SUPPORT_PROCESSRUN_H

#include <map>
#include <string>
#include <vector>

namespace lamcraft::test {

/// How a program is started. It inherits the environment of the test without any variable that
/// chooses a locale (LANG, LANGUAGE, LC_...), so that it runs in "C" unless `environment` says
/// otherwise.
struct ProcessRun {
  std::string program;                                  ///< path of the executable
  std::vector<std::string> arguments;                   ///< those after the program's path
  std::map<std::string, std::string> environment = {};  ///< set on top of what is inherited
  std::string folder = {};                              ///< working folder; empty: the test's own
};

/// What a program left behind.
struct ProcessResult {
  int exitCode = -1;  ///< -1 when a signal ended it
  std::string out;    ///< bytes of the standard output
  std::string err;    ///< bytes of the standard error stream
};

/// Runs a program to its end with an empty standard input. Throws std::runtime_error when it cannot
/// be started.
ProcessResult run(const ProcessRun& process);

}  // namespace lamcraft::test

#endif
