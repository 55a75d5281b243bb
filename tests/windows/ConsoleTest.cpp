// The program on a real console, which under Wine needs a display.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "windows/WindowsProgram.h"

namespace lamcraft::test {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kProbe = LAMCRAFT_WINDOWS_BUILD "/bin/console_probe.exe";

struct ConsoleRun {
  std::string report;  ///< exit code of the program, and the console's code page thereafter
  std::string calls;   ///< calls of the console, as Wine traces them
};

ConsoleRun runInConsole(const std::string& locale) {
  const WindowsProgram windows;
  const std::string report = windows.folder().file("report.txt");
  ProcessRun process;
  process.program = "/usr/bin/xvfb-run";
  process.arguments = {"-a",
                       LAMCRAFT_WINE,
                       "--console",
                       kProbe,
                       windowsPath(report),
                       windowsPath(windows.program())};
  // A Wine of its own: the server of the other tests runs without a display, and so would a
  // console.
  process.environment = {{"LC_ALL", locale},
                         {"WINEDEBUG", "trace+console"},
                         {"WINEPREFIX", LAMCRAFT_ROOT "/build/wine-console"}};
  const ProcessResult result = run(process);
  return {withPlainLineEnds(contentOf(report)), result.err};
}

TEST(Console, GermanUsersGetAFontAndACodePageThatShowUmlauts) {
  const ConsoleRun german = runInConsole("de_DE.UTF-8");
  EXPECT_EQ(german.report, "exit code 0\ncode page 1252\n");
  // What font comes of it depends on those installed.
  EXPECT_THAT(german.calls, HasSubstr("SetCurrentConsoleFontEx"));
  EXPECT_THAT(german.calls, HasSubstr("lfFaceName=L\"Lucida Console\""));
}

TEST(Console, ConsoleOfOtherUsersStaysAsItIs) {
  const ConsoleRun english = runInConsole("en_US.UTF-8");
  EXPECT_EQ(english.report, "exit code 0\ncode page 437\n");
  EXPECT_THAT(english.calls, Not(HasSubstr("SetCurrentConsoleFontEx")));
  const ConsoleRun japanese = runInConsole("ja_JP.UTF-8");
  EXPECT_EQ(japanese.report, "exit code 0\ncode page 932\n");
  EXPECT_THAT(japanese.calls, Not(HasSubstr("SetCurrentConsoleFontEx")));
}

}  // namespace
}  // namespace lamcraft::test
