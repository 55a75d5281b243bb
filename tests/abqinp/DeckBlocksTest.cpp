#include "abqinp/DeckBlocks.h"

#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace abqinp {
namespace {

std::string walked(const DeckBlocks& blocks) {
  std::string text;
  DeckBlocks::Place place;
  Keyword block;
  while (blocks.next(place, block)) {
    text += block.toText(true);
  }
  return text;
}

std::string written(const DeckBlocks& blocks) {
  std::ostringstream out;
  blocks.write(out, true);
  return out.str();
}

DeckBlocks sample() {
  DeckBlocks blocks;
  blocks.addComment("**1");
  blocks.addKeyword("*A,P=1");
  blocks.addDataLine("1,2");
  blocks.addKeyword("*B");
  blocks.addComment("**2");
  blocks.addComment("**3");
  return blocks;
}

TEST(DeckBlocks, WalksCommentsAndKeywordsInOrder) {
  EXPECT_EQ(walked(sample()), "**1\n*A, P=1\n1, 2\n*B\n**2\n**3\n");
  EXPECT_EQ(written(sample()), walked(sample()));
  EXPECT_EQ(walked(DeckBlocks()), "");
}

TEST(DeckBlocks, CountsCommentsAndKeywords) {
  EXPECT_EQ(sample().count(), 5U);
  EXPECT_EQ(sample().count("A"), 1U);
  EXPECT_EQ(sample().count("a"), 0U);
  EXPECT_EQ(sample().count("A,P=1"), 0U);
  EXPECT_EQ(sample().count(""), 3U);
}

TEST(DeckBlocks, MovesAKeywordThatGoesOnBehindTheComments) {
  DeckBlocks blocks = sample();
  blocks.addDataLine("3");
  EXPECT_EQ(walked(blocks), "**1\n*A, P=1\n1, 2\n**2\n**3\n*B\n3\n");
  blocks.addComment("**4");
  blocks.addParameterLine("Q=2");
  EXPECT_EQ(walked(blocks), "**1\n*A, P=1\n1, 2\n**2\n**3\n**4\n*B, Q=2\n3\n");
  EXPECT_EQ(written(blocks), walked(blocks));
}

TEST(DeckBlocks, HasNoPlaceForLinesWithoutAKeyword) {
  DeckBlocks blocks;
  blocks.addDataLine("1");
  blocks.addComment("**");
  blocks.addParameterLine("A");
  blocks.addDataLine("");
  blocks.dropTrailingBlankLines();
  EXPECT_EQ(walked(blocks), "**\n");
  EXPECT_EQ(blocks.count(), 1U);
}

TEST(DeckBlocks, DropsBlankLinesBehindTheLastDataLineOnly) {
  DeckBlocks blocks;
  blocks.addKeyword("*A");
  for (const char* const line : {"", "1", "", "", ",", "", ""}) {
    blocks.addDataLine(line);
  }
  blocks.addKeyword("*B");
  blocks.addDataLine("");
  blocks.addDataLine("");
  EXPECT_EQ(walked(blocks), "*A\n\n1\n\n\n, \n*B\n\n\n");
  blocks.dropTrailingBlankLines();
  EXPECT_EQ(walked(blocks), "*A\n\n1\n\n\n, \n*B\n");
  blocks.dropTrailingBlankLines();
  EXPECT_EQ(walked(blocks), "*A\n\n1\n\n\n, \n*B\n");
}

TEST(DeckBlocks, AreTheSameWhateverSizeWasExpected) {
  for (const std::size_t bytes : {std::size_t{1}, std::size_t{1} << 20, std::size_t{0} - 1}) {
    DeckBlocks blocks;
    blocks.expect(bytes);
    blocks.addComment("** C");
    blocks.addKeyword("*A");
    blocks.addDataLine("1");
    EXPECT_EQ(walked(blocks), "** C\n*A\n1\n") << bytes;
  }
}

TEST(DeckBlocks, StaysAtTheEnd) {
  const DeckBlocks blocks = sample();
  DeckBlocks::Place place;
  Keyword block;
  while (blocks.next(place, block)) {
  }
  EXPECT_FALSE(blocks.next(place, block));
  EXPECT_EQ(place.keywords + place.comments, 5U);
}

TEST(DeckBlocks, LeavesItsKeywordsToThoseWhoKeepThem) {
  Keyword kept;
  {
    const DeckBlocks blocks = sample();
    DeckBlocks::Place place;
    while (kept.name() != "A" && blocks.next(place, kept)) {
    }
  }
  EXPECT_EQ(kept.toText(true), "*A, P=1\n1, 2\n");
}

}  // namespace
}  // namespace abqinp
