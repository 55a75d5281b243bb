// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/WeaveXML.h"

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "datafile/XmlExpectation.h"
#include "model/support/TestComposite.h"

namespace lamcraft {
namespace {

/// Makes every number of a slot say where it belongs: base + 100 row + column for the stresses,
/// rows and columns from 1; negative for the strains; 0.5 more for the thermal vectors.
void mark(DecompositionSlot& slot, const double base) {
  for (std::size_t column = 0; column < 6; ++column) {
    for (std::size_t row = 0; row < 6; ++row) {
      const double place = 100.0 * static_cast<double>(row + 1) + static_cast<double>(column + 1);
      slot.stress[6 * column + row] = base + place;  // stored column by column
      slot.strain[6 * column + row] = -(base + place);
    }
  }
  for (std::size_t i = 0; i < 6; ++i) {
    slot.thermalStress[i] = base + static_cast<double>(i + 1) + 0.5;
    slot.thermalStrain[i] = -(base + static_cast<double>(i + 1) + 0.5);
  }
}

constexpr double kState = 1e6;  ///< the bases of states, blocks and slots
constexpr double kBlock = 1e5;
constexpr double kSlot = 1e4;

DamageStateRecord markedState(const std::int32_t number) {
  DamageStateRecord record;
  record.state = number;
  const double base = kState * number;
  for (std::size_t slot = 0; slot < record.unitCell.size(); ++slot) {
    mark(record.unitCell[slot], base + 1.0 * kBlock + kSlot * static_cast<double>(slot));
  }
  for (std::size_t slot = 0; slot < record.fillTow.size(); ++slot) {
    mark(record.fillTow[slot], base + 2.0 * kBlock + kSlot * static_cast<double>(slot));
    mark(record.warpTow[slot], base + 3.0 * kBlock + kSlot * static_cast<double>(slot));
  }
  for (std::size_t set = 0; set < record.sets.size(); ++set) {
    for (std::size_t i = 0; i < kPropertyCount; ++i) {
      record.sets[set][i] = base + 100.0 * static_cast<double>(set) + static_cast<double>(i + 1);
    }
  }
  return record;
}

class WeaveXMLFile : public testing::Test {
 protected:
  WeaveXMLFile() : weave(testWeave(1)), environment(weave->addEnvironment("DRY", 300.0)) {
    environment.damageStates = {markedState(1), markedState(7), markedState(5)};
    environment.fatigueDamageStates = {markedState(2)};
  }

  [[nodiscard]] std::string content(const bool fatigueMode = false) const {
    return written<WeaveXML>(*weave, fatigueMode);
  }

  std::unique_ptr<TestComposite> weave;
  EnvironmentRecord& environment;
};

/// The environment's constituents, tows' phases included, by name.
std::map<std::string, const TiXmlElement*> constituentsOf(const TiXmlElement* const parent) {
  std::map<std::string, const TiXmlElement*> found;
  for (const TiXmlElement* child = parent->FirstChildElement("constituent"); child != nullptr;
       child = child->NextSiblingElement("constituent")) {
    found[child->FirstChildElement("name")->Attribute("value")] = child;
    found.merge(constituentsOf(child));
  }
  return found;
}

std::string numberText(const double value) {
  return spelledOut('#' + std::to_string(value));
}

/// The "set" attributes of the children with a tag, each followed by a blank.
std::string setNumbers(const TiXmlElement* const parent, const char* const tag) {
  std::string numbers;
  for (const TiXmlElement* child = parent->FirstChildElement(tag); child != nullptr;
       child = child->NextSiblingElement(tag)) {
    numbers += std::string(child->Attribute("set")) + ' ';
  }
  return numbers;
}

struct PlaceCase {
  const char* name;
  const char* number;
  const char* type;  ///< null: none
  int set;           ///< in the record; -1: none
  double slotBase;
};

const PlaceCase kPlaces[] = {
    {"matrixpocket", "1", nullptr, 1, 1 * kBlock + 1 * kSlot},
    {"fill", "2", "composite", 2, 1 * kBlock + 0 * kSlot},
    {"warp", "3", "composite", 3, 1 * kBlock + 2 * kSlot},
    {"interface", "4", "composite", -1, 1 * kBlock + 3 * kSlot},
    {"fill_fiber", "2", "carbon", 5, 2 * kBlock + 0 * kSlot},
    {"fill_matrix", "1", "epoxy", 6, 2 * kBlock + 1 * kSlot},
    {"warp_fiber", "2", "carbon", 7, 3 * kBlock + 0 * kSlot},
    {"warp_matrix", "1", "epoxy", 8, 3 * kBlock + 1 * kSlot},
};

TEST_F(WeaveXMLFile, HoldsPocketTowsAndInterfaceInOrder) {
  const ReadBack file(content());
  const TiXmlElement* const element = file.at({"environment"});
  EXPECT_EQ(childTags(element),
            "solver composite constituent constituent constituent constituent ");
  std::string names;
  for (const TiXmlElement* child = element->FirstChildElement("constituent"); child != nullptr;
       child = child->NextSiblingElement("constituent")) {
    names += std::string(child->FirstChildElement("name")->Attribute("value")) + ' ';
  }
  EXPECT_EQ(names, "matrixpocket fill warp interface ");
}

TEST_F(WeaveXMLFile, NumbersAndTypesConstituents) {
  const ReadBack file(content());
  const auto found = constituentsOf(file.at({"environment"}));
  ASSERT_EQ(found.size(), 8U);
  for (const PlaceCase& place : kPlaces) {
    const TiXmlElement& element = *found.at(place.name);
    EXPECT_STREQ(element.Attribute("number"), place.number) << place.name;
    EXPECT_STREQ(element.Attribute("type"), place.type) << place.name;
  }
}

TEST_F(WeaveXMLFile, PutsFiberBeforeMatrixBehindTheSetsOfATow) {
  const ReadBack file(content());
  const auto found = constituentsOf(file.at({"environment"}));
  for (const std::string tow : {"fill", "warp"}) {
    EXPECT_EQ(childTags(found.at(tow)),
              "name props props props decomp decomp decomp constituent constituent ");
    const TiXmlElement* const first = found.at(tow)->FirstChildElement("constituent");
    EXPECT_EQ(first, found.at(tow + "_fiber"));
    EXPECT_EQ(first->NextSiblingElement(), found.at(tow + "_matrix"));
  }
}

TEST_F(WeaveXMLFile, WritesAllStatesOfEveryConstituentInOrder) {
  const ReadBack file(content());
  const auto found = constituentsOf(file.at({"environment"}));
  for (const PlaceCase& place : kPlaces) {
    EXPECT_EQ(setNumbers(found.at(place.name), "decomp"), "1 7 5 ") << place.name;
    EXPECT_EQ(setNumbers(found.at(place.name), "props"), place.set < 0 ? "" : "1 7 5 ")
        << place.name;
  }
}

TEST_F(WeaveXMLFile, TakesEachPropertySetFromItsPlaceInTheRecord) {
  const ReadBack file(content());
  const auto found = constituentsOf(file.at({"environment"}));
  for (const PlaceCase& place : kPlaces) {
    const TiXmlElement* props = found.at(place.name)->FirstChildElement("props");
    for (const int state : {1, 7, 5}) {
      if (place.set < 0) {
        break;
      }
      const double base = kState * state + 100.0 * place.set;
      EXPECT_EQ(props->FirstChildElement("E11")->Attribute("value"), numberText(base + 1.0));
      EXPECT_EQ(props->FirstChildElement("CTE33")->Attribute("value"), numberText(base + 12.0));
      props = props->NextSiblingElement("props");
    }
  }
}

/// The element that a marked slot must give.
std::string expectedDecomposition(const int state, const double slotBase) {
  const double base = kState * state + slotBase;
  std::string stress;
  std::string strain;
  for (int row = 1; row <= 6; ++row) {
    for (int column = 1; column <= 6; ++column) {
      const std::string tag = "<D" + std::to_string(row) + std::to_string(column) + " value='#";
      const double place = base + 100.0 * row + column;
      stress += tag + std::to_string(place) + "'/>";
      strain += tag + std::to_string(-place) + "'/>";
    }
  }
  std::string thermalStress;
  std::string thermalStrain;
  for (int i = 1; i <= 6; ++i) {
    const std::string tag = "<D1" + std::to_string(i) + " value='#";
    thermalStress += tag + std::to_string(base + i + 0.5) + "'/>";
    thermalStrain += tag + std::to_string(-(base + i + 0.5)) + "'/>";
  }
  return "<decomp set='" + std::to_string(state) + "'><stress>" + stress + "</stress><strain>" +
         strain + "</strain><Tstress>" + thermalStress + "</Tstress><Tstrain>" + thermalStrain +
         "</Tstrain></decomp>";
}

TEST_F(WeaveXMLFile, TakesEachDecompositionFromItsSlotColumnByColumn) {
  const ReadBack file(content());
  const auto found = constituentsOf(file.at({"environment"}));
  for (const PlaceCase& place : kPlaces) {
    const TiXmlElement* decomposition = found.at(place.name)->FirstChildElement("decomp");
    for (const int state : {1, 7, 5}) {
      EXPECT_TRUE(matches(decomposition, expectedDecomposition(state, place.slotBase)))
          << place.name << ", state " << state;
      decomposition = decomposition->NextSiblingElement("decomp");
    }
  }
}

TEST_F(WeaveXMLFile, LeavesTheFirstStateToTheEffectiveSetOfTheComposite) {
  const double lamina[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  environment.lamina.load(lamina, Symmetry::orthotropic);
  const ReadBack file(content());
  const TiXmlElement* const composite = file.at({"environment", "composite"});
  EXPECT_EQ(childTags(composite), "props props props failcoeffs fatigue prefailNL ");
  EXPECT_EQ(setNumbers(composite, "props"), "1 7 5 ");
  const TiXmlElement* props = composite->FirstChildElement("props");
  EXPECT_EQ(props->FirstChildElement("E11")->Attribute("value"), numberText(1.0));
  props = props->NextSiblingElement("props");
  EXPECT_EQ(props->FirstChildElement("E11")->Attribute("value"), numberText(7e6 + 1.0));
}

TEST_F(WeaveXMLFile, WritesOneStateOnlyUnderTheConstituents) {
  environment.damageStates = {markedState(9)};
  const ReadBack file(content());
  EXPECT_EQ(setNumbers(file.at({"environment", "composite"}), "props"), "1 ");
  for (const auto& [name, element] : constituentsOf(file.at({"environment"}))) {
    EXPECT_EQ(setNumbers(element, "decomp"), "9 ") << name;
    EXPECT_EQ(setNumbers(element, "props"), name == "interface" ? "" : "9 ") << name;
  }
}

TEST_F(WeaveXMLFile, CopesWithoutAnyState) {
  environment.damageStates.clear();
  const ReadBack file(content());
  EXPECT_EQ(setNumbers(file.at({"environment", "composite"}), "props"), "1 ");
  EXPECT_EQ(childTags(constituentsOf(file.at({"environment"})).at("fill")),
            "name constituent constituent ");
}

TEST_F(WeaveXMLFile, WritesKneeAndUltimateStrengths) {
  for (std::size_t i = 0; i < kStrengthCount; ++i) {
    environment.strengths[i].setValue(static_cast<double>(i + 1));
  }
  const ReadBack file(content());
  EXPECT_TRUE(matches(file.at({"environment", "composite", "failcoeffs"}), R"(<failcoeffs>
      <PS11K value='#1'/><PS11U value='#2'/><NS11K value='#3'/><NS11U value='#4'/>
      <S12K value='#5'/><S12U value='#6'/></failcoeffs>)"));
}

TEST_F(WeaveXMLFile, WritesTestsAndShearLawAsUnidirectionalFilesDo) {
  weave->presence.nlShear = true;
  environment.snRecords = {{1, 2, 3, 4, 5}};
  environment.shearStress = {10};
  environment.shearStrain = {0.001};
  environment.prefail = {1, 2, 3, {4, 5, 6}};
  const ReadBack file(content());
  EXPECT_TRUE(matches(file.at({"environment", "composite", "fatigue"}),
                      "<fatigue><SN stress='#1' life='#2' f='#3' R='#5' theta='#4'/></fatigue>"));
  EXPECT_TRUE(
      matches(file.at({"environment", "composite", "prefailNL"}), R"(<prefailNL exists='yes'>
      <sheardeg m='#1' b='#2' thr='#3' c2mdeg0='#4' c2mdeg1='#5' c2mdeg2='#6'/>
      <shear_ss><pt stress='#10' strain='#0.001'/></shear_ss></prefailNL>)"));
}

TEST_F(WeaveXMLFile, HasNoUnidirectionalBlocks) {
  weave->presence.fracture = true;
  weave->presence.delam = true;
  environment.invariants.front().setValue(1.0);
  const ReadBack file(content());
  EXPECT_EQ(childTags(file.at({"environment", "composite"})),
            "props props props failcoeffs fatigue prefailNL ");
}

TEST_F(WeaveXMLFile, HasNoFatigueConstantsOutsideFatigueMode) {
  environment.resultRows = {{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}, {}, {}};
  const ReadBack file(content(false));
  for (const auto& [name, element] : constituentsOf(file.at({"environment"}))) {
    EXPECT_EQ(element->FirstChildElement("fatigue"), nullptr) << name;
  }
}

TEST_F(WeaveXMLFile, InFatigueModeUsesFatigueStatesAndConstants) {
  environment.resultRows = {{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}, {}, {}};
  const ReadBack file(content(true));
  for (const auto& [name, element] : constituentsOf(file.at({"environment"}))) {
    const bool isTowMatrix = name == "fill_matrix" || name == "warp_matrix";
    EXPECT_EQ(element->FirstChildElement("fatigue") != nullptr, isTowMatrix) << name;
    EXPECT_EQ(setNumbers(element, "decomp"), "2 ") << name;
    if (isTowMatrix) {
      EXPECT_EQ(childTags(element), "name fatigue props decomp ");
    }
  }
}

TEST_F(WeaveXMLFile, WritesTheEighteenStatesOfAWeave) {
  environment.damageStates = allDamageStates();
  const ReadBack file(content());
  const std::string all = "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 ";
  EXPECT_EQ(setNumbers(file.at({"environment", "composite"}), "props"), all);
  EXPECT_EQ(setNumbers(constituentsOf(file.at({"environment"})).at("warp_fiber"), "decomp"), all);
}

}  // namespace
}  // namespace lamcraft
