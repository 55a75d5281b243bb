// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/XmlElements.h"

#include <gtest/gtest.h>

#include "datafile/XmlExpectation.h"

namespace lamcraft::xml {
namespace {

VariableProperty property(const double value, const VariationTable& table) {
  VariableProperty made;
  made.setValue(value);
  made.fill(table);
  return made;
}

TEST(XmlElements, NumbersAndIntegersAreValueAttributes) {
  TiXmlElement parent("parent");
  appendNumber(parent, "number", -2.5);
  appendInteger(parent, "integer", -25);
  EXPECT_TRUE(matches(&parent,
                      "<parent><number value='-2.50000000000000E+00'/>"
                      "<integer value='-25'/></parent>"));
}

TEST(PropertyElement, OfAnUnvariedPropertyIsItsValue) {
  TiXmlElement parent("parent");
  appendProperty(parent, "tref", property(297.0, {}));
  EXPECT_TRUE(matches(&parent, "<parent><tref value='#297'/></parent>"));
}

TEST(PropertyElement, OfAVariedPropertyHoldsRangeAndFiveDistributions) {
  TiXmlElement parent("parent");
  appendProperty(
      parent,
      "plyt",
      property(2.0, {{{1.5, 2.5}, {11, 12}, {21, 22, 23, 24}, {31, 32}, {41, 42, 43}, {51, 52}}}));
  EXPECT_TRUE(matches(&parent, R"(<parent>
      <plyt value='#2' min='#1.5' max='#2.5'>
        <normal mean='#11' stddev='#12'/>
        <truncatednormal mean='#21' stddev='#22' lowerbound='#23' upperbound='#24'/>
        <weibull2 shapeparam='#31' charvalue='#32'/>
        <weibull3 shapeparam='#41' charvalue='#42' locationparam='#43'/>
        <ext_i_large charlargevalue='#51' beta='#52'/>
      </plyt>
    </parent>)"));
}

TEST(PropertyElement, WithARangeAloneStillHoldsFiveDistributions) {
  TiXmlElement parent("parent");
  appendProperty(parent, "VF", property(0.6, {{{0.55, 0.65}}}));
  EXPECT_TRUE(matches(&parent, R"(<parent>
      <VF value='#0.6' min='#0.55' max='#0.65'>
        <normal mean='#0' stddev='#0'/>
        <truncatednormal mean='#0' stddev='#0' lowerbound='#0' upperbound='#0'/>
        <weibull2 shapeparam='#0' charvalue='#0'/>
        <weibull3 shapeparam='#0' charvalue='#0' locationparam='#0'/>
        <ext_i_large charlargevalue='#0' beta='#0'/>
      </VF>
    </parent>)"));
}

TEST(PropertyElement, TakesARangeOfRoundingForNone) {
  TiXmlElement parent("parent");
  appendProperty(parent, "a", property(1.0, {{{1.0, 1.0 + 5e-14}}}));
  appendProperty(parent, "b", property(1.0, {{{1.0, 1.0 + 2e-13}}}));
  EXPECT_EQ(childTags(parent.FirstChildElement("a")), "");
  EXPECT_EQ(childTags(parent.FirstChildElement("b")),
            "normal truncatednormal weibull2 weibull3 ext_i_large ");
}

TEST(PropertyElement, IsFullForTheSpreadOfAnyDistribution) {
  const VariationTable spreads[] = {{{{}, {0, 1}}},
                                    {{{}, {}, {0, 1}}},
                                    {{{}, {}, {}, {0, 1}}},
                                    {{{}, {}, {}, {}, {0, 1}}},
                                    {{{}, {}, {}, {}, {}, {0, 1}}}};
  for (const VariationTable& table : spreads) {
    TiXmlElement parent("parent");
    appendProperty(parent, "p", property(1.0, table));
    EXPECT_EQ(childTags(parent.FirstChildElement("p")),
              "normal truncatednormal weibull2 weibull3 ext_i_large ");
    EXPECT_STREQ(parent.FirstChildElement("p")->Attribute("min"), " 0.00000000000000E+00");
  }
}

TEST(PropertyElement, WithAMeanAloneIsItsValue) {
  TiXmlElement parent("parent");
  appendProperty(parent, "p", property(1.0, {{{}, {5, 0}, {6, 0, 7, 8}, {9, 0}, {9, 0, 9}, {9}}}));
  EXPECT_TRUE(matches(&parent, "<parent><p value='#1'/></parent>"));
}

TEST(PropertySetElement, HoldsTheTwelveInOrder) {
  const double values[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  PropertySet set;
  set.load(values, Symmetry::orthotropic);
  set.working(Property::e11) = 99.0;  // not published, so not in the file
  TiXmlElement parent("parent");
  appendPropertySet(parent, 17, set);
  EXPECT_TRUE(matches(&parent, R"(<parent>
      <props set='17'>
        <E11 value='#1'/><E22 value='#2'/><E33 value='#3'/>
        <NU12 value='#4'/><NU13 value='#5'/><NU23 value='#6'/>
        <G12 value='#7'/><G13 value='#8'/><G23 value='#9'/>
        <CTE11 value='#10'/><CTE22 value='#11'/><CTE33 value='#12'/>
      </props>
    </parent>)"));
}

TEST(PropertySetElement, VariesSingleProperties) {
  PropertySet set;
  set.variables()[indexOf(Property::v23)].fill({{{0.2, 0.4}}});
  TiXmlElement parent("parent");
  appendPropertySet(parent, 1, set);
  const TiXmlElement& props = *parent.FirstChildElement("props");
  EXPECT_EQ(childTags(&props), "E11 E22 E33 NU12 NU13 NU23 G12 G13 G23 CTE11 CTE22 CTE33 ");
  for (const TiXmlElement* child = props.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    EXPECT_EQ(child->NoChildren(), std::string(child->Value()) != "NU23") << child->Value();
  }
}

}  // namespace
}  // namespace lamcraft::xml
