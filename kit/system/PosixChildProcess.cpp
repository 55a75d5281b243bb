// SPDX-License-Identifier: BSD-3-Clause
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <system_error>

#include "system/ChildProcess.h"

namespace lamkit {

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

std::system_error systemError(const std::string& what) {
  return {errno, std::generic_category(), what};
}

/// Keeps the signal of an ended child waiting for as long as it lives, so that waiting for it with
/// a timeout misses none.
class ChildSignal {
 public:
  ChildSignal() {
    sigemptyset(&set_);
    sigaddset(&set_, SIGCHLD);
    sigprocmask(SIG_BLOCK, &set_, &maskBefore_);
    struct sigaction action {};
    action.sa_handler = SIG_DFL;  // a signal that is ignored does not wait
    sigaction(SIGCHLD, &action, &actionBefore_);
  }
  ChildSignal(const ChildSignal&) = delete;
  ChildSignal& operator=(const ChildSignal&) = delete;
  ~ChildSignal() {
    sigaction(SIGCHLD, &actionBefore_, nullptr);
    sigprocmask(SIG_SETMASK, &maskBefore_, nullptr);
  }

  /// Waits for the signal, at most for this time.
  void wait(const Seconds time) const {
    const double whole = std::floor(time.count());
    const timespec limit{static_cast<time_t>(whole),
                         static_cast<long>((time.count() - whole) * 1e9)};
    sigtimedwait(&set_, nullptr, &limit);
  }

  [[nodiscard]] const sigset_t& maskBefore() const { return maskBefore_; }

 private:
  sigset_t set_{};
  sigset_t maskBefore_{};
  struct sigaction actionBefore_ {};
};

/// A pipe that closes by itself when the new program starts, and else says why it did not.
class StartReport {
 public:
  StartReport() {
    if (pipe2(ends_, O_CLOEXEC) != 0) {
      throw systemError("pipe");
    }
  }
  StartReport(const StartReport&) = delete;
  StartReport& operator=(const StartReport&) = delete;
  ~StartReport() {
    close(ends_[0]);
    closeWriting();
  }

  void closeWriting() {
    if (ends_[1] >= 0) {
      close(ends_[1]);
      ends_[1] = -1;
    }
  }
  void send(const int error) const {
    [[maybe_unused]] const ssize_t written = write(ends_[1], &error, sizeof error);
  }
  /// The error of the start; 0 when there was none.
  [[nodiscard]] int receive() const {
    int error = 0;
    const ssize_t size = read(ends_[0], &error, sizeof error);
    return size == static_cast<ssize_t>(sizeof error) ? error : 0;
  }

 private:
  int ends_[2] = {-1, -1};
};

bool redirect(const int stream, const char* const path, const int flags) {
  constexpr mode_t kMode = 0666;
  const int file = open(path, flags, kMode);
  return file >= 0 && dup2(file, stream) >= 0 && (file <= STDERR_FILENO || close(file) == 0);
}

/// What runs between fork() and the new program; calls nothing that allocates.
void become(const ChildProcess& child,
            char* const* const words,
            const pid_t parent,
            const sigset_t& mask) {
  sigprocmask(SIG_SETMASK, &mask, nullptr);
  // The parent may be gone before the child asks to go with it.
  const bool follows = prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && getppid() == parent;
  if (follows && redirect(STDIN_FILENO, "/dev/null", O_RDONLY) &&
      redirect(STDOUT_FILENO, child.console.c_str(), O_WRONLY | O_CREAT | O_TRUNC) &&
      dup2(STDOUT_FILENO, STDERR_FILENO) >= 0) {
    setenv("LC_ALL", "C", 1);  // allocates, which the one thread of this process may
    execv(child.program.c_str(), words);
  }
}

pid_t start(const ChildProcess& child, const sigset_t& mask) {
  std::vector<std::string> texts = child.arguments;
  texts.insert(texts.begin(), child.program);
  std::vector<char*> words;
  words.reserve(texts.size() + 1);
  for (std::string& text : texts) {
    words.push_back(text.data());
  }
  words.push_back(nullptr);

  StartReport report;
  const pid_t parent = getpid();
  const pid_t id = fork();
  if (id < 0) {
    throw systemError("fork");
  }
  if (id == 0) {
    become(child, words.data(), parent, mask);
    report.send(errno);
    _exit(EXIT_FAILURE);
  }
  report.closeWriting();
  if (const int error = report.receive()) {
    waitpid(id, nullptr, 0);
    errno = error;
    throw systemError(child.program);
  }
  return id;
}

int exitCodeOf(const int status) {
  constexpr int kSignalled = 128;
  return WIFSIGNALED(status) ? kSignalled + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace

ChildEnd runChild(const ChildProcess& child) {
  constexpr Seconds kLong{3600.0};  // how long one wait takes at most
  const ChildSignal signal;
  const Clock::time_point begin = Clock::now();
  const pid_t id = start(child, signal.maskBefore());
  int status = 0;
  while (waitpid(id, &status, WNOHANG) == 0) {
    const Seconds used = Clock::now() - begin;
    if (child.timeout && used >= *child.timeout) {
      kill(id, SIGKILL);
      waitpid(id, &status, 0);
      return {std::nullopt, Clock::now() - begin};
    }
    signal.wait(child.timeout ? std::min(*child.timeout - used, kLong) : kLong);
  }
  return {exitCodeOf(status), Clock::now() - begin};
}

}  // namespace lamkit
