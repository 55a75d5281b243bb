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
  Keyword comment;
  while (const Keyword* const block = blocks.next(place, comment)) {
    text += block->toText(true);
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
  blocks.addKeyword(Keyword::fromLine("*A"));
  blocks.addKeyword(Keyword::fromLine("*B"));
  blocks.addComment("**2");
  blocks.addComment("**3");
  return blocks;
}

TEST(DeckBlocks, WalksCommentsAndKeywordsInOrder) {
  EXPECT_EQ(walked(sample()), "**1\n*A\n*B\n**2\n**3\n");
  EXPECT_EQ(written(sample()), walked(sample()));
  EXPECT_EQ(walked(DeckBlocks()), "");
}

TEST(DeckBlocks, CountsCommentsAndKeywords) {
  EXPECT_EQ(sample().count(), 5U);
  EXPECT_EQ(sample().count("A"), 1U);
  EXPECT_EQ(sample().count("a"), 0U);
  EXPECT_EQ(sample().count(""), 3U);
}

TEST(DeckBlocks, TakesTheLastKeywordFromUnderTheComments) {
  DeckBlocks blocks = sample();
  std::optional<Keyword> keyword = blocks.takeLastKeyword();
  ASSERT_TRUE(keyword.has_value());
  EXPECT_EQ(keyword->name(), "B");
  EXPECT_EQ(walked(blocks), "**1\n*A\n**2\n**3\n");
  blocks.addKeyword(std::move(*keyword));
  EXPECT_EQ(walked(blocks), "**1\n*A\n**2\n**3\n*B\n");
  EXPECT_EQ(written(blocks), walked(blocks));
}

TEST(DeckBlocks, HasNoLastKeywordAmongCommentsAlone) {
  DeckBlocks blocks;
  blocks.addComment("**");
  EXPECT_FALSE(blocks.takeLastKeyword().has_value());
  EXPECT_EQ(walked(blocks), "**\n");
}

TEST(DeckBlocks, StaysAtTheEnd) {
  const DeckBlocks blocks = sample();
  DeckBlocks::Place place;
  Keyword comment;
  while (blocks.next(place, comment) != nullptr) {
  }
  EXPECT_EQ(blocks.next(place, comment), nullptr);
  EXPECT_EQ(place.keywords + place.comments, 5U);
}

}  // namespace
}  // namespace abqinp
