// SPDX-License-Identifier: BSD-3-Clause
#include "card/CardCommand.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "kit/support/Subcommand.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;
using lamcraft::test::contentOf;
using lamcraft::test::TemporaryFolder;

test::SubcommandResult card(const std::vector<std::string>& arguments) {
  return test::runSubcommand(addCard, "card", arguments);
}

/// A folder with the data of an example, and a part of its text replaced.
class DataFolder {
 public:
  explicit DataFolder(const std::string& example) {
    const fs::path source =
        fs::path(LAMCRAFT_TEST_DATA) / "kit" / "card" / "data" / example / "mdata.xml";
    write(contentOf(source));
  }
  void replaceAll(const std::string& text, const std::string& other) const {
    std::string content = contentOf(folder_.path() / "mdata.xml");
    std::size_t place = content.find(text);
    ASSERT_NE(place, std::string::npos);
    for (; place != std::string::npos; place = content.find(text, place + other.size())) {
      content.replace(place, text.size(), other);
    }
    write(content);
  }
  void write(const std::string& content) const { folder_.write("mdata.xml", content); }
  [[nodiscard]] std::string path() const { return folder_.path().string(); }
  [[nodiscard]] std::string file(const std::string& name) const { return folder_.file(name); }

 private:
  TemporaryFolder folder_;
};

TEST(CardCommand, WritesTheCardAndNothingElseToTheStandardOutput) {
  const DataFolder folder("im7-8552");
  const test::SubcommandResult result = card({folder.path(), "--for", "calculix"});
  EXPECT_LT(result.code, ExitCode::bad) << result.err;
  EXPECT_EQ(result.out.rfind("** im7-8552\n", 0), 0U);
  std::istringstream lines(result.out);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_NE(std::string("*-0123456789").find(line.front()), std::string::npos) << line;
  }
}

TEST(CardCommand, WritesAFileInItsPlace) {
  const DataFolder folder("im7-8552");
  const test::SubcommandResult shown = card({folder.path(), "--for", "aster"});
  const test::SubcommandResult result =
      card({folder.path(), "--for", "aster", "-o", folder.file("card.comm")});
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(contentOf(folder.file("card.comm")), shown.out);
}

TEST(CardCommand, FailsWhereItCannotWrite) {
  const DataFolder folder("im7-8552");
  const std::string file = folder.file("nowhere/card.inp");
  const test::SubcommandResult result = card({folder.path(), "--for", "calculix", "-o", file});
  EXPECT_EQ(result.code, ExitCode::failed);
  EXPECT_NE(result.err.find(file), std::string::npos);
}

TEST(CardCommand, RefusesABadMaterial) {
  const DataFolder folder("im7-8552");
  folder.replaceAll("9.08000000015612E+09", "                NAN");
  const test::SubcommandResult refused = card({folder.path(), "--for", "calculix"});
  EXPECT_EQ(refused.code, ExitCode::bad);
  EXPECT_EQ(refused.out, "");
  EXPECT_NE(refused.err.find("not-a-number"), std::string::npos);
  EXPECT_NE(refused.err.find("--force"), std::string::npos);
  const test::SubcommandResult forced = card({folder.path(), "--for", "calculix", "--force"});
  EXPECT_EQ(forced.code, ExitCode::bad);
  EXPECT_NE(forced.out.find("** Verdict: bad\n** error: "), std::string::npos);
}

TEST(CardCommand, FailsOnFoldersThatItCannotRead) {
  const TemporaryFolder empty;
  EXPECT_EQ(card({empty.file("nowhere"), "--for", "calculix"}).code, ExitCode::failed);
  const DataFolder folder("im7-8552");
  folder.write("<ZRN material=\"x\"");
  const test::SubcommandResult result = card({folder.path(), "--for", "calculix"});
  EXPECT_EQ(result.code, ExitCode::failed);
  EXPECT_NE(result.err.find(folder.path()), std::string::npos);
  EXPECT_EQ(result.out, "");
}

TEST(CardCommand, HasNoCardOfAFolderWithoutData) {
  const TemporaryFolder empty;
  const test::SubcommandResult result = card({empty.path().string(), "--for", "calculix"});
  EXPECT_EQ(result.code, ExitCode::bad);
  EXPECT_NE(result.err.find("no-data"), std::string::npos);
  EXPECT_EQ(result.out, "");
}

TEST(CardCommand, AsksForAMoistureThatIsThere) {
  const DataFolder folder("im7-8552");
  EXPECT_EQ(card({folder.path(), "--for", "calculix", "--moisture", "wet"}).code, ExitCode::failed);
  EXPECT_NE(card({folder.path(), "--for", "calculix", "--moisture", "ambient"}).out, "");
}

TEST(CardCommand, CallsTwoEnvironmentsOfOneTemperatureAnError) {
  const DataFolder folder("ge1-glass-epoxy");
  folder.replaceAll("temperature=\" 2.33150000000000E+02\"",
                    "temperature=\" 2.96150000000000E+02\"");
  const test::SubcommandResult result = card({folder.path(), "--for", "calculix"});
  EXPECT_EQ(result.code, ExitCode::bad);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err.find("[ambiguous]"), std::string::npos) << result.err;
}

TEST(CardCommand, RefusesWrongUsage) {
  const DataFolder folder("im7-8552");
  EXPECT_EQ(card({folder.path()}).code, ExitCode::failed);
  EXPECT_EQ(card({folder.path(), "--for", "other"}).code, ExitCode::failed);
  EXPECT_EQ(card({folder.path(), "--for", "calculix", "--units", "inch"}).code, ExitCode::failed);
  EXPECT_EQ(card({folder.path(), "--for", "calculix", "--moisture", "damp"}).code,
            ExitCode::failed);
}

}  // namespace
}  // namespace lamkit
