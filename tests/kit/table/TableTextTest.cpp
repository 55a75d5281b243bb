// SPDX-License-Identifier: BSD-3-Clause
#include "table/TableText.h"

#include <algorithm>
#include <limits>
#include <sstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace lamkit {
namespace {

std::string csv(const std::vector<Cell>& row) {
  std::ostringstream out;
  writeCsv(out, row);
  return out.str();
}

TEST(TableText, QuotesAsTheStandardSays) {
  EXPECT_EQ(csv({Cell("a b"), Cell("a,b"), Cell("say \"so\""), Cell("two\nlines"), Cell("c\rr")}),
            "a b,\"a,b\",\"say \"\"so\"\"\",\"two\nlines\",\"c\rr\"\n");
}

TEST(TableText, WritesNumbersThatReadBack) {
  EXPECT_EQ(csv({Cell(0.1), Cell(1.26e11), Cell(-5e-7), Cell(3.0), Cell()}),
            "0.1,1.26e+11,-5e-07,3,\n");
  const double third = 1.0 / 3.0;
  EXPECT_EQ(std::stod(csv({Cell(third)})), third);
  EXPECT_EQ(csv({Cell(std::numeric_limits<double>::quiet_NaN()),
                 Cell(-std::numeric_limits<double>::infinity())}),
            "nan,-inf\n");
}

TEST(TableText, HeadHasEveryColumn) {
  std::ostringstream out;
  writeCsvHead(out);
  const std::string head = out.str();
  EXPECT_EQ(head.find("name,environment,temperature [K],moisture,verdict,rule,message,"), 0U);
  EXPECT_EQ(static_cast<std::size_t>(std::count(head.begin(), head.end(), ',')),
            columnNames().size() - 1);
  EXPECT_EQ(head.substr(head.size() - 9), ",seconds\n");
}

TEST(TableText, WritesJsonUnderTheSameNames) {
  std::vector<Cell> row(columnNames().size());
  row[0] = std::string("a\xE9\"");
  row[1] = 2.0;
  row[2] = 296.15;
  row[3] = std::numeric_limits<double>::infinity();
  std::ostringstream out;
  writeJson(out, row);
  const std::string line = out.str();
  EXPECT_EQ(line.find('\n'), line.size() - 1);
  const auto object = nlohmann::ordered_json::parse(line);
  EXPECT_EQ(object.at("environment"), 2);
  EXPECT_TRUE(object.at("environment").is_number_integer());
  EXPECT_EQ(object.at("temperature [K]"), 296.15);
  EXPECT_TRUE(object.at("moisture").is_null());
  EXPECT_TRUE(object.at("seconds").is_null());
  std::size_t column = 0;
  for (const auto& item : object.items()) {
    EXPECT_EQ(item.key(), columnNames().at(column++));
  }
}

}  // namespace
}  // namespace lamkit
