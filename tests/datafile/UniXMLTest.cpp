// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/UniXML.h"

#include <string>

#include <gtest/gtest.h>

#include "datafile/GermanLocale.h"
#include "datafile/XmlExpectation.h"
#include "model/support/TestComposite.h"

namespace lamcraft {
namespace {

class UniXMLFile : public testing::Test {
 protected:
  UniXMLFile() : uni(testUni()), environment(uni->addEnvironment("DRY", 300.0)) {}

  [[nodiscard]] std::string content(const bool fatigueMode = false) const {
    return written<UniXML>(*uni, fatigueMode);
  }

  std::unique_ptr<TestComposite> uni;
  EnvironmentRecord& environment;
};

template <std::size_t N>
void number(std::array<VariableProperty, N>& properties) {
  for (std::size_t i = 0; i < N; ++i) {
    properties[i].setValue(static_cast<double>(i + 1));
  }
}

TEST_F(UniXMLFile, RepeatsTheStrengthsOfDirectionTwoForThree) {
  number(environment.strengths);
  const ReadBack file(content());
  EXPECT_TRUE(matches(file.at({"environment", "composite", "failcoeffs"}), R"(<failcoeffs>
      <pS11 value='#1'/><nS11 value='#2'/>
      <pS22 value='#3'/><nS22 value='#4'/>
      <pS33 value='#3'/><nS33 value='#4'/>
      <S12 value='#5'/><S13 value='#5'/><S23 value='#6'/></failcoeffs>)"));
}

TEST_F(UniXMLFile, RepeatsTheScatterOfDirectionTwoForThree) {
  for (std::size_t i = 0; i < kStrengthCount; ++i) {
    const auto seed = static_cast<double>(i);
    environment.strengths[i].fill({{{seed, seed + 1.0}, {seed, seed, seed}}});
  }
  const ReadBack file(content());
  const TiXmlElement& strengths = *file.at({"environment", "composite", "failcoeffs"});
  for (const auto& [copy, original] :
       {std::pair{"pS33", "pS22"}, {"nS33", "nS22"}, {"S13", "S12"}}) {
    TiXmlElement expected(*strengths.FirstChildElement(original));
    expected.SetValue(copy);
    EXPECT_EQ(childTags(&expected), "normal truncatednormal weibull2 weibull3 ext_i_large ");
    EXPECT_EQ(difference(expected, *strengths.FirstChildElement(copy)), "");
  }
}

TEST_F(UniXMLFile, OrdersCompositeBlocks) {
  environment.invariants.front().setValue(0.1);
  uni->presence.fracture = true;
  uni->presence.delam = true;
  const ReadBack file(content());
  EXPECT_EQ(childTags(file.at({"environment", "composite"})),
            "props failcoeffs fatigue critical_invariants fracture cohesive prefailNL ");
}

TEST_F(UniXMLFile, WritesOnlyWhatTheDeckGave) {
  const ReadBack file(content());
  EXPECT_EQ(childTags(file.at({"environment", "composite"})),
            "props failcoeffs fatigue prefailNL ");
  EXPECT_TRUE(matches(file.at({"environment", "composite", "fatigue"}), "<fatigue/>"));
}

TEST_F(UniXMLFile, WritesTheRatioOfAFatigueTestBeforeItsAngle) {
  environment.snRecords = {{1, 2, 3, 4, 5}, {100, 1e6, 10, 45, 0.1}};
  const ReadBack file(content());
  EXPECT_TRUE(matches(file.at({"environment", "composite", "fatigue"}), R"(<fatigue>
      <SN stress='#1' life='#2' f='#3' R='#5' theta='#4'/>
      <SN stress='#100' life='#1e6' f='#10' R='#0.1' theta='#45'/></fatigue>)"));
}

TEST_F(UniXMLFile, WritesCriticalInvariants) {
  number(environment.invariants);
  const ReadBack file(content());
  EXPECT_TRUE(
      matches(file.at({"environment", "composite", "critical_invariants"}), R"(<critical_invariants>
      <dilatation value='#1'/><distortion value='#2'/>
      <tensileFiberDistortion value='#3'/><compressiveFiberDistortion value='#4'/>
      <tensileStrain value='#5'/><compressiveStrain value='#6'/></critical_invariants>)"));
}

TEST_F(UniXMLFile, WritesNoInvariantsWithoutADilatation) {
  number(environment.invariants);
  for (const double dilatation : {0.0, -1.0}) {
    environment.invariants.front().setValue(dilatation);
    const ReadBack file(content());
    EXPECT_EQ(file.at({"environment", "composite", "critical_invariants"}), nullptr);
  }
}

TEST_F(UniXMLFile, WritesFractureInItsOwnOrder) {
  uni->presence.fracture = true;
  number(environment.fracture);  // GftC, GfcC, GmC, GmnC, GmsC, alpha
  const ReadBack file(content());
  EXPECT_TRUE(matches(file.at({"environment", "composite", "fracture"}), R"(<fracture>
      <GmC value='#3'/><GmnC value='#4'/><GmsC value='#5'/><alpha value='#6'/>
      <GftC value='#1'/><GfcC value='#2'/></fracture>)"));
}

TEST_F(UniXMLFile, WritesFifteenCohesiveProperties) {
  uni->presence.delam = true;
  number(environment.cohesive);
  const ReadBack file(content());
  EXPECT_TRUE(matches(file.at({"environment", "composite", "cohesive"}), R"(<cohesive>
      <Knn value='#1'/><Kss value='#2'/><Ktt value='#3'/>
      <Sn value='#4'/><Ss value='#5'/><St value='#6'/><dmf_dm0 value='#7'/>
      <GC value='#8'/><GnC value='#9'/><GsC value='#10'/><GtC value='#11'/><alpha value='#12'/>
      <d2n value='#13'/><d2s value='#14'/><d2t value='#15'/></cohesive>)"));
}

TEST_F(UniXMLFile, WritesTheShearLawAndItsCurve) {
  uni->presence.nlShear = true;
  environment.shearStress = {10, 20};
  environment.shearStrain = {0.001, 0.004};
  environment.prefail = {1, 2, 3, {4, 5, 6}};
  const ReadBack file(content());
  EXPECT_TRUE(
      matches(file.at({"environment", "composite", "prefailNL"}), R"(<prefailNL exists='yes'>
      <sheardeg m='#1' b='#2' thr='#3' c2mdeg0='#4' c2mdeg1='#5' c2mdeg2='#6'/>
      <shear_ss><pt stress='#10' strain='#0.001'/><pt stress='#20' strain='#0.004'/></shear_ss>
      </prefailNL>)"));
}

TEST_F(UniXMLFile, SaysThatThereIsNoShearLaw) {
  const auto prefail = [this] {
    const ReadBack file(content());
    return matches(file.at({"environment", "composite", "prefailNL"}), "<prefailNL exists='no'/>");
  };
  uni->presence.nlShear = true;
  EXPECT_TRUE(prefail()) << "an empty curve";
  uni->presence.nlShear = false;
  environment.shearStress = {10};
  environment.shearStrain = {0.001};
  EXPECT_TRUE(prefail()) << "a curve of another deck's";
}

TEST_F(UniXMLFile, WritesMatrixThenFiber) {
  environment.matrix.working(Property::e11) = 4.0;
  environment.fiber.working(Property::e11) = 200.0;
  environment.matrix.publish();
  environment.fiber.publish();
  const ReadBack file(content());
  EXPECT_EQ(childTags(file.at({"environment"})), "solver composite constituent constituent ");
  const std::string rest = R"(<E22 value='#0'/><E33 value='#0'/>
      <NU12 value='#0'/><NU13 value='#0'/><NU23 value='#0'/>
      <G12 value='#0'/><G13 value='#0'/><G23 value='#0'/>
      <CTE11 value='#0'/><CTE22 value='#0'/><CTE33 value='#0'/></props></constituent>)";
  const TiXmlElement* const matrix = file.at({"environment", "constituent"});
  EXPECT_TRUE(matches(matrix,
                      "<constituent number='1' type='epoxy'><name value='matrix'/>"
                      "<props set='1'><E11 value='#4'/>" +
                          rest));
  EXPECT_TRUE(matches(matrix->NextSiblingElement(),
                      "<constituent number='2' type='carbon'><name value='fiber'/>"
                      "<props set='1'><E11 value='#200'/>" +
                          rest));
}

TEST_F(UniXMLFile, WritesFatigueConstantsOfTheMatrixInFatigueMode) {
  environment.resultRows = {{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}};
  const ReadBack file(content(true));
  const TiXmlElement* const matrix = file.at({"environment", "constituent"});
  EXPECT_EQ(childTags(matrix), "name props fatigue ");
  EXPECT_TRUE(matches(matrix->FirstChildElement("fatigue"), R"(<fatigue>
      <longitudinal>
        <U><breaking value='#1'/><healing value='#2'/></U>
        <gamma><breaking value='#3'/><healing value='#4'/></gamma>
        <Psi value='#5'/><k value='#6'/>
      </longitudinal>
      <transverse>
        <U><breaking value='#7'/><healing value='#8'/></U>
        <gamma><breaking value='#9'/><healing value='#10'/></gamma>
        <Psi value='#11'/><k value='#12'/>
      </transverse></fatigue>)"));
  EXPECT_EQ(childTags(matrix->NextSiblingElement()), "name props ");
}

TEST_F(UniXMLFile, WritesNoFatigueConstantsOtherwise) {
  const auto matrixTags = [this](const bool fatigueMode) {
    const ReadBack file(content(fatigueMode));
    return childTags(file.at({"environment", "constituent"}));
  };
  environment.resultRows = {{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}};
  EXPECT_EQ(matrixTags(false), "name props ");
  environment.resultRows[0][0] = 0.0;
  EXPECT_EQ(matrixTags(true), "name props ");
  environment.resultRows.clear();  // never solved
  EXPECT_EQ(matrixTags(true), "name props ");
}

TEST_F(UniXMLFile, WritesFatigueConstantsOnlyOfAMatrixNumberedOne) {
  TestComposite swapped;
  swapped.add(phase(2, constituents::kMatrix, ""));
  swapped.add(phase(1, constituents::kFiber, ""));
  swapped.addEnvironment("DRY", 300.0).resultRows = {{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}};
  const ReadBack file(written<UniXML>(swapped, true));
  const TiXmlElement* const matrix = file.at({"environment", "constituent"});
  EXPECT_EQ(childTags(matrix), "name props ");
  EXPECT_EQ(childTags(matrix->NextSiblingElement()), "name props fatigue ");
}

/// The composite of goldenUni.xml.
std::unique_ptr<TestComposite> goldenUni() {
  auto uni = testUni();
  uni->materialName = "GOLDEN & SONS";
  uni->density = 1580.0;
  uni->referenceTemperature.setValue(450.0);
  uni->plyThickness.setValue(1.25e-4);
  uni->plyThickness.fill({{{1e-4, 2e-4}, {1.25e-4, 1e-5}}});
  uni->get(constituents::kMatrix).volumeFraction.setValue(0.375);
  uni->get(constituents::kFiber).volumeFraction.setValue(0.625);
  uni->presence.nlShear = true;
  EnvironmentRecord& environment = uni->addEnvironment("WET", 297.0);
  environment.errors = {0.5, 0.25, 0.125, 0.0625, 2.0, 1.0};
  environment.iterations = {12, 3, 41};
  const double lamina[] = {1.4e11, 9e9, 0, 0.25, 0, 0.5, 5e9, 0, 0, -5e-7, 2.5e-5, 0};
  const double fiber[] = {2.2e11, 1.5e10, 0, 0.25, 0, 0.25, 1.5e10, 0, 0, -1e-6, 1e-5, 0};
  const double matrix[] = {4e9, 0, 0, 0.25, 0, 0, 0, 0, 0, 5e-5, 0, 0};
  environment.lamina.load(lamina, Symmetry::transverse23);
  environment.fiber.load(fiber, Symmetry::transverse23);
  environment.matrix.load(matrix, Symmetry::isotropic);
  for (std::size_t i = 0; i < kStrengthCount; ++i) {
    environment.strengths[i].setValue(1e6 * static_cast<double>(i + 1));
  }
  environment.laminates = {{"QI", {1, 1, 0, 0, 0}}};
  environment.snRecords = {{8e8, 1e5, 10, 90, 0.1}};
  environment.shearStress = {1e7};
  environment.shearStrain = {0.002};
  environment.prefail = {0.5, 0.75, 1e7, {1, -2, 3}};
  environment.resultRows = {{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}};
  return uni;
}

TEST(UniXML, WritesExactlyTheseBytes) {
  const std::string expected = contentOf(LAMCRAFT_TEST_DATA "/datafile/goldenUni.xml");
  ASSERT_FALSE(expected.empty());
  EXPECT_EQ(written<UniXML>(*goldenUni(), true), expected);
}

TEST(UniXML, WritesTheSameBytesInAGermanLocale) {
  const std::string expected = contentOf(LAMCRAFT_TEST_DATA "/datafile/goldenUni.xml");
  const GermanLocale german;
  ASSERT_EQ(german.printed(1.5), "1,5");  // else this test shows nothing
  EXPECT_EQ(written<UniXML>(*goldenUni(), true), expected);
}

}  // namespace
}  // namespace lamcraft
