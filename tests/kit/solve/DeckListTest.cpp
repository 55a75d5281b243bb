// SPDX-License-Identifier: BSD-3-Clause
#include "solve/DeckList.h"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "command/Context.h"

namespace lamkit {
namespace {

TEST(DeckList, NamesFoldersAfterDecks) {
  const auto jobs = jobsOf({"a.qdk", "some/where/b.c.qdk", "../d", "e"});
  ASSERT_EQ(jobs.size(), 4U);
  EXPECT_EQ(jobs[0].name, "a");
  EXPECT_EQ(jobs[1].name, "b.c");
  EXPECT_EQ(jobs[1].deck, "some/where/b.c.qdk");
  EXPECT_EQ(jobs[2].name, "d");
  EXPECT_EQ(jobs[3].name, "e");
}

TEST(DeckList, RefusesNamesThatLeadElsewhere) {
  for (const char* const deck : {"", "..", ".", "...qdk", "..qdk", ".a.part.qdk", "a/", "a/.."}) {
    EXPECT_THROW((void)jobsOf({deck}), Failure) << deck;
  }
}

TEST(DeckList, RefusesTwoDecksOfOneName) {
  try {
    (void)jobsOf({"x/a.qdk", "b.qdk", "y/a.inp"});
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(),
                 "y/a.inp: its folder would be that of x/a.qdk: rename one of them");
  }
}

TEST(DeckList, ReadsChunks) {
  const auto chunk = chunkFrom("3/8");
  ASSERT_TRUE(chunk.has_value());
  EXPECT_EQ(chunk->index, 3U);
  EXPECT_EQ(chunk->count, 8U);
  EXPECT_TRUE(chunkFrom("1/1"));
  for (const char* const text : {"",
                                 "3",
                                 "/",
                                 "0/8",
                                 "9/8",
                                 "-1/8",
                                 "1/0",
                                 "a/8",
                                 "1/8x",
                                 " 1/8",
                                 "1/ 8",
                                 "1.5/8",
                                 "+1/8",
                                 "99999999999999999999999/8"}) {
    EXPECT_FALSE(chunkFrom(text)) << text;
  }
}

TEST(DeckList, SharesEveryDeckOutToOneChunk) {
  std::vector<std::string> decks;
  for (int i = 0; i < 21; ++i) {
    decks.push_back("d" + std::to_string(i));
  }
  const auto jobs = jobsOf(decks);
  std::vector<int> taken(decks.size(), 0);
  for (std::size_t i = 1; i <= 8; ++i) {
    for (const DeckJob& job : shareOf(jobs, {i, 8})) {
      ++taken[std::stoul(job.name.substr(1))];
    }
  }
  EXPECT_EQ(taken, std::vector<int>(decks.size(), 1));
  EXPECT_EQ(shareOf(jobs, {2, 8}).at(1).name, "d9");
  EXPECT_TRUE(shareOf(jobs, {30, 40}).empty());
}

TEST(DeckList, ReadsOneDeckALine) {
  std::istringstream in("a b.qdk\r\n\nc.qdk");
  EXPECT_EQ(readDeckList(in), (std::vector<std::string>{"a b.qdk", "c.qdk"}));
}

}  // namespace
}  // namespace lamkit
