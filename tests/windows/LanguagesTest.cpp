// SPDX-License-Identifier: BSD-3-Clause
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CatalogueFile.h"
#include "support/UniDeck.h"
#include "windows/WindowsProgram.h"

namespace lamcraft::test {
namespace {

using testing::HasSubstr;

/// A language of the catalogues and the code page in which Windows shows it.
struct Language {
  const char* folder;
  const char* locale;
  int codePage;
};

std::ostream& operator<<(std::ostream& stream, const Language& language) {
  return stream << language.folder;
}

constexpr Language kLanguages[] = {{"de", "de_DE.UTF-8", 1252},
                                   {"es", "es_ES.UTF-8", 1252},
                                   {"fr", "fr_FR.UTF-8", 1252},
                                   {"it", "it_IT.UTF-8", 1252},
                                   {"ja", "ja_JP.UTF-8", 932},
                                   {"zh_CN", "zh_CN.UTF-8", 936}};

class Languages : public testing::TestWithParam<Language> {};

TEST_P(Languages, EveryMessageArrivesInTheCodePageOfTheUser) {
  const Language& language = GetParam();
  const TemporaryFolder folder;
  copyCatalogues(folder.file("locale"));
  const ProcessResult result = runUnderWine({LAMCRAFT_WINDOWS_BUILD "/bin/localization_probe.exe",
                                             {"messages", LAMCRAFT_ROOT "/locale/cvqt.pot"},
                                             {{"LC_ALL", language.locale}},
                                             folder.path().string()});
  std::string expected;
  const std::string source = LAMCRAFT_ROOT "/locale/" + std::string(language.folder) + "/cvqt.po";
  for (const CatalogueEntry& entry : catalogueEntries(source)) {
    expected += inCodePage(entry.translation, language.codePage) + "\n";
  }
  EXPECT_EQ(withPlainLineEnds(result.out), expected);
  EXPECT_EQ(result.exitCode, 0);
}

INSTANTIATE_TEST_SUITE_P(Catalogues,
                         Languages,
                         testing::ValuesIn(kLanguages),
                         [](const auto& instance) { return std::string(instance.param.folder); });

class UserLocale : public testing::Test {
 protected:
  UserLocale() { copyCatalogues(windows_.folder().file("locale")); }

  /// The first property line of a run, whose numbers and separators are the user's.
  [[nodiscard]] std::string propertyLine(const std::string& locale) const {
    windows_.folder().write("deck.qdk", UniDeck().text());
    const std::string out = windows_.run({"deck.qdk", "out"}, {{"LC_ALL", locale}}).out;
    const std::size_t start = out.find("E11 = ");
    return start == std::string::npos ? out : out.substr(start, out.find('\n', start) - start);
  }

  WindowsProgram windows_;
};

TEST_F(UserLocale, GermanListsAreSeparatedBySemicolons) {
  EXPECT_THAT(propertyLine("de_DE.UTF-8"), HasSubstr("E11 =  1,260e+11; E22 =  1,100e+10; "));
}

TEST_F(UserLocale, OtherListsAreSeparatedByCommas) {
  EXPECT_THAT(propertyLine("en_US.UTF-8"), HasSubstr("E11 =  1.260e+11, E22 =  1.100e+10, "));
  EXPECT_THAT(propertyLine("C.UTF-8"), HasSubstr("E11 =  1.260e+11, E22 =  1.100e+10, "));
  EXPECT_THAT(propertyLine("fr_FR.UTF-8"), HasSubstr("E11 =  1,260e+11, E22 =  1,100e+10, "));
}

TEST_F(UserLocale, AustriaIsGermanButForTheSeparator) {
  const std::string line = propertyLine("de_AT.UTF-8");
  EXPECT_THAT(line, HasSubstr("E11 =  1,260e+11, E22 =  1,100e+10, "));
}

TEST_F(UserLocale, DataFilesAreTheSameInEveryLanguage) {
  const std::string lineInEnglish = propertyLine("en_US.UTF-8");
  const std::string english = contentOf(windows_.folder().path() / "out" / "mdata.xml");
  EXPECT_NE(propertyLine("de_DE.UTF-8"), lineInEnglish);
  EXPECT_EQ(contentOf(windows_.folder().path() / "out" / "mdata.xml"), english);
}

const std::string kEnglish =
    "FATAL ERROR: An unknown error occurred in Parse\nCould not open file missing.qdk\n";
const std::string kGerman =
    "SCHWERWIEGENDER FEHLER: Unbekannter Fehler beim Einlesen der Eingabedatei\n"
    "Could not open file missing.qdk\n";

TEST_F(UserLocale, WithoutVariablesTheLanguageIsThatOfWindows) {
  EXPECT_EQ(windows_.runFromPrompt({"LC_ALL=", "LANG="}, "de_DE.UTF-8").out, kGerman);
  EXPECT_EQ(windows_.runFromPrompt({"LC_ALL=", "LANG="}, "en_US.UTF-8").out, kEnglish);
}

TEST_F(UserLocale, VariablesComeBeforeTheLanguageOfWindows) {
  EXPECT_EQ(windows_.runFromPrompt({"LC_ALL=de_DE.UTF-8"}, "en_US.UTF-8").out, kGerman);
  EXPECT_EQ(windows_.runFromPrompt({"LC_ALL=en_US.UTF-8"}, "de_DE.UTF-8").out, kEnglish);
}

TEST_F(UserLocale, VariablesThatNameNoLocaleOfWindowsAreNoFailure) {
  EXPECT_EQ(windows_.runFromPrompt({"LC_ALL=C", "LANG="}, "de_DE.UTF-8").out, kEnglish);
  EXPECT_EQ(windows_.runFromPrompt({"LC_ALL=xx_XX.UTF-8"}, "en_US.UTF-8").out, kEnglish);
}

}  // namespace
}  // namespace lamcraft::test
