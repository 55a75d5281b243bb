// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_SYSTEM_CHILDPROCESS_H
#define LAMKIT_SYSTEM_CHILDPROCESS_H

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace lamkit {

/// A program to run, and for how long.
struct ChildProcess {
  std::string program;                 ///< path of the executable
  std::vector<std::string> arguments;  ///< those after the program's path
  std::string console;                 ///< file that takes both of its output streams
  /// When it is ended; never when there is none.
  std::optional<std::chrono::duration<double>> timeout;
};

/// How a child ended.
struct ChildEnd {
  /// What it returned. For a child that a signal ended, 128 and the number of the signal, as a
  /// shell says it. Empty when the time was up.
  std::optional<int> exitCode;
  std::chrono::duration<double> time{0.0};
};

/// Runs a child to its end, or ends it when its time is up. It reads nothing, and speaks English
/// whatever the user's language is. When this process ends, however it ends, the child ends as
/// well. Throws std::system_error when it cannot be started.
[[nodiscard]] ChildEnd runChild(const ChildProcess& child);

}  // namespace lamkit

#endif
