// SPDX-License-Identifier: BSD-3-Clause
// A stranger's way to a library of one's own: examples/library, built with nothing but what an
// installation holds, takes the engine's place.

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <tinyxml.h>

#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

/// Installs what such a library is built with, and builds the example, once for all tests.
class OwnLibrary : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TemporaryFolder>();
    const std::string at = folder_->path().string();
    cmake({"--install", LAMCRAFT_BUILD, "--component", "contract", "--prefix", at + "/installed"});
    cmake({"-S",
           at + "/installed/share/doc/lamcraft/examples/library",
           "-B",
           at + "/build",
           "-DCMAKE_PREFIX_PATH=" + at + "/installed"});
    cmake({"--build", at + "/build"});
  }
  static void TearDownTestSuite() { folder_.reset(); }

  static ProcessResult solve(const std::string& deck, const std::string& out) {
    ProcessRun process;
    process.program = LAMCRAFT_PROGRAM;
    process.arguments = {deck, out};
    process.environment["LD_LIBRARY_PATH"] = at("build");
    process.folder = folder_->path().string();
    return run(process);
  }

  static std::string at(const std::string& name) { return folder_->file(name); }

 private:
  static void cmake(std::vector<std::string> arguments) {
    ProcessRun process;
    process.program = LAMCRAFT_CMAKE;
    process.arguments = std::move(arguments);
    const ProcessResult result = run(process);
    if (result.exitCode != 0) {
      throw std::runtime_error(result.out + result.err);
    }
  }

  static std::unique_ptr<TemporaryFolder> folder_;
};

std::unique_ptr<TemporaryFolder> OwnLibrary::folder_;

double numberAt(const TiXmlElement& properties, const char* const name) {
  return std::strtod(properties.FirstChildElement(name)->Attribute("value"), nullptr);
}

/// The properties of the environment's composite, or of its constituent of a number.
const TiXmlElement& propertiesOf(const TiXmlDocument& data, const char* const number = nullptr) {
  const TiXmlElement& environment = *TiXmlHandle(const_cast<TiXmlDocument*>(&data))
                                         .FirstChildElement()
                                         .FirstChildElement("environment")
                                         .ToElement();
  if (number == nullptr) {
    return *environment.FirstChildElement("composite")->FirstChildElement("props");
  }
  const TiXmlElement* constituent = environment.FirstChildElement("constituent");
  while (constituent->Attribute("number") != std::string(number)) {
    constituent = constituent->NextSiblingElement("constituent");
  }
  return *constituent->FirstChildElement("props");
}

TEST_F(OwnLibrary, TakesTheEnginesPlace) {
  const ProcessResult result = solve(LAMCRAFT_EXAMPLES "/as4-3501-6.qdk", "carbon");
  ASSERT_EQ(result.exitCode, 0) << result.out;
  TiXmlDocument data(at("carbon/mdata.xml"));
  ASSERT_TRUE(data.LoadFile());

  // The deck's ply, 0.6 of fiber, and its start values; data files keep 15 digits.
  const double ply = 126e9;
  const double fiber = (ply - 0.4 * 4.2e9) / 0.6;
  EXPECT_NEAR(numberAt(propertiesOf(data), "E11"), ply, 1e-13 * ply);
  EXPECT_NEAR(numberAt(propertiesOf(data, "2"), "E11"), fiber, 1e-13 * fiber);
  EXPECT_EQ(numberAt(propertiesOf(data, "2"), "E22"), 15e9);
  EXPECT_EQ(numberAt(propertiesOf(data, "1"), "E11"), 4.2e9);
  const double across = 1 / (0.6 / 15e9 + 0.4 / 4.2e9);
  EXPECT_NEAR(numberAt(propertiesOf(data), "E22"), across, 1e-13 * across);
}

TEST_F(OwnLibrary, SaysThatItReducesNoShearCurve) {
  const ProcessResult result = solve(LAMCRAFT_EXAMPLES "/eglass-my750.qdk", "curve");
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_NE(result.out.find("Prefail material data will not be written"), std::string::npos);
  EXPECT_EQ(result.out.find("Stress Strain data"), std::string::npos) << "a code without a text";
}

TEST_F(OwnLibrary, IsRefusedWhatItAnswersWithNoNumbers) {
  const ProcessResult result =
      solve(LAMCRAFT_EXAMPLES "/plain-weave-glass-vinylester.qdk", "weave");
  EXPECT_EQ(result.exitCode, 2) << result.out;
  EXPECT_FALSE(std::filesystem::exists(at("weave/mdata.xml")));
}

}  // namespace
}  // namespace lamcraft::test
