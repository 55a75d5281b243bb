// SPDX-License-Identifier: BSD-3-Clause
#include "folder/MaterialData.h"

#include <algorithm>
#include <cstdlib>
#include <regex>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "datafile/UniXML.h"
#include "datafile/WeaveXML.h"
#include "folder/MaterialFolder.h"
#include "kit/folder/AllNumbers.h"
#include "model/support/DistinctSets.h"
#include "model/support/TestComposite.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

using lamcraft::test::contentOf;
using lamcraft::test::TemporaryFolder;

lamcraft::VariableProperty varied(const double value) {
  lamcraft::VariableProperty property;
  property.setValue(value);
  property.fill(lamcraft::scatterOf(value));
  return property;
}

/// An environment that holds everything that can be in one.
void fill(lamcraft::EnvironmentRecord& environment) {
  environment.laminates.push_back({"QI", {1.0, 2.0, 3.0, 4.0, 5.0}});
  environment.laminates.push_back({"cross", {1.0, 2.0, 3.0, 4.0, 5.0}});
  environment.lamina = lamcraft::distinctSet(lamcraft::Symmetry::orthotropic);
  environment.fiber = lamcraft::distinctSet(lamcraft::Symmetry::orthotropic);
  environment.matrix = lamcraft::distinctSet(lamcraft::Symmetry::orthotropic);
  const auto vary = [](auto& group) {
    for (auto& property : group) {
      property = varied(7.0);
    }
  };
  vary(environment.strengths);
  vary(environment.invariants);
  vary(environment.fracture);
  vary(environment.cohesive);
  environment.snRecords = {{1.0, 2.0, 3.0, 4.0, 5.0}, {1.0, 2.0, 3.0, 4.0, 5.0}};
  environment.shearStress = {1.0, 2.0};
  environment.shearStrain = {1.0, 2.0};
  environment.resultRows = {{1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}};
}

void fillHead(lamcraft::Composite& composite) {
  composite.materialName = "m";
  composite.presence = {true, true, true, true, true};
  composite.plyThickness = varied(1.0);
  composite.referenceTemperature = varied(2.0);
  for (const auto* const child : composite.children()) {
    auto& constituent = composite.get(child->name());
    constituent.volumeFraction = varied(3.0);
    constituent.degradation = 1.0;
  }
}

/// The data file of a unidirectional material with two environments, fatigue data included.
std::string uniFile() {
  const auto uni = lamcraft::testUni();
  fillHead(*uni);
  fill(uni->addEnvironment("DRY", 300.0));
  fill(uni->addEnvironment("WET", 350.0));
  const TemporaryFolder folder;
  lamcraft::UniXML(folder.file("f.xml")).writeDocument(*uni, true);
  return contentOf(folder.path() / "f.xml");
}

std::string weaveFile() {
  const auto weave = lamcraft::testWeave(5);
  fillHead(*weave);
  auto& environment = weave->addEnvironment("DRY", 300.0);
  fill(environment);
  environment.damageStates = lamcraft::allDamageStates();
  const TemporaryFolder folder;
  lamcraft::WeaveXML(folder.file("f.xml")).writeDocument(*weave, false);
  return contentOf(folder.path() / "f.xml");
}

/// The file with every number replaced by another one, 1, 2, 3 ... in the order of the text, and
/// how many that are. Names and the versions stay.
std::string renumbered(const std::string& file, double& count) {
  static const std::regex kNumber("=\" ?[-0-9][-+.0-9E]*\"");
  std::string result;
  auto at = file.begin();
  for (std::sregex_iterator match(file.begin(), file.end(), kNumber), end; match != end; ++match) {
    const auto start = file.begin() + match->position();
    result.append(at, start);
    at = start + match->length();
    const bool isVersion = match->str() == "=\"6.0\"" || match->str() == "=\"1.0\"";
    result += isVersion ? match->str() : "=\"" + std::to_string(static_cast<int>(++count)) + '"';
  }
  return result.append(at, file.end());
}

MaterialData read(const std::string& content) {
  const TemporaryFolder folder;
  return readDataFile(folder.write("mdata.xml", content));
}

/// How many numbers of a property with scatter stand in a file.
constexpr std::size_t kVariedNumbers = 16;

std::set<double> setOf(const std::vector<double>& numbers) {
  return {numbers.begin(), numbers.end()};
}

TEST(MaterialData, HasAPlaceForEveryNumberOfAUnidirectionalFile) {
  double count = 0.0;
  const MaterialData data = read(renumbered(uniFile(), count));
  const std::vector<double> numbers = AllNumbers(data).numbers();
  // pS33, nS33 and S13 of both environments repeat others and are left out.
  const std::size_t repeated = std::size_t{2} * 3 * kVariedNumbers;
  EXPECT_EQ(numbers.size() + repeated, static_cast<std::size_t>(count));
  EXPECT_EQ(setOf(numbers).size(), numbers.size()) << "a number stands in two places";
}

TEST(MaterialData, HasAPlaceForEveryNumberOfAWovenFile) {
  double count = 0.0;
  const MaterialData data = read(renumbered(weaveFile(), count));
  const std::vector<double> numbers = AllNumbers(data).numbers();
  // "unitcell" is 1 whenever it is there.
  EXPECT_EQ(numbers.size() + 1, static_cast<std::size_t>(count));
  EXPECT_EQ(setOf(numbers).size(), numbers.size()) << "a number stands in two places";
}

TEST(MaterialData, HoldsWhatTheWriterWasGiven) {
  const auto uni = lamcraft::testUni();
  fillHead(*uni);
  auto& environment = uni->addEnvironment("WET", 350.0);
  fill(environment);
  environment.prefail = {-1.0, 2.0, 3.0, {4.0, 5.0, 6.0}};
  environment.errors = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
  environment.iterations = {7, 8, 9};
  for (std::size_t i = 0; i < kFractureCount; ++i) {
    environment.fracture[i].setValue(static_cast<double>(i + 1));
  }
  const TemporaryFolder folder;
  lamcraft::UniXML(folder.file("f.xml")).writeDocument(*uni, true);
  const MaterialData data = readDataFile(folder.file("f.xml"));

  EXPECT_EQ(data.name, "m");
  EXPECT_FALSE(data.isWoven());
  EXPECT_EQ(data.find("fiber")->type, "carbon");
  EXPECT_EQ(data.find("fiber")->number, 2);
  ASSERT_EQ(data.environments.size(), 1U);
  const EnvironmentData& read = data.environments.front();
  EXPECT_EQ(read.temperature, 350.0);
  EXPECT_EQ(read.moisture, "wet");
  EXPECT_TRUE(read.hasFatigueFit);
  EXPECT_EQ(read.errors.finalThermal, 4.0);
  EXPECT_EQ(read.errors.initialFatigue, 5.0);
  EXPECT_EQ(read.iterations.thermal, 8);
  EXPECT_EQ(read.laminates.back().name, "cross");
  EXPECT_EQ(valuesOf(read.lamina()), lamcraft::valuesOf(environment.lamina));
  EXPECT_EQ(lamcraft::numbersOf(read.fiber()[3]),
            lamcraft::numbersOf(environment.fiber.variables()[3]));
  EXPECT_EQ(read.snRecords.front().frequency, 3.0);
  EXPECT_EQ(read.snRecords.front().angle, 4.0);
  EXPECT_EQ(read.snRecords.front().ratio, 5.0);
  EXPECT_EQ((*read.fracture)[5].value(), 6.0);
  EXPECT_EQ(read.shearLaw->constants.m, -1.0);
  EXPECT_EQ(read.shearLaw->constants.c2mdeg[2], 6.0);
  EXPECT_EQ((*read.find("matrix")->fatigue)[1][4], 5.0);
  EXPECT_FALSE(read.find("fiber")->fatigue.has_value());
}

TEST(MaterialData, KeepsMatricesByColumns) {
  double count = 0.0;
  const MaterialData data = read(renumbered(weaveFile(), count));
  const FittedConstituent& pocket = *data.environments.front().find("matrixpocket");
  ASSERT_EQ(pocket.decompositions.size(), 18U);
  const auto& stress = pocket.decompositions.front().slot.stress;
  // In the file D11 D12 ... run row by row, and the numbers with them.
  EXPECT_EQ(stress[6], stress[0] + 1.0);  // D12
  EXPECT_EQ(stress[1], stress[0] + 6.0);  // D21
  EXPECT_EQ(stress[35], stress[0] + 35.0);
}

TEST(MaterialData, FindsTheIntactPhasesOfAWeaveInItsFillTow) {
  double count = 0.0;
  const MaterialData data = read(renumbered(weaveFile(), count));
  const EnvironmentData& environment = data.environments.front();
  EXPECT_EQ(&environment.fiber(), &environment.find("fill_fiber")->states.front().properties);
  EXPECT_EQ(&environment.matrix(), &environment.find("fill_matrix")->states.front().properties);
  EXPECT_EQ(environment.find("warp")->states.size(), 18U);
  EXPECT_TRUE(environment.find("interface")->states.empty());
  EXPECT_EQ(environment.find("nothing"), nullptr);
}

TEST(MaterialData, HoldsTheBytesOfANameInAnyEncoding) {
  const auto uni = lamcraft::testUni();
  uni->materialName = "caf\xE9 <&\"'> \xC3\xA9";
  const TemporaryFolder folder;
  lamcraft::UniXML(folder.file("f.xml")).writeDocument(*uni, false);
  EXPECT_EQ(readDataFile(folder.file("f.xml")).name, uni->materialName);
}

}  // namespace
}  // namespace lamkit
