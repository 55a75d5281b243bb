// SPDX-License-Identifier: BSD-3-Clause
#include "folder/XmlReading.h"

#include <clocale>
#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace lamkit::xml {
namespace {

double numberIn(const std::string& text) {
  TiXmlElement element("E");
  element.SetAttribute("value", text);
  return number(element, "value");
}

TEST(XmlReading, ReadsWhatTheWriterWrites) {
  EXPECT_EQ(numberIn(" 1.50000000000000E+03"), 1500.0);
  EXPECT_EQ(numberIn("-1.50000000000000E-300"), -1.5e-300);
  EXPECT_EQ(numberIn("                  INF"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(numberIn("                 -INF"), -std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(numberIn("                  NAN")));
  EXPECT_TRUE(std::isnan(numberIn("                 -NAN")));
}

TEST(XmlReading, ReadsNumbersAlikeInEveryLocale) {
  if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr) {
    GTEST_SKIP() << "no German locale";
  }
  EXPECT_EQ(numberIn("1.5"), 1.5);
  EXPECT_THROW(numberIn("1,5"), Fault);
  std::setlocale(LC_NUMERIC, "C");
}

TEST(XmlReading, RefusesWhatIsNoNumber) {
  for (const char* const text : {"", "   ", "1.5x", "abc", "1 2", "0x10"}) {
    EXPECT_THROW(numberIn(text), Fault) << text;
  }
  TiXmlElement element("E");
  EXPECT_THROW((void)number(element, "value"), Fault);
  element.SetAttribute("value", "1.5");
  EXPECT_THROW((void)integer(element, "value"), Fault);
  EXPECT_THROW((void)child(element, "gone"), Fault);
}

TEST(XmlReading, CountsTheDepthOfElementsAlone) {
  EXPECT_TRUE(isShallow("<?xml?><a><b/><b/><b/></a>", 1));
  EXPECT_TRUE(isShallow("<a><b></b><b></b></a>", 2));
  EXPECT_FALSE(isShallow("<a><b></b><b></b></a>", 1));
  EXPECT_TRUE(isShallow("<<<<<", 0));
  EXPECT_TRUE(isShallow("", 0));
}

}  // namespace
}  // namespace lamkit::xml
