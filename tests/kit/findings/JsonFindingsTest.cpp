// SPDX-License-Identifier: BSD-3-Clause
#include "findings/JsonFindings.h"

#include <string>

#include <gtest/gtest.h>

namespace lamkit {
namespace {

TEST(JsonFindings, GivesEveryMemberByItsNameAndNumbersAsNumbers) {
  Finding finding;
  finding.file = "my.qdk";
  finding.line = 17;
  finding.column = 1;
  finding.keyword = "LAMINA";
  finding.environment = 2;
  finding.rule = "unit-slip";
  finding.severity = Severity::warning;
  finding.value = "126 Pa";
  finding.expected = "1e9 to 1e12 Pa";
  finding.message = "was it meant in GPa?";
  const auto expected = nlohmann::ordered_json::parse(R"({"schema": 1, "files": [
      {"file": "my.qdk", "verdict": "doubtful", "findings": [
        {"file": "my.qdk", "line": 17, "column": 1, "keyword": "LAMINA", "environment": 2,
         "rule": "unit-slip", "severity": "warning", "value": "126 Pa",
         "expected": "1e9 to 1e12 Pa", "message": "was it meant in GPa?"}]}]})");
  EXPECT_EQ(jsonOf({FileFindings{"my.qdk", {finding}}}), expected);
}

TEST(JsonFindings, AFileWithoutFindingsHasAnEmptyArray) {
  const auto document = jsonOf({FileFindings{"my.qdk", {}}});
  EXPECT_EQ(document["files"][0]["findings"], nlohmann::ordered_json::array());
  EXPECT_EQ(document["files"][0]["verdict"], "good");
}

TEST(JsonFindings, BytesThatAreNotUtf8DoNotStopTheDocument) {
  const std::string text = textOf(jsonOf({FileFindings{"caf\xE9.qdk", {}}}));
  EXPECT_NE(text.find("caf\xEF\xBF\xBD.qdk"), std::string::npos);
}

}  // namespace
}  // namespace lamkit
