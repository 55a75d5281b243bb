// SPDX-License-Identifier: BSD-3-Clause
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "golden/NumericText.h"
#include "support/ProcessRun.h"

namespace lamcraft::test {
namespace {

/// What stands in docs/engine.md between two marks of tools/renew_tables.
std::string documented(const std::string& name) {
  std::ifstream file(LAMCRAFT_ROOT "/docs/engine.md");
  std::ostringstream text;
  text << file.rdbuf();
  const std::string all = text.str();
  const std::string begin = "<!-- " + name + " -->\n";
  const auto from = all.find(begin);
  const auto to = all.find("<!-- end of " + name + " -->");
  if (from == std::string::npos || to == std::string::npos) {
    return {};
  }
  return all.substr(from + begin.size(), to - from - begin.size());
}

/// Numbers to one unit of their last digit: another compiler may round the other way.
void expectAsDocumented(const std::string& name,
                        const std::string& program,
                        const std::string& data) {
  const auto result = run({program, {LAMCRAFT_ROOT "/" + data}, {}, {}});
  ASSERT_EQ(result.exitCode, 0) << result.err;
  const auto toTheLastDigit = [](const std::string&) { return Tolerance{0.0, 0.11}; };
  EXPECT_EQ(firstDeviation(documented(name), result.out, toTheLastDigit), "")
      << "run tools/renew_tables, and read the difference";
}

TEST(GuideTables, OfFitsAreAsTheToolPrintsThem) {
  expectAsDocumented("fit tables", LAMCRAFT_FIT_TABLES, "tools/published_plies.json");
}

TEST(GuideTables, OfFatigueAreAsTheToolPrintsThem) {
  expectAsDocumented("fatigue tables", LAMCRAFT_FATIGUE_TABLES, "tests/reference/published.json");
}

}  // namespace
}  // namespace lamcraft::test
