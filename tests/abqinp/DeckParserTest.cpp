// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/DeckParser.h"

#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "PlainDeck.h"

namespace abqinp {
namespace {

std::vector<Keyword> blocksOf(const std::string& deck) {
  DeckParser parser;
  std::istringstream in(deck);
  std::string line;
  while (std::getline(in, line)) {
    parser.addLine(line);
  }
  return parser.finish();
}

std::string textOf(const std::string& deck) {
  std::string text;
  for (const Keyword& block : blocksOf(deck)) {
    text += block.toText(true);
  }
  return text;
}

TEST(DeckParser, NormalisesKeywordLines) {
  const std::vector<Keyword> blocks =
      blocksOf("*kw1, name = Carbon Epoxy\n*Kw 2, Name = \"Carbon Epoxy\"\n");
  ASSERT_EQ(blocks.size(), 2U);
  EXPECT_EQ(blocks[0].name(), "KW1");
  EXPECT_EQ(blocks[0].parameter("NAME"), Parameter("NAME", "CARBONEPOXY"));
  EXPECT_EQ(blocks[1].name(), "KW2");
  EXPECT_EQ(blocks[1].parameter("NAME").second, "\"Carbon Epoxy\"");
  EXPECT_EQ(blocks[1].parameterText("NAME"), "Carbon Epoxy");
}

TEST(DeckParser, ContinuesAKeywordLineThatEndsWithAComma) {
  const std::vector<Keyword> blocks = blocksOf("*KW1,\nTYPE=ISO\n");
  ASSERT_EQ(blocks.size(), 1U);
  EXPECT_EQ(blocks[0].parameterText("TYPE"), "ISO");
  EXPECT_EQ(blocks[0].lineCount(), 0U);
  EXPECT_EQ(textOf("*KW1,A,\nB,\nC\nD,\nE\n"), "*KW1, A, B, C\nD, \nE\n");
}

TEST(DeckParser, EndsAContinuationAtABlankLineOrTheNextKeyword) {
  EXPECT_EQ(textOf("*KW1,\n\n1\n"), "*KW1\n1\n");
  EXPECT_EQ(textOf("*KW1,\n*KW2\n1\n"), "*KW1\n*KW2\n1\n");
}

TEST(DeckParser, ContinuesAKeywordLineBehindAComment) {
  EXPECT_EQ(textOf("*KW1,\n** note\nTYPE=ISO\n1\n"), "** note\n*KW1, TYPE=ISO\n1\n");
}

TEST(DeckParser, LeavesTheLeftOfTwoValuesOnOneLine) {
  const std::vector<Keyword> blocks = blocksOf("*KW1, A=1, A=2\n");
  EXPECT_EQ(blocks.at(0).parameterText("A"), "1");
  EXPECT_EQ(blocks.at(0).toText(true), "*KW1, A=1, A=1\n");
}

TEST(DeckParser, FindsKeywordsBehindBlanks) {
  EXPECT_EQ(textOf("  \t*kw1\n 1\n"), "*KW1\n1\n");
  EXPECT_EQ(textOf("* kw1\n"), "*KW1\n");
}

TEST(DeckParser, DropsDataBeforeTheFirstKeyword) {
  EXPECT_EQ(textOf("1, 2\n** note\n3\n*KW1\n4\n"), "** note\n*KW1\n4\n");
  EXPECT_EQ(textOf("1\n2\n"), "");
  EXPECT_EQ(textOf("\xef\xbb\xbf*KW1\n*KW2\n"), "*KW2\n") << "a mark of the encoding is data";
}

TEST(DeckParser, StoresAKeywordBehindTheCommentsInItsData) {
  EXPECT_EQ(textOf("*KW0\n*KW1\n1\n** a\n** b\n2\n** c\n3\n** d\n*KW2\n"),
            "*KW0\n** a\n** b\n** c\n*KW1\n1\n2\n3\n** d\n*KW2\n");
}

TEST(DeckParser, TakesABlankLineBehindACommentForData) {
  EXPECT_EQ(textOf("*KW1\n1\n** a\n\n*KW2\n"), "** a\n*KW1\n1\n*KW2\n");
}

TEST(DeckParser, NeverStoresAKeywordWithoutAName) {
  EXPECT_EQ(textOf("*\n1\n"), "");
  EXPECT_EQ(textOf("*,A=1\n"), "");
  EXPECT_EQ(textOf("*KW1\n1\n*\n2\n"), "*KW1\n1\n2\n") << "its data go to the keyword before";
  EXPECT_EQ(textOf("*KW1\n1\n*,B,\nA=1\n2\n"), "*KW1, A=1\n1\n2\n");
}

TEST(DeckParser, KeepsCommentsAsTheyAre) {
  EXPECT_EQ(textOf("  ** Some \"note, \t \r\nA**b\n**"), "  ** Some \"note, \t \nA**b\n**\n");
  EXPECT_EQ(textOf("*KW1\n1.0, *2\n"), "*KW1\n1.0, *2\n");
}

TEST(DeckParser, RemovesBlankLinesBehindTheDataOnly) {
  const std::vector<Keyword> blocks = blocksOf("*KW1\n\n1\n\n \n2\n\n\t\n** c\n\n");
  ASSERT_EQ(blocks.size(), 2U);
  EXPECT_EQ(blocks[1].lineCount(), 5U);
  EXPECT_EQ(blocks[1].toText(false), "*KW1\n\n1\n\n\n2\n");
}

TEST(DeckParser, CutsValuesAtCommasInsideQuotes) {
  const std::vector<Keyword> blocks = blocksOf("*KW1, A=\"x, y\"\n\"p, q\", r\n");
  ASSERT_EQ(blocks.size(), 1U);
  EXPECT_EQ(blocks[0].toText(true), "*KW1, A=\"x,  y\"\n\"p,  q\", R\n");
  EXPECT_TRUE(blocks[0].hasValue(0, 2));
}

TEST(DeckParser, KeepsTheTextBehindAnUnclosedQuote) {
  const std::vector<Keyword> blocks = blocksOf("*kw1, a=\"b c\n1, \"x y, 2\n3\n");
  ASSERT_EQ(blocks.size(), 1U);
  EXPECT_EQ(blocks[0].parameterText("A"), "b c");
  EXPECT_EQ(blocks[0].doubleValue(0, 2, 0.0), 2.0) << "the blank before the 2 is still there";
  EXPECT_EQ(blocks[0].toText(true), "*KW1, A=\"b c\n1, \"x y,  2\n3\n");
}

TEST(DeckParser, ReadsReturnsAndLineFeedsAlike) {
  EXPECT_EQ(textOf("** c\r\n*KW1,\r\nA\r\n1,\r\n\r\n2\r\n"), textOf("** c\n*KW1,\nA\n1,\n\n2\n"));
}

TEST(DeckParser, KeepsNulBytes) {
  using namespace std::string_literals;
  EXPECT_EQ(textOf("*kw\0a\n1\0,2\n**\0c\n"s), "*KW\0A\n1\0, 2\n**\0c\n"s);
}

TEST(DeckParser, CountsTheLinesOfTheFile) {
  const std::vector<Keyword> blocks =
      blocksOf("lost\n** a\n\n*kw1,\n  b=2\n\n1,2\n** c\n 3 , x\n*kw2");
  ASSERT_EQ(blocks.size(), 4U);
  EXPECT_EQ(blocks[0].line(), 2U);
  EXPECT_EQ(blocks[1].line(), 8U) << "the comment in the data comes before the keyword";
  EXPECT_EQ(blocks[2].line(), 4U);
  EXPECT_EQ(blocks[2].parameterPlace("B").line, 5U);
  EXPECT_EQ(blocks[2].parameterPlace("B").column, 3U);
  ASSERT_EQ(blocks[2].lineCount(), 3U);
  EXPECT_EQ(blocks[2].dataLineNumber(0), 6U);
  EXPECT_EQ(blocks[2].valuePlace(1, 1).line, 7U);
  EXPECT_EQ(blocks[2].valuePlace(1, 1).column, 3U);
  EXPECT_EQ(blocks[2].valuePlace(2, 0).line, 9U);
  EXPECT_EQ(blocks[2].valuePlace(2, 0).column, 2U);
  EXPECT_EQ(blocks[2].valuePlace(2, 1).column, 6U);
  EXPECT_EQ(blocks[3].line(), 10U);
}

/// Compares with the plain reader, block by block and value by value.
void expectAsPlain(const std::string& deck) {
  const std::vector<Keyword> blocks = blocksOf(deck);
  const std::vector<PlainBlock> plain = plainBlocks(deck);
  ASSERT_EQ(blocks.size(), plain.size());
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    EXPECT_EQ(blocks[i].name(), plain[i].name);
    EXPECT_EQ(blocks[i].comment(), plain[i].comment);
    EXPECT_EQ(blocks[i].toText(false), plain[i].toText(false));
    EXPECT_EQ(blocks[i].toText(true), plain[i].toText(true));
    ASSERT_EQ(blocks[i].lineCount(), plain[i].lines.size());
    for (std::size_t line = 0; line < plain[i].lines.size(); ++line) {
      const std::size_t columns = plain[i].lines[line].size();
      EXPECT_FALSE(blocks[i].hasValue(line, columns));
      EXPECT_TRUE(columns == 0 || blocks[i].hasValue(line, columns - 1));
    }
  }
}

TEST(DeckParser, AgreesWithThePlainReaderOnRandomDecks) {
  const std::vector<std::string> pieces = {
      "\n",   "\n", "\n",  "\n",     "*",    "*",        "*KW1", "*kw2",   "\n*k", "** c",
      "\n**", ",",  ",",   "A",      "b",    "=",        "1",    " ",      "\"",   "\r",
      "\r\n", "\t", "A=1", "B=2,\n", "\n\n", "1.5, 2\n", "\xe9", "*A,A,\n"};
  std::mt19937 random(11);
  for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
    std::string deck;
    for (std::size_t length = random() % 40; length > 0; --length) {
      deck += pieces[random() % pieces.size()];
    }
    SCOPED_TRACE(testing::PrintToString(deck));
    expectAsPlain(deck);
  }
}

}  // namespace
}  // namespace abqinp
