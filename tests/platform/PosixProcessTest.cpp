// SPDX-License-Identifier: BSD-3-Clause
#include "platform/Process.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamcraft::platform {
namespace {

/// What `work` answers in a process of its own; -1 when a signal ends that.
template <typename Work>
int inAnotherProcess(Work work) {
  const pid_t id = fork();
  if (id == 0) {
    _exit(work());
  }
  int status = 0;
  waitpid(id, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Process, FilesDoNotGetTheNumberOfAClosedStandardStream) {
  const test::TemporaryFolder folder;
  const std::string path = folder.write("mdata.xml", "");
  for (const int closed : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    EXPECT_EQ(inAnotherProcess([&] {
                close(closed);
                return open(path.c_str(), O_WRONLY);
              }),
              closed)
        << "as it is without care";
    EXPECT_GT(inAnotherProcess([&] {
                close(closed);
                turnWriteFaultsIntoErrors();
                return open(path.c_str(), O_WRONLY);
              }),
              STDERR_FILENO);
  }
}

TEST(Process, ReaderThatGoesAwayMakesTheWriteFail) {
  EXPECT_EQ(inAnotherProcess([] {
              turnWriteFaultsIntoErrors();
              std::array<int, 2> ends{};
              if (pipe(ends.data()) != 0) {
                return 2;
              }
              close(ends[0]);
              return write(ends[1], "x", 1) < 0 ? 0 : 1;
            }),
            0);
}

TEST(Process, FileThatIsTooLargeMakesTheWriteFail) {
  const test::TemporaryFolder folder;
  const std::string path = folder.write("mdata.xml", "");
  EXPECT_EQ(inAnotherProcess([&] {
              turnWriteFaultsIntoErrors();
              const rlimit nothing{0, 0};
              setrlimit(RLIMIT_FSIZE, &nothing);
              const int file = open(path.c_str(), O_WRONLY);
              return write(file, "x", 1) < 0 ? 0 : 1;
            }),
            0);
}

}  // namespace
}  // namespace lamcraft::platform
