// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/MaterialXML.h"

#include <string>

#include <gtest/gtest.h>

#include "datafile/XmlExpectation.h"
#include "model/support/TestComposite.h"

namespace lamcraft {
namespace {

/// A writer whose own blocks are marks: the temperature that they are called for.
class MarkingXML : public MaterialXML {
 public:
  using MaterialXML::MaterialXML;

  void writeCompositeBlock(TiXmlElement& element,
                           const EnvironmentRecord& environment) const override {
    mark(element, "composite-block", environment);
  }
  void writeConstituentBlocks(TiXmlElement& element,
                              const EnvironmentRecord& environment) const override {
    mark(element, "constituent-blocks", environment);
  }

 private:
  void mark(TiXmlElement& into, const char* const tag, const EnvironmentRecord& environment) const {
    auto* const element = into.LinkEndChild(new TiXmlElement(tag))->ToElement();
    element->SetAttribute("temperature", static_cast<int>(environment.temperature));
    element->SetAttribute("fatigue", fatigueMode() ? 1 : 0);
    element->SetAttribute("material", composite().materialName.c_str());
  }
};

const char* const kZeroProps = R"(<props set='1'>
    <E11 value='#0'/><E22 value='#0'/><E33 value='#0'/>
    <NU12 value='#0'/><NU13 value='#0'/><NU23 value='#0'/>
    <G12 value='#0'/><G13 value='#0'/><G23 value='#0'/>
    <CTE11 value='#0'/><CTE22 value='#0'/><CTE33 value='#0'/></props>)";

TEST(MaterialXML, StartsWithADeclaration) {
  const std::string content = written<MarkingXML>(*testUni());
  const std::string declaration =
      "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\" ?>\n<ZRN ";
  EXPECT_EQ(content.substr(0, declaration.size()), declaration);
}

TEST(MaterialXML, DescribesAUnidirectionalComposite) {
  const auto uni = testUni();
  uni->materialName = "AS4/3501-6";
  uni->density = 1.6;
  uni->referenceTemperature.setValue(450.0);
  uni->plyThickness.setValue(0.125);
  uni->get("matrix").volumeFraction.setValue(0.4);
  uni->get("fiber").volumeFraction.setValue(0.6);
  const ReadBack file(written<MarkingXML>(*uni));
  EXPECT_TRUE(matches(file.root(), R"(<ZRN material='AS4/3501-6' version='6.0'>
      <composite>
        <density value='#1.6'/>
        <ncons value='2'/>
        <tref value='#450'/>
        <plyt value='#0.125'/>
      </composite>
      <constituent number='1' type='epoxy'>
        <name value='matrix'/><ncons value='1'/><VF value='#0.4'/>
      </constituent>
      <constituent number='2' type='carbon'>
        <name value='fiber'/><ncons value='1'/><VF value='#0.6'/>
      </constituent>
    </ZRN>)"));
}

TEST(MaterialXML, DescribesAWeaveWithItsUnitCellAndTows) {
  const auto weave = testWeave(5);
  weave->get("fill").volumeFraction.setValue(0.35);
  weave->get("matrixpocket").volumeFraction.setValue(-0.1);
  weave->get("fill_matrix").degradation = 0.1;
  weave->get("warp_fiber").degradation = 0.01;
  const ReadBack file(written<MarkingXML>(*weave));
  EXPECT_TRUE(matches(file.root(), R"(<ZRN material='' version='6.0'>
      <composite>
        <density value='#0'/>
        <ncons value='3'/>
        <unitcell value='1'/>
        <nharness value='5'/>
        <tref value='#0'/>
        <plyt value='#0'/>
      </composite>
      <constituent number='1'>
        <name value='matrixpocket'/><ncons value='1'/><VF value='#-0.1'/>
      </constituent>
      <constituent number='2' type='composite'>
        <name value='fill'/><ncons value='2'/><VF value='#0.35'/>
        <constituent number='1' type='epoxy'>
          <name value='fill_matrix'/><ncons value='1'/><VF value='#0'/><degradation value='#0.1'/>
        </constituent>
        <constituent number='2' type='carbon'>
          <name value='fill_fiber'/><ncons value='1'/><VF value='#0'/>
        </constituent>
      </constituent>
      <constituent number='3' type='composite'>
        <name value='warp'/><ncons value='2'/><VF value='#0'/>
        <constituent number='1' type='epoxy'>
          <name value='warp_matrix'/><ncons value='1'/><VF value='#0'/>
        </constituent>
        <constituent number='2' type='carbon'>
          <name value='warp_fiber'/><ncons value='1'/><VF value='#0'/><degradation value='#0.01'/>
        </constituent>
      </constituent>
      <constituent number='4' type='composite'>
        <name value='interface'/><ncons value='1'/><VF value='#0'/>
      </constituent>
    </ZRN>)"));
}

TEST(MaterialXML, GivesAUnitCellToWhoeverReportsThreeConstituents) {
  for (const int children : {0, 1, 2, 3, 4, 5}) {
    TestComposite composite;
    composite.harnessNumber = 8;
    for (int i = 0; i < children; ++i) {
      composite.add(phase(i + 1, "part", ""));
    }
    const ReadBack file(written<MarkingXML>(composite));
    const std::string expected = children == 3 || children == 4
                                     ? "density ncons unitcell nharness tref plyt "
                                     : "density ncons tref plyt ";
    EXPECT_EQ(childTags(file.at({"composite"})), expected) << children;
  }
}

TEST(MaterialXML, GivesEveryConstituentButTheMatrixPocketAType) {
  TestComposite composite;
  for (const char* const name : {"matrixpocket", "matrixpocket ", "Matrixpocket", "fiber"}) {
    composite.add(phase(1, name, ""));
  }
  const ReadBack file(written<MarkingXML>(composite));
  const TiXmlElement* element = file.at({"constituent"});
  for (const bool hasType : {false, true, true, true}) {
    ASSERT_NE(element, nullptr);
    EXPECT_EQ(element->Attribute("type") != nullptr, hasType);
    element = element->NextSiblingElement("constituent");
  }
}

TEST(MaterialXML, WritesOnlyPositiveDegradations) {
  for (const double degradation : {Constituent::kNotGiven, -0.0, 0.0, 1e-300, 0.5}) {
    const auto uni = testUni();
    uni->get("matrix").degradation = degradation;
    const ReadBack file(written<MarkingXML>(*uni));
    EXPECT_EQ(file.at({"constituent", "degradation"}) != nullptr, degradation > 0.0) << degradation;
  }
}

TEST(MaterialXML, WritesTheScatterOfCompositeAndConstituents) {
  const auto uni = testUni();
  uni->plyThickness.fill({{{0.1, 0.2}}});
  uni->referenceTemperature.fill({{{}, {1, 1}}});
  uni->get("matrix").volumeFraction.fill({{{0.1, 0.2}}});
  const ReadBack file(written<MarkingXML>(*uni));
  const std::string full = "normal truncatednormal weibull2 weibull3 ext_i_large ";
  EXPECT_EQ(childTags(file.at({"composite", "plyt"})), full);
  EXPECT_EQ(childTags(file.at({"composite", "tref"})), full);
  EXPECT_EQ(childTags(file.at({"constituent", "VF"})), full);
}

TEST(MaterialXML, WritesEnvironmentsInOrder) {
  const auto uni = testUni();
  uni->materialName = "M";
  uni->addEnvironment("DRY", 297.0);
  uni->addEnvironment("HUMID", 350.0);
  const ReadBack file(written<MarkingXML>(*uni));
  EXPECT_EQ(childTags(file.root()), "composite constituent constituent environment environment ");
  const std::string solver = R"(<solver>
      <elastic_constants initial='#0' final='#0' iterations='0'/>
      <thermal_expansion initial='#0' final='#0' iterations='0'/></solver>)";
  const TiXmlElement* const first = file.at({"environment"});
  EXPECT_TRUE(matches(first,
                      "<environment temperature='#297' moisture='dry'>" + solver + "<composite>" +
                          kZeroProps +
                          "<composite-block temperature='297' fatigue='0' material='M'/>"
                          "</composite>"
                          "<constituent-blocks temperature='297' fatigue='0' material='M'/>"
                          "</environment>"));
  EXPECT_TRUE(matches(first->NextSiblingElement(),
                      "<environment temperature='#350' moisture='ambient'>" + solver +
                          "<composite>" + kZeroProps +
                          "<composite-block temperature='350' fatigue='0' material='M'/>"
                          "</composite>"
                          "<constituent-blocks temperature='350' fatigue='0' material='M'/>"
                          "</environment>"));
}

EnvironmentRecord& solvedEnvironment(TestComposite& composite) {
  EnvironmentRecord& environment = composite.addEnvironment("WET", 300.0);
  environment.errors = {0.1, 0.2, 0.3, 0.4, 0.5, 0.6};
  environment.iterations = {7, 8, 9};
  return environment;
}

TEST(MaterialXML, WritesTheMechanicalAndTheThermalFit) {
  const auto uni = testUni();
  solvedEnvironment(*uni);
  const ReadBack file(written<MarkingXML>(*uni, false));
  EXPECT_TRUE(matches(file.at({"environment", "solver"}), R"(<solver>
      <elastic_constants initial='#0.1' final='#0.2' iterations='7'/>
      <thermal_expansion initial='#0.3' final='#0.4' iterations='8'/></solver>)"));
}

TEST(MaterialXML, WritesTheFatigueFitInFatigueMode) {
  const auto uni = testUni();
  solvedEnvironment(*uni);
  const ReadBack file(written<MarkingXML>(*uni, true));
  EXPECT_TRUE(matches(file.at({"environment", "solver"}), R"(<solver>
      <elastic_constants initial='#0.1' final='#0.2' iterations='7'/>
      <thermal_expansion initial='#0.3' final='#0.4' iterations='8'/>
      <fatigue initial='#0.5' final='#0.6' iterations='9'/></solver>)"));
  EXPECT_STREQ(file.at({"environment", "constituent-blocks"})->Attribute("fatigue"), "1");
}

TEST(MaterialXML, WritesLaminatesBetweenSolverAndComposite) {
  const auto uni = testUni();
  EnvironmentRecord& environment = solvedEnvironment(*uni);
  environment.laminates = {{"QI", {1, 2, 3, 4, 5}}, {"", {1, 1, 0, 0, 0}}};
  const ReadBack file(written<MarkingXML>(*uni));
  const TiXmlElement* const element = file.at({"environment"});
  EXPECT_EQ(childTags(element), "solver laminate laminate composite constituent-blocks ");
  const TiXmlElement* const first = element->FirstChildElement("laminate");
  EXPECT_TRUE(matches(first, R"(<laminate name='QI'>
      <thickness_strengthening c1='#1' c2='#2' c3='#3' c4='#4' c5='#5'/></laminate>)"));
  EXPECT_TRUE(matches(first->NextSiblingElement(), R"(<laminate name=''>
      <thickness_strengthening c1='#1' c2='#1' c3='#0' c4='#0' c5='#0'/></laminate>)"));
}

TEST(MaterialXML, WritesTheLaminaAsTheEffectiveSet) {
  const auto uni = testUni();
  EnvironmentRecord& environment = solvedEnvironment(*uni);
  environment.lamina.working(Property::g23) = 3.5;
  environment.lamina.publish();
  const ReadBack file(written<MarkingXML>(*uni));
  EXPECT_STREQ(file.at({"environment", "composite", "props"})->Attribute("set"), "1");
  EXPECT_STREQ(file.at({"environment", "composite", "props", "G23"})->Attribute("value"),
               " 3.50000000000000E+00");
}

TEST(MaterialXML, EscapesWhatXmlDemands) {
  const auto uni = testUni();
  uni->materialName = "a<b> & 'c' \xC3\xA4";
  const std::string content = written<MarkingXML>(*uni);
  EXPECT_NE(content.find("material=\"a&lt;b&gt; &amp; &apos;c&apos; \xC3\xA4\""), std::string::npos)
      << content;
}

TEST(MaterialXML, KeepsAnyPrintableText) {
  const auto uni = testUni();
  for (const char* const name : {"\"q\"", "'a' \"q\" <&>", "&amp;", " x "}) {
    uni->materialName = name;
    const ReadBack file(written<MarkingXML>(*uni));
    EXPECT_STREQ(file.root()->Attribute("material"), name);
  }
}

TEST(MaterialXML, StartsAfreshWhenItWritesAgain) {
  const auto uni = testUni();
  const std::string path = temporaryPath();
  MarkingXML writer(path);
  writer.writeDocument(*uni, false);
  const std::string once = contentOf(path);
  writer.writeDocument(*uni, false);
  EXPECT_EQ(contentOf(path), once);
  std::remove(path.c_str());
}

}  // namespace
}  // namespace lamcraft
