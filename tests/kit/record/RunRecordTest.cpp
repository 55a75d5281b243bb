// SPDX-License-Identifier: BSD-3-Clause
#include "record/RunRecord.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

using lamcraft::test::TemporaryFolder;

RunRecord sample() {
  RunRecord record;
  record.deck = "decks/a.qdk";
  record.sha256 = std::string(64, 'e');
  record.versions = {"1", "2"};
  record.exitCode = 3;
  record.seconds = 0.25;
  Finding finding;
  finding.line = 17;
  finding.column = 4;
  finding.environment = 2;
  finding.keyword = "LAMINA";
  finding.rule = "unit-slip";
  finding.severity = Severity::warning;
  finding.value = "1 Pa";
  finding.expected = "2 Pa";
  finding.message = "say \"so\"";
  record.result = {"out/a", {finding}};
  return record;
}

TEST(RunRecord, ComesBackAsItWas) {
  const TemporaryFolder folder;
  folder.write(kRunRecord, textOf(sample()));
  const auto read = readRunRecord(folder.path().string());
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->deck, "decks/a.qdk");
  EXPECT_EQ(read->sha256, std::string(64, 'e'));
  EXPECT_TRUE(read->versions == (Versions{"1", "2"}));
  EXPECT_EQ(read->exitCode, 3);
  EXPECT_EQ(read->seconds, 0.25);
  ASSERT_EQ(read->result.findings.size(), 1U);
  const Finding& finding = read->result.findings.front();
  EXPECT_EQ(finding.file, folder.path().string()) << "the folder may have moved";
  EXPECT_EQ(finding.line, 17U);
  EXPECT_EQ(finding.column, 4U);
  EXPECT_EQ(finding.environment, 2U);
  EXPECT_EQ(finding.severity, Severity::warning);
  EXPECT_EQ(finding.message, "say \"so\"");
}

TEST(RunRecord, SaysNothingOfAnExitCodeThatThereIsNot) {
  RunRecord record = sample();
  record.exitCode.reset();
  const auto document = nlohmann::json::parse(textOf(record));
  EXPECT_TRUE(document.at("exit_code").is_null());
  const TemporaryFolder folder;
  folder.write(kRunRecord, textOf(record));
  EXPECT_FALSE(readRunRecord(folder.path().string())->exitCode.has_value());
}

TEST(RunRecord, ThatIsMissingOrBrokenIsNone) {
  const TemporaryFolder folder;
  EXPECT_FALSE(readRunRecord(folder.path().string()));
  const std::string whole = textOf(sample());
  for (const std::string& content : {std::string(),
                                     std::string("[]"),
                                     std::string("{\"schema\": 2}"),
                                     std::string("{\"schema\": 1}"),
                                     whole.substr(0, whole.size() / 2)}) {
    folder.write(kRunRecord, content);
    EXPECT_FALSE(readRunRecord(folder.path().string())) << content;
  }
}

}  // namespace
}  // namespace lamkit
