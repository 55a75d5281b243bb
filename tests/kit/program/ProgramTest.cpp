// SPDX-License-Identifier: BSD-3-Clause
#include "program/Program.h"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

using lamcraft::test::TemporaryFolder;

struct Result {
  ExitCode code;
  std::string out;
  std::string err;
};

Result lamkit(const std::vector<std::string>& arguments) {
  std::vector<const char*> pointers{"lamkit"};
  for (const std::string& argument : arguments) {
    pointers.push_back(argument.c_str());
  }
  std::ostringstream out;
  std::ostringstream err;
  const ExitCode code = run(static_cast<int>(pointers.size()), pointers.data(), out, err);
  return {code, out.str(), err.str()};
}

TEST(Program, HelpAndVersionGoToTheStandardOutput) {
  const Result help = lamkit({"--help"});
  EXPECT_EQ(help.code, ExitCode::good);
  EXPECT_NE(help.out.find("check"), std::string::npos);
  EXPECT_EQ(help.err, "");
  const Result version = lamkit({"--version"});
  EXPECT_EQ(version.code, ExitCode::good);
  EXPECT_EQ(version.out.find("lamkit 2023"), 0U);
}

TEST(Program, WrongUsageIsAFailureWithAMessage) {
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{},
                                             {"chek", "a.qdk"},
                                             {"check"},
                                             {"check", "--format=xml", "a.qdk"},
                                             {"check", "--colour", "a.qdk"}}) {
    const Result result = lamkit(arguments);
    EXPECT_EQ(result.code, ExitCode::failed);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err, "");
  }
}

TEST(Program, AFileThatIsMissingDoesNotKeepTheOthersBack) {
  const TemporaryFolder folder;
  const std::string bad = folder.write("bad.qdk", "\xEF\xBB\xBF*MATERIAL\n");
  const Result result = lamkit({"check", folder.file("gone.qdk"), bad});
  EXPECT_EQ(result.code, ExitCode::failed);
  EXPECT_NE(result.err.find(folder.file("gone.qdk") + ": cannot be opened"), std::string::npos);
  EXPECT_NE(result.out.find("[byte-order-mark]"), std::string::npos);
}

TEST(Program, AFolderIsNoDeck) {
  const TemporaryFolder folder;
  const Result result = lamkit({"check", folder.path().string()});
  EXPECT_EQ(result.code, ExitCode::failed);
  EXPECT_EQ(result.err.find("lamkit: " + folder.path().string() + ": is no file"), 0U)
      << result.err;
}

TEST(Program, AnErrorIsExitCodeTwoInBothFormats) {
  const TemporaryFolder folder;
  const std::string bad = folder.write("bad.qdk", "\xEF\xBB\xBF*MATERIAL\n");
  EXPECT_EQ(lamkit({"check", bad}).code, ExitCode::bad);
  const Result json = lamkit({"check", "--format=json", bad});
  EXPECT_EQ(json.code, ExitCode::bad);
  EXPECT_EQ(json.out.find("{\n  \"schema\": 1,"), 0U);
  EXPECT_EQ(json.err, "");
}

TEST(Program, QuietLeavesOutTheSummaryAlone) {
  const TemporaryFolder folder;
  const std::string bad = folder.write("bad.qdk", "\xEF\xBB\xBF*MATERIAL\n");
  const Result loud = lamkit({"check", bad});
  const Result quiet = lamkit({"check", "--quiet", bad});
  EXPECT_EQ(loud.out, quiet.out);
  EXPECT_NE(loud.err, "");
  EXPECT_EQ(quiet.err, "");
}

TEST(Program, ColorsComeWhenAskedFor) {
  const TemporaryFolder folder;
  const std::string bad = folder.write("bad.qdk", "\xEF\xBB\xBF*MATERIAL\n");
  EXPECT_NE(lamkit({"check", "--color=always", bad}).out.find('\x1b'), std::string::npos);
  EXPECT_EQ(lamkit({"check", "--color=never", bad}).out.find('\x1b'), std::string::npos);
}

}  // namespace
}  // namespace lamkit
