// SPDX-License-Identifier: BSD-3-Clause
#include "report/ReportCommand.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "kit/support/Subcommand.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;
using lamcraft::test::contentOf;
using lamcraft::test::TemporaryFolder;

test::SubcommandResult report(const std::vector<std::string>& arguments) {
  test::SubcommandResult result = test::runSubcommand(addReport, "report", arguments);
  EXPECT_EQ(result.out, "");
  return result;
}

std::string example(const std::string& name) {
  return (fs::path(LAMCRAFT_TEST_DATA) / "kit" / "card" / "data" / name).string();
}

nlohmann::json dataOf(const std::string& page) {
  const std::string start = "id=\"data\">";
  const std::size_t place = page.find(start) + start.size();
  return nlohmann::json::parse(page.substr(place, page.find("</script>", place) - place));
}

TEST(ReportCommand, WritesOnePageForAllFolders) {
  const TemporaryFolder folder;
  const std::string page = folder.file("page.html");
  const test::SubcommandResult result =
      report({example("ge1-glass-epoxy"), example("im7-8552"), "-o", page, "--title", "Both"});
  EXPECT_LT(result.code, ExitCode::failed) << result.err;
  const nlohmann::json data = dataOf(contentOf(page));
  EXPECT_EQ(data.at("title"), "Both");
  ASSERT_EQ(data.at("materials").size(), 2U);
  EXPECT_EQ(data["materials"][0].at("environments").size(), 3U);
  EXPECT_FALSE(data["materials"][0].at("hasDeck"));
}

TEST(ReportCommand, SaysHowManyEnvironmentsItLeavesOut) {
  const TemporaryFolder folder;
  const std::string page = folder.file("page.html");
  report({example("ge1-glass-epoxy"), "-o", page, "--max-environments", "1"});
  const nlohmann::json material = dataOf(contentOf(page)).at("materials")[0];
  EXPECT_EQ(material.at("environments").size(), 1U);
  EXPECT_EQ(material.at("total"), 3);
}

TEST(ReportCommand, GivesABadMaterialItsPage) {
  const TemporaryFolder folder;
  std::string data = contentOf(fs::path(example("im7-8552")) / "mdata.xml");
  const std::string modulus = "<E22 value=\"";
  data.replace(data.find(modulus) + modulus.size(), 21, "                  NAN");
  folder.write("mdata.xml", data);
  const std::string page = folder.file("page.html");
  EXPECT_EQ(report({folder.path().string(), "-o", page}).code, ExitCode::bad);
  const nlohmann::json material = dataOf(contentOf(page)).at("materials")[0];
  EXPECT_EQ(material.at("verdict"), "bad");
  EXPECT_TRUE(material.at("environments")[0].at("lamina")[1].is_null());
}

TEST(ReportCommand, WritesNoHalfPage) {
  const TemporaryFolder folder;
  const std::string page = folder.file("page.html");
  const std::string gone = folder.file("gone");
  const test::SubcommandResult missing = report({example("im7-8552"), gone, "-o", page});
  EXPECT_EQ(missing.code, ExitCode::failed);
  EXPECT_NE(missing.err.find(gone), std::string::npos);
  EXPECT_FALSE(fs::exists(page));

  folder.write("mdata.xml", "<ZRN material=\"x\"");
  EXPECT_EQ(report({folder.path().string(), "-o", page}).code, ExitCode::failed);
  EXPECT_FALSE(fs::exists(page));

  const std::string nowhere = folder.file("nowhere/page.html");
  const test::SubcommandResult unwritten = report({example("im7-8552"), "-o", nowhere});
  EXPECT_EQ(unwritten.code, ExitCode::failed);
  EXPECT_NE(unwritten.err.find(nowhere), std::string::npos);
}

TEST(ReportCommand, MakesTheFolderOfTables) {
  const TemporaryFolder folder;
  report({example("im7-8552"), "-o", folder.file("page.html"), "--csv", folder.file("a/b")});
  EXPECT_TRUE(fs::is_directory(folder.file("a/b")));
  EXPECT_TRUE(fs::is_empty(folder.file("a/b"))) << "a ply has no decompositions";
}

TEST(ReportCommand, RefusesWrongUsage) {
  EXPECT_EQ(report({example("im7-8552")}).code, ExitCode::failed);
  const TemporaryFolder folder;
  const std::string page = folder.file("page.html");
  EXPECT_EQ(report({example("im7-8552"), "-o", page, "--max-environments", "0"}).code,
            ExitCode::failed);
}

}  // namespace
}  // namespace lamkit
