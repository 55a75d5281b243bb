#include "abqinp/ParameterList.h"

#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace abqinp {
namespace {

std::string written(const ParameterList& list) {
  std::ostringstream out;
  list.write(out, true);
  return out.str();
}

std::string sorted(const ParameterList& list) {
  std::ostringstream out;
  list.write(out, false);
  return out.str();
}

ParameterList listOf(const std::vector<std::string>& lines) {
  ParameterList list;
  for (const std::string& line : lines) {
    list.addLine(line);
  }
  return list;
}

TEST(ParameterList, SplitsAtTheFirstEqualsSign) {
  const ParameterList list = listOf({"A=1=2,B,C=,=D"});
  EXPECT_EQ(*list.find("A"), "1=2");
  EXPECT_EQ(*list.find("B"), "");
  EXPECT_EQ(*list.find("C"), "");
  EXPECT_EQ(*list.find(""), "D");
  EXPECT_EQ(list.find("D"), nullptr);
}

TEST(ParameterList, SkipsEmptyParameters) {
  EXPECT_EQ(written(listOf({",,B,,A,"})), ", B, A");
  EXPECT_EQ(written(listOf({"", ","})), "");
}

TEST(ParameterList, LeavesTheLeftOfTwoValuesOnOneLine) {
  const ParameterList list = listOf({"A=1,A=2"});
  EXPECT_EQ(*list.find("A"), "1");
  EXPECT_EQ(written(list), ", A=1, A=1");
  EXPECT_EQ(sorted(list), ", A=1");
}

TEST(ParameterList, OverwritesFromALaterLine) {
  const ParameterList list = listOf({"B=1,A=1,", "B=2,C"});
  EXPECT_EQ(*list.find("B"), "2");
  EXPECT_EQ(sorted(list), ", A=1, B=2, C");
  EXPECT_EQ(written(list), ", B=2, A=1, B=2, C");
}

TEST(ParameterList, InsertsALineBehindAsManyNamesAsThereWereDifferentOnes) {
  // After the first line the order is A A but one name: the second line comes in behind one.
  EXPECT_EQ(written(listOf({"A,A,", "B,C"})), ", A, B, C, A");
}

/// The order as an array into which each name of a line, from the right, is inserted at the place
/// that was the number of different names before the line.
std::string plainOrder(const std::vector<std::vector<std::string>>& lines) {
  std::map<std::string, std::string> values;
  std::vector<std::string> order;
  for (const auto& line : lines) {
    const auto place = static_cast<std::ptrdiff_t>(values.size());
    for (auto name = line.rbegin(); name != line.rend(); ++name) {
      values[*name];
      order.insert(order.begin() + place, *name);
    }
  }
  std::string text;
  for (const std::string& name : order) {
    text += ", " + name;
  }
  return text;
}

TEST(ParameterList, KeepsTheOrderOfAnArrayForRandomLines) {
  std::mt19937 random(5);
  for (int deck = 0; deck < 2000; ++deck) {
    ParameterList list;
    std::vector<std::vector<std::string>> lines(random() % 6);
    for (auto& line : lines) {
      std::string text;
      line.resize(random() % 5);
      for (std::string& name : line) {
        name = static_cast<char>('A' + random() % 6);
        text += name + ",";
      }
      list.addLine(text);
    }
    EXPECT_EQ(written(list), plainOrder(lines));
  }
}

}  // namespace
}  // namespace abqinp
