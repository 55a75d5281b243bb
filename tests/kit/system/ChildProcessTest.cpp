// SPDX-License-Identifier: BSD-3-Clause
#include "system/ChildProcess.h"

#include <system_error>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

using lamcraft::test::contentOf;
using lamcraft::test::TemporaryFolder;

/// A command of the system's shell that ends with an exit code.
ChildProcess ending(const TemporaryFolder& folder, const std::string& code) {
#ifdef _WIN32
  return {"C:\\windows\\system32\\cmd.exe", {"/c", "exit", code}, folder.file("console.txt"), {}};
#else
  return {"/bin/sh", {"-c", "exit " + code}, folder.file("console.txt"), {}};
#endif
}

TEST(ChildProcess, ReturnsItsExitCode) {
  const TemporaryFolder folder;
  EXPECT_EQ(runChild(ending(folder, "0")).exitCode, 0);
  EXPECT_EQ(runChild(ending(folder, "7")).exitCode, 7);
}

#ifndef _WIN32  // these speak the language of a POSIX shell

ChildProcess shell(const TemporaryFolder& folder, const std::string& command) {
  return {"/bin/sh", {"-c", command}, folder.file("console.txt"), {}};
}

TEST(ChildProcess, WritesBothItsStreamsIntoOneFile) {
  const TemporaryFolder folder;
  (void)runChild(shell(folder, "echo out; echo err >&2; echo again"));
  EXPECT_EQ(contentOf(folder.file("console.txt")), "out\nerr\nagain\n");
}

TEST(ChildProcess, SpeaksEnglishAndReadsNothing) {
  const TemporaryFolder folder;
  (void)runChild(shell(folder, "echo $LC_ALL; cat"));
  EXPECT_EQ(contentOf(folder.file("console.txt")), "C\n");
}

TEST(ChildProcess, ThatASignalEndsHasTheExitCodeOfAShell) {
  const TemporaryFolder folder;
  EXPECT_EQ(runChild(shell(folder, "kill -SEGV $$")).exitCode, 128 + 11);
}

TEST(ChildProcess, IsEndedWhenItsTimeIsUp) {
  const TemporaryFolder folder;
  ChildProcess child = shell(folder, "exec sleep 100");
  child.timeout = std::chrono::duration<double>(0.05);
  const ChildEnd end = runChild(child);
  EXPECT_FALSE(end.exitCode.has_value());
  EXPECT_GE(end.time.count(), 0.05);
  EXPECT_LT(end.time.count(), 50.0);  // far from the hundred that it would take
}

TEST(ChildProcess, IsNotEndedBeforeItsTime) {
  const TemporaryFolder folder;
  ChildProcess child = shell(folder, "sleep 0.05; exit 3");
  child.timeout = std::chrono::duration<double>(60.0);
  EXPECT_EQ(runChild(child).exitCode, 3);
}

TEST(ChildProcess, ThatCannotBeStartedIsSaidToBe) {
  const TemporaryFolder folder;
  ChildProcess child = shell(folder, "");
  child.program = folder.file("gone");
  EXPECT_THROW((void)runChild(child), std::system_error);
  child = shell(folder, "");
  child.console = folder.file("no/such/folder");
  EXPECT_THROW((void)runChild(child), std::system_error);
}

#endif

}  // namespace
}  // namespace lamkit
