// SPDX-License-Identifier: BSD-3-Clause
#include "table/Row.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "record/RunRecord.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

using lamcraft::test::contentOf;
using lamcraft::test::TemporaryFolder;

const std::string kGolden = LAMCRAFT_TEST_DATA "/golden/examples/";

Cell cellOf(const std::vector<Cell>& row, const std::string& column) {
  const auto& names = columnNames();
  const auto found = std::find(names.begin(), names.end(), column);
  EXPECT_NE(found, names.end()) << column;
  return row.at(static_cast<std::size_t>(found - names.begin()));
}

double numberOf(const std::vector<Cell>& row, const std::string& column) {
  return std::get<double>(cellOf(row, column));
}

std::string textOf(const std::vector<Cell>& row, const std::string& column) {
  return std::get<std::string>(cellOf(row, column));
}

bool isEmpty(const std::vector<Cell>& row, const std::string& column) {
  return std::holds_alternative<std::monostate>(cellOf(row, column));
}

/// The data of the example with three environments, and what a solve of it might have written.
struct SolvedGe1 {
  TemporaryFolder folder;

  SolvedGe1() {
    for (const char* const name : {"mdata.xml", "fdata.xml"}) {
      folder.write(name, contentOf(kGolden + "ge1-glass-epoxy/engine/" + name));
    }
  }
  void record(const std::vector<Finding>& findings) const {
    RunRecord run;
    run.seconds = 0.5;
    run.result.findings = findings;
    folder.write(kRunRecord, lamkit::textOf(run));
  }
  [[nodiscard]] FolderRows rows() const { return rowsOf(folder.path().string()); }
};

Finding finding(const char* const rule, const Severity severity, const std::size_t environment) {
  Finding result;
  result.rule = rule;
  result.severity = severity;
  result.environment = environment;
  result.message = std::string(rule) + " it is";
  return result;
}

TEST(Row, ColumnsHaveTheirUnits) {
  const auto& names = columnNames();
  EXPECT_EQ(names.front(), "name");
  EXPECT_EQ(names.at(2), "temperature [K]");
  EXPECT_EQ(names.at(11), "lamina E11 [Pa]");
  EXPECT_EQ(names.at(14), "lamina v12");
  EXPECT_EQ(names.at(names.size() - 2), "matrix A33 [1/K]");
  EXPECT_EQ(names.back(), "seconds");
  EXPECT_EQ(names.size(), 11U + 36U + 1U);
}

TEST(Row, EveryEnvironmentHasOne) {
  const SolvedGe1 solved;
  solved.record({});
  const FolderRows table = solved.rows();
  ASSERT_EQ(table.rows.size(), 3U);
  for (const auto& row : table.rows) {
    EXPECT_EQ(row.size(), columnNames().size());
    EXPECT_EQ(textOf(row, "name"), solved.folder.path().filename().string());
    EXPECT_EQ(textOf(row, "verdict"), "good");
    EXPECT_TRUE(isEmpty(row, "rule"));
    EXPECT_EQ(numberOf(row, "seconds"), 0.5);
  }
  EXPECT_EQ(numberOf(table.rows[1], "environment"), 2.0);
  EXPECT_EQ(numberOf(table.rows[1], "temperature [K]"), 233.15);
  EXPECT_EQ(textOf(table.rows[1], "moisture"), "dry");
  EXPECT_TRUE(isEmpty(table.rows[1], "fatigue error")) << "the files report no fit";
  EXPECT_NEAR(numberOf(table.rows[1], "lamina E22 [Pa]"), 16.07e9, 16.07e9 * 1e-4);  // a met target
}

TEST(Row, NamesTheHeaviestFindingOfItsEnvironment) {
  const SolvedGe1 solved;
  solved.record({finding("about-all", Severity::note, 0),
                 finding("second", Severity::warning, 2),
                 finding("second-too", Severity::warning, 2),
                 finding("third", Severity::error, 3)});
  const FolderRows table = solved.rows();
  EXPECT_EQ(textOf(table.rows[0], "rule"), "about-all");
  EXPECT_EQ(textOf(table.rows[0], "verdict"), "good");
  EXPECT_EQ(textOf(table.rows[1], "rule"), "second");
  EXPECT_EQ(textOf(table.rows[1], "verdict"), "doubtful");
  EXPECT_EQ(textOf(table.rows[2], "message"), "third it is");
  EXPECT_EQ(textOf(table.rows[2], "verdict"), "bad");
}

TEST(Row, OfAMaterialWithoutDataHasEnvironmentZero) {
  const TemporaryFolder folder;
  RunRecord run;
  run.result.findings = {finding("failed", Severity::error, 0)};
  folder.write(kRunRecord, lamkit::textOf(run));
  const FolderRows table = rowsOf(folder.path().string());
  ASSERT_EQ(table.rows.size(), 1U);
  EXPECT_EQ(numberOf(table.rows[0], "environment"), 0.0);
  EXPECT_EQ(textOf(table.rows[0], "rule"), "failed");
  EXPECT_TRUE(isEmpty(table.rows[0], "lamina E11 [Pa]"));
}

TEST(Row, JudgesWhatNoSolveHas) {
  const SolvedGe1 solved;
  const FolderRows table = solved.rows();
  EXPECT_EQ(textOf(table.rows[0], "rule"), "stale");
  EXPECT_EQ(textOf(table.rows[0], "verdict"), "good") << "no deck copy is a note";
  EXPECT_TRUE(isEmpty(table.rows[0], "seconds"));
}

TEST(Row, DoesNotTrustARecordWhoseDataAreGone) {
  const SolvedGe1 solved;
  solved.record({});
  solved.folder.write("mdata.xml", "<ZRN");
  const FolderRows table = solved.rows();
  ASSERT_EQ(table.rows.size(), 1U);
  EXPECT_EQ(textOf(table.rows[0], "rule"), "unreadable");
}

}  // namespace
}  // namespace lamkit
