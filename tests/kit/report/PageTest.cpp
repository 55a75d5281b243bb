// SPDX-License-Identifier: BSD-3-Clause
#include "report/Page.h"

#include <string>

#include <gtest/gtest.h>

namespace lamkit {
namespace {

using Json = nlohmann::ordered_json;

std::size_t countOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t place = text.find(part); place != std::string::npos;
       place = text.find(part, place + part.size())) {
    ++count;
  }
  return count;
}

TEST(ReportPage, EmbedsDataChartsAndLicences) {
  const std::string page = reportPage("Title", Json::array({{{"name", "my ply"}}}));
  EXPECT_EQ(page.rfind("<!doctype html>", 0), 0U);
  EXPECT_NE(page.find("<title>Title</title>"), std::string::npos);
  EXPECT_NE(page.find("\"name\":\"my ply\""), std::string::npos);
  EXPECT_NE(page.find("var Plot="), std::string::npos);
  EXPECT_NE(page.find("Copyright 2020-2025 Observable, Inc."), std::string::npos);
}

TEST(ReportPage, LetsNoTextEndItsScript) {
  const std::string plain = reportPage("x", Json::array());
  const std::string page =
      reportPage("</title><script>alert(1)</script>", Json::array({"</script><!--"}));
  EXPECT_EQ(countOf(page, "</script>"), countOf(plain, "</script>"));
  EXPECT_EQ(countOf(page, "<script>"), countOf(plain, "<script>"));
  EXPECT_NE(page.find("&lt;/title&gt;"), std::string::npos);
}

TEST(Html, EscapesAndRepairsText) {
  EXPECT_EQ(htmlOf("a < b & \"c\" > d"), "a &lt; b &amp; &quot;c&quot; &gt; d");
  EXPECT_EQ(htmlOf("K\xE4rnten"), "K\xEF\xBF\xBDrnten");
}

}  // namespace
}  // namespace lamkit
