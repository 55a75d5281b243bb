// SPDX-License-Identifier: BSD-3-Clause
#include "reliability/ForkedRun.h"

#include <grp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>

#include "driver/Run.h"

namespace lamcraft::test {

namespace {

constexpr int kNotPrepared = 120;  // no exit code of the program

/// Does not return.
[[noreturn]] void beTheProgram(const std::vector<std::string>& arguments,
                               const std::string& folder,
                               const std::function<void()>& prepare,
                               const int out) {
  std::vector<std::string> words{"lamcraft"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  if (dup2(out, STDOUT_FILENO) < 0 || chdir(folder.c_str()) != 0) {
    _exit(kNotPrepared);
  }
  close(out);
  setenv("LC_ALL", "C", 1);
  try {
    prepare();
  } catch (const std::exception&) {
    _exit(kNotPrepared);
  }
  const auto code = driver::run(words);
  std::cout.flush();
  std::wcout.flush();
  _exit(static_cast<int>(code));
}

std::string contentOf(const int file) {
  std::string content;
  std::array<char, 4096> piece{};
  lseek(file, 0, SEEK_SET);
  for (ssize_t size = 0; (size = read(file, piece.data(), piece.size())) > 0;) {
    content.append(piece.data(), static_cast<std::size_t>(size));
  }
  return content;
}

/// A file without a name.
int temporaryFile() {
  std::FILE* const file = std::tmpfile();
  if (file == nullptr) {
    throw std::runtime_error("no temporary file");
  }
  const int number = dup(fileno(file));
  std::fclose(file);
  return number;
}

}  // namespace

ForkedRun::ForkedRun(const std::vector<std::string>& arguments,
                     const std::string& folder,
                     const std::function<void()>& prepare)
    : out_(temporaryFile()) {
  std::fflush(nullptr);  // or the child would print what the test has not printed yet
  id_ = fork();
  if (id_ < 0) {
    throw std::runtime_error("cannot fork");
  }
  if (id_ == 0) {
    beTheProgram(arguments, folder, prepare, out_);
  }
}

ForkedRun::~ForkedRun() {
  if (id_ > 0) {
    kill(id_, SIGKILL);
    waitpid(id_, nullptr, 0);
  }
  close(out_);
}

Ending ForkedRun::wait() {
  int status = 0;
  while (waitpid(id_, &status, 0) == id_ && WIFSTOPPED(status)) {
  }
  id_ = 0;
  Ending ending;
  if (WIFEXITED(status)) {
    ending.exitCode = WEXITSTATUS(status);
  }
  if (WIFSIGNALED(status)) {
    ending.signal = WTERMSIG(status);
  }
  ending.out = contentOf(out_);
  if (ending.exitCode == kNotPrepared) {
    throw std::runtime_error("a run could not be prepared");
  }
  return ending;
}

Ending runForked(const std::vector<std::string>& arguments,
                 const std::string& folder,
                 const std::function<void()>& prepare) {
  return ForkedRun(arguments, folder, prepare).wait();
}

bool isAdministrator() {
  return geteuid() == 0;
}

void becomeNobody() {
  if (!isAdministrator()) {
    return;
  }
  if (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0) {
    throw std::runtime_error("cannot become another user");
  }
}

void limit(const int resource, const unsigned long value) {
  const rlimit both{value, value};
  if (setrlimit(static_cast<__rlimit_resource>(resource), &both) != 0) {
    throw std::runtime_error("cannot set a limit");
  }
}

}  // namespace lamcraft::test
