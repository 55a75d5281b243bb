// SPDX-License-Identifier: BSD-3-Clause
// Where the program looks for its catalogues. German users tell by the language of the messages.

#include <string>

#include <gtest/gtest.h>

#include "windows/WindowsProgram.h"

namespace lamcraft::test {
namespace {

const std::string kKey = R"(HKLM\SOFTWARE\Tarvelle\Corvan QTR\2023)";

class Registry : public testing::Test {
 protected:
  void TearDown() override {
    runUnderWine({"reg", {"delete", kKey, "/f", "/reg:64"}});
    runUnderWine({"reg", {"delete", kKey, "/f", "/reg:32"}});
  }

  static void setValue(const std::string& value,
                       const std::string& name = "InstallLocation",
                       const std::string& view = "/reg:64") {
    const ProcessResult result =
        runUnderWine({"reg", {"add", kKey, "/v", name, "/t", "REG_SZ", "/d", value, "/f", view}});
    ASSERT_EQ(result.exitCode, 0) << result.out;
  }

  [[nodiscard]] bool speaksGerman() const {
    const std::string out = windows_.run({}, {{"LC_ALL", "de_DE.UTF-8"}}).out;
    const bool isGerman = out.find("\nAufruf:\n") != std::string::npos;
    EXPECT_NE(isGerman, out.find("\nusage:\n") != std::string::npos) << out;
    return isGerman;
  }

  /// An installation folder for the registry, without a backslash at its end.
  [[nodiscard]] std::string installation() const {
    return windowsPath(windows_.folder().file("App"));
  }
  void putCataloguesInto(const std::string& folder) const {
    copyCatalogues(windows_.folder().file(folder));
  }

  WindowsProgram windows_;
};

TEST_F(Registry, WithoutARecordTheFolderLocaleIsSearched) {
  EXPECT_FALSE(speaksGerman());
  putCataloguesInto("locale");
  EXPECT_TRUE(speaksGerman());
}

TEST_F(Registry, InstallationFolderHoldsTheCataloguesInBinLocale) {
  putCataloguesInto("App/bin/locale");
  EXPECT_FALSE(speaksGerman());
  setValue(installation() + "\\");
  EXPECT_TRUE(speaksGerman());
}

TEST_F(Registry, RecordComesBeforeTheFolderLocale) {
  putCataloguesInto("locale");
  setValue(installation() + "\\");
  EXPECT_FALSE(speaksGerman());
}

TEST_F(Registry, InstallationFolderWithoutABackslashIsTakenAsItIs) {
  putCataloguesInto("App/bin/locale");
  setValue(installation());
  EXPECT_FALSE(speaksGerman());
  putCataloguesInto("Appbin/locale");
  EXPECT_TRUE(speaksGerman());
}

TEST_F(Registry, RecordWithoutTheValueCountsAsNone) {
  putCataloguesInto("locale");
  setValue(installation() + "\\", "Version");
  EXPECT_TRUE(speaksGerman());
}

TEST_F(Registry, ValueThatIsTooLongCountsAsNone) {
  putCataloguesInto("locale");
  setValue(std::string(1100, 'x'));
  EXPECT_TRUE(speaksGerman());
}

TEST_F(Registry, ViewOf32BitProgramsIsNotLookedAt) {
  putCataloguesInto("locale");
  setValue(installation() + "\\", "InstallLocation", "/reg:32");
  EXPECT_TRUE(speaksGerman());
}

}  // namespace
}  // namespace lamcraft::test
