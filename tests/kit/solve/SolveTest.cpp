// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "kit/solve/SolvedDecks.h"
#include "record/RunRecord.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;
using lamcraft::test::contentOf;
using lamcraft::test::ProcessResult;
using testing::HasSubstr;

nlohmann::json recordOf(const fs::path& folder) {
  return nlohmann::json::parse(contentOf(folder / kRunRecord));
}

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

const char* const kRefused = "*MATERIAL, TYPE=UNI, SYSTEM=X, NAME=R\n1\n*LAMINNA\n1\n";

TEST(Solve, MakesAFolderForEachDeck) {
  SolvedDecks solved;
  solved.add("A");
  solved.add("B");
  const ProcessResult result = solved.solve();
  EXPECT_LT(result.exitCode, 2) << result.out << result.err;
  EXPECT_EQ(namesIn(solved.root.path() / "out"), (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(namesIn(solved.folder("A")),
            (std::vector<std::string>{"console.txt", "input.qdk", "mdata.xml", "run.json"}));
  EXPECT_THAT(contentOf(solved.folder("A") / "console.txt"), HasSubstr("Solving"));
}

TEST(Solve, WritesDownHowTheRunWent) {
  SolvedDecks solved;
  solved.add("A");
  (void)solved.solve();
  const nlohmann::json record = recordOf(solved.folder("A"));
  EXPECT_EQ(record.at("schema"), 1);
  EXPECT_EQ(record.at("deck"), solved.decks[0]);
  EXPECT_EQ(record.at("sha256").get<std::string>().size(), 64U);
  EXPECT_EQ(record.at("exit_code"), 0);
  EXPECT_GT(record.at("seconds"), 0.0);
  for (const auto& finding : record.at("findings")) {
    EXPECT_EQ(finding.at("file"), solved.folder("A").string());
  }
}

TEST(Solve, GivesADeckThatTheProgramRefusesAFolderWithoutData) {
  SolvedDecks solved;
  solved.add("R", kRefused);
  const ProcessResult result = solved.solve({"--force"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(namesIn(solved.folder("R")), (std::vector<std::string>{"console.txt", "run.json"}));
  const nlohmann::json record = recordOf(solved.folder("R"));
  EXPECT_EQ(record.at("verdict"), "bad");
  EXPECT_EQ(record.at("exit_code"), 1);  // of a malformed deck
  EXPECT_THAT(result.out, HasSubstr("Invalid keyword: LAMINNA"));
  EXPECT_THAT(result.out, HasSubstr("[failed]"));
}

TEST(Solve, DoesNotRunADeckThatCheckRefuses) {
  SolvedDecks solved;
  solved.add("B", "\xEF\xBB\xBF" + lamcraft::test::UniDeck().text());
  EXPECT_EQ(solved.solve().exitCode, 2);
  EXPECT_EQ(namesIn(solved.folder("B")), (std::vector<std::string>{"console.txt", "run.json"}));
  const nlohmann::json record = recordOf(solved.folder("B"));
  EXPECT_TRUE(record.at("exit_code").is_null());
  EXPECT_EQ(record.at("findings").at(0).at("rule"), "byte-order-mark");
  EXPECT_EQ(contentOf(solved.folder("B") / "console.txt"), "");
}

TEST(Solve, EndsARunThatTakesTooLong) {
  SolvedDecks solved;
  solved.useFake();
  solved.environment["KXFAKE_SLEEP_MS"] = "100000";
  solved.add("A");
  const ProcessResult result = solved.solve({"--timeout", "0.2"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.out, HasSubstr("[timeout]"));
  EXPECT_EQ(namesIn(solved.folder("A")), (std::vector<std::string>{"console.txt", "run.json"}));
  const nlohmann::json record = recordOf(solved.folder("A"));
  EXPECT_TRUE(record.at("exit_code").is_null());
  EXPECT_LT(record.at("seconds"), 50.0);  // far from the hundred of the fit
}

TEST(Solve, SeesALibraryThatCrashes) {
  SolvedDecks solved;
  solved.useFake();
  solved.environment["KXFAKE_FAULT"] = "abort";
  solved.add("A");
  EXPECT_EQ(solved.solve().exitCode, 2);
  EXPECT_EQ(recordOf(solved.folder("A")).at("exit_code"), 128 + 6);
}

TEST(Solve, ReplacesAFolderAsAWhole) {
  SolvedDecks solved;
  solved.add("A");
  fs::create_directories(solved.folder("A"));
  solved.root.write("out/A/fdata.xml", "of another run");
  (void)solved.solve();
  EXPECT_EQ(namesIn(solved.folder("A")),
            (std::vector<std::string>{"console.txt", "input.qdk", "mdata.xml", "run.json"}));
  EXPECT_EQ(namesIn(solved.root.path() / "out"), (std::vector<std::string>{"A"}));
}

TEST(Solve, ResumedLeavesOutWhatIsThere) {
  SolvedDecks solved;
  solved.add("A");
  solved.add("R", kRefused);
  const ProcessResult first = solved.solve({"--force"});
  const auto time = fs::last_write_time(solved.folder("A") / "mdata.xml");
  const auto files = solved.files();
  const ProcessResult second = solved.solve({"--force", "--resume"});
  EXPECT_EQ(fs::last_write_time(solved.folder("A") / "mdata.xml"), time);
  EXPECT_EQ(solved.files(), files);
  EXPECT_EQ(second.exitCode, first.exitCode);
  EXPECT_EQ(second.out, first.out) << "what was found is said again";
  EXPECT_THAT(second.err, HasSubstr("(there already)\n2/2 R: bad (there already)"));
}

TEST(Solve, ResumedSolvesAnewWhatHasChanged) {
  SolvedDecks solved;
  solved.add("A");
  (void)solved.solve();
  const std::string digest = recordOf(solved.folder("A")).at("sha256");
  std::ofstream(solved.decks[0], std::ios::app) << "**\n";
  (void)solved.solve({"--resume"});
  EXPECT_NE(recordOf(solved.folder("A")).at("sha256"), digest);
  // Made by another version.
  std::string record = contentOf(solved.folder("A") / kRunRecord);
  const std::size_t at = record.find(R"("lamcraft": ")") + 13;
  record.insert(at, "x");
  solved.root.write("out/A/run.json", record);
  EXPECT_THAT(solved.solve({"--resume"}).err, testing::Not(HasSubstr("there already")));
}

TEST(Solve, ResumedRemovesWhatAKilledRunHasLeft) {
  SolvedDecks solved;
  solved.add("A");
  (void)solved.solve();
  for (const char* const name : {"out/.A.part", "out/.A.old"}) {
    fs::create_directory(solved.root.path() / name);
  }
  (void)solved.solve({"--resume"});
  EXPECT_EQ(namesIn(solved.root.path() / "out"), (std::vector<std::string>{"A"}));
}

TEST(Solve, TakesItsShareOfAList) {
  SolvedDecks solved;
  for (const char* const name : {"A", "B", "C", "D", "E"}) {
    solved.add(name);
  }
  std::string list;
  for (const std::string& deck : solved.decks) {
    list += deck + "\n";
  }
  solved.decks.clear();
  const std::string path = solved.root.write("list.txt", list);
  (void)solved.solve({"--list", path, "--chunk", "2/3"});
  EXPECT_EQ(namesIn(solved.root.path() / "out"), (std::vector<std::string>{"B", "E"}));
}

TEST(Solve, SaysThatADeckIsMissingAndDoesTheOthers) {
  SolvedDecks solved;
  solved.decks.push_back(solved.root.file("gone.qdk"));
  fs::create_directory(solved.root.path() / "folder.qdk");
  solved.decks.push_back(solved.root.file("folder.qdk"));
  solved.add("A");
  const ProcessResult result = solved.solve();
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.err, HasSubstr(solved.root.file("gone.qdk") + ": cannot be read"));
  EXPECT_THAT(result.err, HasSubstr(solved.root.file("folder.qdk") + ": is no file"));
  EXPECT_EQ(namesIn(solved.root.path() / "out"), (std::vector<std::string>{"A"}));
}

TEST(Solve, RefusesTwoDecksOfOneNameBeforeTheFirstRun) {
  SolvedDecks solved;
  solved.add("A");
  fs::create_directory(solved.root.path() / "more");
  solved.decks.push_back(solved.root.write("more/A.qdk", ""));
  const ProcessResult result = solved.solve();
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_FALSE(fs::exists(solved.root.path() / "out"));
}

TEST(Solve, RefusesWrongUsage) {
  SolvedDecks solved;
  EXPECT_EQ(solved.solve().exitCode, 3) << "no decks";
  solved.add("A");
  for (const std::vector<std::string>& more :
       std::vector<std::vector<std::string>>{{"--chunk", "0/2"},
                                             {"--chunk", "3/2"},
                                             {"--chunk", "x"},
                                             {"--timeout", "0"},
                                             {"--timeout", "-1"},
                                             {"--list", solved.root.file("gone")}}) {
    EXPECT_EQ(solved.solve(more).exitCode, 3) << more[0] << more[1];
  }
  EXPECT_FALSE(fs::exists(solved.root.path() / "out"));
}

TEST(Solve, SaysThatItsFolderCannotBeMade) {
  SolvedDecks solved;
  solved.add("A");
  solved.root.write("out", "a file");
  const ProcessResult result = solved.solve();
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.err, HasSubstr(solved.root.file("out")));
}

TEST(Solve, SaysTheSameInEveryLanguage) {
  SolvedDecks solved;
  solved.environment["LC_ALL"] = "de_DE.UTF-8";
  solved.environment["LANGUAGE"] = "de";
  solved.add("R", kRefused);
  EXPECT_THAT(solved.solve({"--force"}).out, HasSubstr("FATAL ERROR: Malformed input file"));
}

}  // namespace
}  // namespace lamkit
