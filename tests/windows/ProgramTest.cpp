// SPDX-License-Identifier: BSD-3-Clause
#include <set>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/UniDeck.h"
#include "windows/WindowsProgram.h"

namespace lamcraft::test {
namespace {

using testing::HasSubstr;

/// The libraries that a Windows program or library is linked with.
std::set<std::string> librariesOf(const std::string& file) {
  const ProcessResult result =
      run({"/usr/bin/x86_64-w64-mingw32-objdump", {"-p", LAMCRAFT_WINDOWS_BUILD "/bin/" + file}});
  const std::string label = "DLL Name: ";
  std::set<std::string> names;
  std::istringstream lines(result.out);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t found = line.find(label);
    if (found != std::string::npos) {
      names.insert(line.substr(found + label.size()));
    }
  }
  return names;
}

TEST(Program, NeedsNothingButWindowsAndTheMicromechanicsLibrary) {
  EXPECT_THAT(librariesOf("lamcraft.exe"),
              testing::ElementsAre(
                  "ADVAPI32.dll", "KERNEL32.dll", "SHELL32.dll", "kxdriver.dll", "msvcrt.dll"));
  EXPECT_THAT(librariesOf("kxdriver.dll"), testing::ElementsAre("KERNEL32.dll", "msvcrt.dll"));
}

TEST(Program, PrintsBannerAndUsageWithoutADeck) {
  const WindowsProgram windows;
  const ProcessResult result = windows.run({});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.out,
            "Lamcraft " LAMCRAFT_VERSION "\n\nusage:\n" + windowsPath(windows.program()) +
                " [INPUT FILE] [RESULTSDIR-OPTIONAL]\n");
}

TEST(Program, ReportsADeckThatCannotBeOpened) {
  const ProcessResult result = WindowsProgram().run({"missing.qdk", "results", "more"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.out,
            "FATAL ERROR: An unknown error occurred in Parse\nCould not open file missing.qdk\n");
}

TEST(Program, ExitCodesTellTheKindsOfFailureApart) {
  const WindowsProgram windows;
  UniDeck unknownKeyword;
  unknownKeyword.more = "*BRAID\n1\n";
  windows.folder().write("deck.qdk", unknownKeyword.text());
  EXPECT_EQ(windows.run({"deck.qdk", "out"}).exitCode, 1);
  UniDeck unknownType;
  unknownType.material = "*MATERIAL, TYPE=BRAID, SYSTEM=XYZ, NAME=PLY\n1\n";
  windows.folder().write("deck.qdk", unknownType.text());
  EXPECT_EQ(windows.run({"deck.qdk", "out"}).exitCode, 2);
  UniDeck word;
  word.matrix = "*MATRIX, LAW=ISO\nstiff, 0.34, 45e-6\n";
  windows.folder().write("deck.qdk", word.text());
  EXPECT_EQ(windows.run({"deck.qdk", "out"}).exitCode, 3);
}

TEST(Program, MonitorReportsTheIterationsOfTheLibrary) {
  const WindowsProgram windows;
  windows.folder().write("deck.qdk", UniDeck().text());
  const ProcessResult result =
      windows.run({"deck.qdk", "out"}, {{"KXFAKE_ITERATION", "7"}, {"KXFAKE_SLEEP_MS", "1000"}});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.out, HasSubstr("Iteration: 7,  Error: 0.125\n"));
}

}  // namespace
}  // namespace lamcraft::test
