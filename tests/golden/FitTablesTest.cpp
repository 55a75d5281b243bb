#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "golden/NumericText.h"
#include "support/ProcessRun.h"

namespace lamcraft::test {
namespace {

/// What stands in docs/engine.md between the marks of tools/renew_fit_tables.
std::string documentedTables() {
  std::ifstream file(LAMCRAFT_ROOT "/docs/engine.md");
  std::ostringstream text;
  text << file.rdbuf();
  const std::string all = text.str();
  const std::string begin = "<!-- fit tables -->\n";
  const auto from = all.find(begin);
  const auto to = all.find("<!-- end of fit tables -->");
  if (from == std::string::npos || to == std::string::npos) {
    return {};
  }
  return all.substr(from + begin.size(), to - from - begin.size());
}

// Numbers to one unit of their last digit: another compiler may round the other way.
TEST(FitTables, StandInTheGuideAsTheToolPrintsThem) {
  const auto result =
      run({LAMCRAFT_FIT_TABLES, {LAMCRAFT_ROOT "/tools/published_plies.json"}, {}, {}});
  ASSERT_EQ(result.exitCode, 0) << result.err;
  const auto toTheLastDigit = [](const std::string&) { return Tolerance{0.0, 0.11}; };
  EXPECT_EQ(firstDeviation(documentedTables(), result.out, toTheLastDigit), "")
      << "run tools/renew_fit_tables, and read the difference";
}

}  // namespace
}  // namespace lamcraft::test
