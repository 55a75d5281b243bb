// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_RELIABILITY_FORKEDRUN_H
#define LAMCRAFT_TESTS_RELIABILITY_FORKEDRUN_H

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace lamcraft::test {

/// How a run of the whole program ended.
struct Ending {
  int exitCode = -1;  ///< -1 when a signal ended it
  int signal = 0;     ///< that signal
  std::string out;    ///< bytes of the standard output
};

/// The program, from its first call on, in a child of the test. The child has the test's libraries
/// loaded and starts in a millisecond, and `prepare` runs in it first: it can take away rights,
/// room and memory as no command line can.
class ForkedRun {
 public:
  /// `arguments` are those after the program's path; `folder` is the working folder.
  ForkedRun(
      const std::vector<std::string>& arguments,
      const std::string& folder,
      const std::function<void()>& prepare = [] {});
  ForkedRun(const ForkedRun&) = delete;
  ForkedRun& operator=(const ForkedRun&) = delete;
  ~ForkedRun();

  [[nodiscard]] pid_t id() const { return id_; }

  /// Waits for the end.
  Ending wait();

 private:
  pid_t id_ = 0;
  int out_ = -1;
};

/// Runs the program to its end.
Ending runForked(
    const std::vector<std::string>& arguments,
    const std::string& folder,
    const std::function<void()>& prepare = [] {});

/// The user who owns nothing.
inline constexpr uid_t kNobody = 65534;

/// Whether permissions do not bind the test, which may give files away and become another user.
bool isAdministrator();

/// For `prepare`: gives up the rights of the administrator, whom permissions do not bind.
void becomeNobody();

/// For `prepare`: sets a limit of the system (RLIMIT_FSIZE, ...).
void limit(int resource, unsigned long value);

}  // namespace lamcraft::test

#endif
