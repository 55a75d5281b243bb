// SPDX-License-Identifier: BSD-3-Clause
// The program on a real console, which under Wine needs a display.

#include <algorithm>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CatalogueFile.h"
#include "windows/WindowsProgram.h"

namespace lamcraft::test {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kProbe = LAMCRAFT_WINDOWS_BUILD "/bin/console_probe.exe";

struct ConsoleRun {
  std::string report;  ///< exit code of the program, and the console's code page thereafter
  std::string calls;   ///< calls of the console, as Wine traces them
  std::string file;    ///< standard output of the program, where it went into a file
};

enum class Run { withoutDeck, onScreen, redirected };

/// Without a deck, or with one that is not there.
ConsoleRun runInConsole(const std::string& locale, const Run kind = Run::withoutDeck) {
  const WindowsProgram windows;
  copyCatalogues(windows.folder().file("locale"));
  const std::string output = windows.folder().file("output.txt");
  const std::string report = windows.folder().file("report.txt");
  ProcessRun process;
  process.program = "/usr/bin/xvfb-run";
  process.arguments = {"-a",
                       LAMCRAFT_WINE,
                       "--console",
                       kProbe,
                       windowsPath(report),
                       windowsPath(windows.program())};
  if (kind != Run::withoutDeck) {
    process.arguments.push_back(kind == Run::onScreen ? "-" : windowsPath(output));
  }
  process.folder = windows.folder().path().string();
  // A Wine of its own: the server of the other tests runs without a display, and so would a
  // console.
  process.environment = {{"LC_ALL", locale},
                         {"WINEDEBUG", "trace+console"},
                         {"WINEPREFIX", LAMCRAFT_ROOT "/build/wine-console"}};
  const ProcessResult result = run(process);
  return {withPlainLineEnds(contentOf(report)),
          result.err,
          kind == Run::redirected ? withPlainLineEnds(contentOf(output)) : std::string()};
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

TEST(Console, GetsTextsAndNamesInItsOwnCodePage) {
  const std::string expected =
      "exit code 2\ncode page 850\n"
      "ERREUR FATALE : Erreur inconnue \u00e0 la lecture du fichier d'entr\u00e9e\n"
      "Could not open file t\u00e9.qdk\n";
  const std::string shown = runInConsole("fr_FR.UTF-8", Run::onScreen).report;
  // Wine's console may take each byte for the character of that number, as in ISO 8859-1 (819).
  EXPECT_TRUE(shown == expected || inCodePage(shown, 819) == inCodePage(expected, 850)) << shown;
}

TEST(Console, RedirectedRunWritesTextsAndNamesInTheCodePageOfWindows) {
  const ConsoleRun french = runInConsole("fr_FR.UTF-8", Run::redirected);
  EXPECT_EQ(french.report, "exit code 2\ncode page 850\n");
  const std::size_t lineEnd = french.file.find('\n');
  EXPECT_EQ(french.file.substr(lineEnd + 1), "Could not open file t\xe9.qdk\n");
  const auto catalogue = catalogueEntries(LAMCRAFT_ROOT "/locale/fr/cvqt.po");
  const auto isHeadline = [](const CatalogueEntry& entry) {
    return entry.text == "FATAL ERROR: An unknown error occurred in Parse";
  };
  const auto headline = std::find_if(catalogue.begin(), catalogue.end(), isHeadline);
  ASSERT_NE(headline, catalogue.end());
  EXPECT_EQ(french.file.substr(0, lineEnd), inCodePage(headline->translation, 1252));
}

}  // namespace
}  // namespace lamcraft::test
