#include "abqinp/LineReader.h"

#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace abqinp {
namespace {

using testing::ElementsAre;

std::vector<std::string> linesOf(const std::string& text) {
  std::istringstream in(text);
  LineReader reader(in);
  std::vector<std::string> lines;
  std::string_view line;
  while (reader.next(line)) {
    lines.emplace_back(line);
  }
  EXPECT_FALSE(reader.next(line)) << "the end must stay the end";
  return lines;
}

TEST(LineReader, EndsLinesAtLineFeeds) {
  EXPECT_THAT(linesOf("a\n\nb\n"), ElementsAre("a", "", "b"));
  EXPECT_THAT(linesOf("\n"), ElementsAre(""));
  EXPECT_THAT(linesOf(""), ElementsAre());
}

TEST(LineReader, TakesTheLastLineWithoutLineFeed) {
  EXPECT_THAT(linesOf("a\nb"), ElementsAre("a", "b"));
  EXPECT_THAT(linesOf("b"), ElementsAre("b"));
}

TEST(LineReader, KeepsReturnsAndNulBytes) {
  const std::string line("a\0b\r", 4);
  EXPECT_THAT(linesOf(line + "\n" + line), ElementsAre(line, line));
}

TEST(LineReader, JoinsLinesThatPiecesOfTheStreamCut) {
  std::vector<std::string> lines;
  std::string text;
  for (std::size_t i = 0; i < 3000; ++i) {
    lines.emplace_back(1 + i * 37 % 501, static_cast<char>('a' + i % 26));
    text += lines.back() + "\n";
  }
  EXPECT_GT(text.size(), 500000U);
  EXPECT_EQ(linesOf(text), lines);
}

TEST(LineReader, ReadsALineThatIsLongerThanAPiece) {
  const std::string line(1000000, 'x');
  EXPECT_THAT(linesOf("a\n" + line + "\nb"), ElementsAre("a", line, "b"));
}

}  // namespace
}  // namespace abqinp
