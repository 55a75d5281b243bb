// SPDX-License-Identifier: BSD-3-Clause
// A folder for every rule of verdict that must fire it; docs/lamkit.md shows each finding.

#include "verdict/Verdict.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "command/Context.h"
#include "findings/TextFindings.h"
#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;
using lamcraft::test::contentOf;
using lamcraft::test::TemporaryFolder;

/// A carbon ply that its fiber and matrix explain.
const std::string kHead =
    "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=PLY\n1, 1580, 1.25e-4, 450\n*FVF\n0.6\n";
const std::string kEnvironment = "*ENVIRONMENT, MOISTURE=DRY, TEMPERATURE=296\n";
const std::string kWetEnvironment = "*ENVIRONMENT, MOISTURE=WET, TEMPERATURE=296\n";
const std::string kCarbon =
    "*LAMINA\n136e9, 9.1e9, 0.26, 0.4, 5.0e9, -0.3e-6, 28e-6\n"
    "*FIBER\n225e9, 15e9, 0.2, 0.3, 15e9, -5e-7, 15e-6\n"
    "*MATRIX, LAW=ISO\n4.2e9, 0.34, 45e-6\n"
    "*STRENGTHS\n1950e6, 1480e6, 48e6, 200e6, 79e6, 55e6\n";
const std::string kGlass =
    "*LAMINA\n45e9, 12.5e9, 0.27, 0.4, 4.8e9, 6.5e-6, 26e-6\n"
    "*FIBER\n72e9, 72e9, 0.22, 0.22, 29.5e9, 5e-6, 5e-6\n"
    "*MATRIX, LAW=ISO\n3.6e9, 0.35, 55e-6\n"
    "*STRENGTHS\n1000e6, 600e6, 40e6, 140e6, 70e6, 50e6\n";
const std::string kTests =
    "*SNDATA\n1500e6, 1e3, 5, 0, 0.1\n1300e6, 1e4, 5, 0, 0.1\n1100e6, 1e5, 5, 0, 0.1\n";
/// A curve that does not reach the shear strength.
const std::string kShortCurve = "*NLSHEAR\n10e6, 0.002\n20e6, 0.0042\n30e6, 0.0068\n";

/// A material folder that lamcraft has made of a deck.
class Solved {
 public:
  explicit Solved(const std::string& deck) {
    const std::string path = root_.write("deck.qdk", deck);
    fs::create_directory(folder());
    lamcraft::test::run({LAMCRAFT_PROGRAM, {path, folder().string()}, {}, {}});
  }

  [[nodiscard]] fs::path folder() const { return root_.path() / "ply"; }

  /// Replaces the number of an attribute: the first `attribute` after the markers, each found
  /// behind the one before.
  void set(const std::vector<std::string>& markers, const std::string& text) {
    std::string content = contentOf(folder() / "mdata.xml");
    const auto [start, end] = placeOf(content, markers);
    content.replace(start, end - start, text);
    root_.write("ply/mdata.xml", content);
  }

  /// Multiplies it.
  void scale(const std::vector<std::string>& markers, const double factor) {
    const std::string content = contentOf(folder() / "mdata.xml");
    const auto [start, end] = placeOf(content, markers);
    std::ostringstream text;
    text.precision(15);
    text << factor * std::strtod(content.substr(start, end - start).c_str(), nullptr);
    set(markers, text.str());
  }

  /// Replaces a text of a file that is there.
  void replace(const std::string& file, const std::string& from, const std::string& to) {
    std::string content = contentOf(folder() / file);
    const std::size_t at = content.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    root_.write("ply/" + file, content.replace(at, from.size(), to));
  }

  void write(const std::string& file, const std::string& content) {
    root_.write("ply/" + file, content);
  }
  void remove(const std::string& file) { fs::remove(folder() / file); }

  /// The findings of a rule, as lines of text about the folder "out/ply".
  [[nodiscard]] std::vector<std::string> lines(const std::string& rule) const {
    std::vector<std::string> result;
    for (Finding finding : judgeFolder(folder().string()).findings) {
      if (finding.rule == rule) {
        EXPECT_EQ(finding.file, folder().string());
        finding.file = "out/ply";
        const std::size_t at = finding.message.find(folder().string());
        if (at != std::string::npos) {
          finding.message.replace(at, folder().string().size(), "out/ply");
        }
        std::ostringstream line;
        writeText(line, finding, false);
        result.push_back(line.str().substr(0, line.str().size() - 1));
      }
    }
    return result;
  }

 private:
  static std::pair<std::size_t, std::size_t> placeOf(const std::string& content,
                                                     const std::vector<std::string>& markers) {
    std::size_t at = 0;
    for (const std::string& marker : markers) {
      at = content.find(marker, at);
      EXPECT_NE(at, std::string::npos) << marker;
      at += marker.size();
    }
    return {at, content.find('"', at)};
  }

  TemporaryFolder root_;
};

/// Whether the guide shows the finding.
void expectInGuide(const std::string& line) {
  static const std::string kGuide = contentOf(std::string(LAMCRAFT_DOCS) + "/lamkit.md");
  EXPECT_NE(kGuide.find(line), std::string::npos) << "docs/lamkit.md does not show\n" << line;
}

/// The rule has one thing to say, as the guide shows it.
void expectOne(const Solved& solved, const std::string& rule) {
  const std::vector<std::string> lines = solved.lines(rule);
  ASSERT_EQ(lines.size(), 1U) << rule << ": " << testing::PrintToString(lines);
  expectInGuide(lines.front());
}

const std::vector<std::string> kFiber{"<environment", "value=\"fiber\""};
const std::vector<std::string> kPly{"<environment", "<props"};

std::vector<std::string> below(std::vector<std::string> markers, const std::string& tag) {
  markers.push_back("<" + tag + " value=\"");
  return markers;
}

TEST(Verdict, HasNothingAgainstASoundMaterial) {
  const Solved solved(kHead + kEnvironment + kCarbon);
  for (const Finding& finding : judgeFolder(solved.folder().string()).findings) {
    EXPECT_EQ(finding.severity, Severity::note) << finding.rule << ": " << finding.message;
  }
}

TEST(Verdict, FailsForAFolderThatIsNotThere) {
  EXPECT_THROW((void)judgeFolder("no/such/folder"), Failure);
}

TEST(Verdict, FindsFoldersWithoutData) {
  Solved solved(kHead + kEnvironment + kCarbon);
  solved.remove("mdata.xml");
  expectOne(solved, "no-data");
}

TEST(Verdict, FindsDataWithoutEnvironments) {
  Solved solved(kHead);
  EXPECT_EQ(solved.lines("no-environment").size(), 1U) << "check says it of the deck copy";
  solved.remove("input.qdk");
  expectOne(solved, "no-environment");
}

TEST(Verdict, FindsDataThatAreCutOff) {
  Solved solved(kHead + kEnvironment + kCarbon);
  const std::string whole = contentOf(solved.folder() / "mdata.xml");
  solved.write("mdata.xml", whole.substr(0, whole.find("<environment") + 40));
  expectOne(solved, "unreadable");
}

TEST(Verdict, FindsWhatIsNoNumber) {
  Solved solved(kHead + kEnvironment + kCarbon);
  solved.set(below(kFiber, "E22"), "NAN");
  expectOne(solved, "not-a-number");
}

TEST(Verdict, FindsStiffnessesOfZero) {
  Solved solved(kHead + kEnvironment + kCarbon);
  solved.set(below(kFiber, "G12"), "0");
  expectOne(solved, "zero-stiffness");
}

TEST(Verdict, FindsSetsThatGiveEnergy) {
  Solved solved(kHead + kEnvironment + kCarbon);
  solved.set(below(kPly, "NU23"), "1.5");
  expectOne(solved, "inadmissible");
}

TEST(Verdict, FindsFitsThatNeverRan) {
  Solved solved(kHead + kEnvironment + kCarbon);
  solved.set({"<elastic_constants", "final=\""}, "1");
  solved.set({"<elastic_constants", "iterations=\""}, "0");
  expectOne(solved, "not-fitted");
}

TEST(Verdict, FindsTargetsThatAreMissed) {
  Solved solved(kHead + kEnvironment + kCarbon);
  solved.scale(below(kPly, "G12"), 1.05);
  expectOne(solved, "misfit");
  EXPECT_THAT(solved.lines("misfit")[0], testing::HasSubstr(": warning: "));
  solved.scale(below(kPly, "G12"), 1.10);
  EXPECT_THAT(solved.lines("misfit")[0], testing::HasSubstr(": error: "));
}

TEST(Verdict, FindsConstituentsFarFromTheirStart) {
  Solved solved(kHead + kEnvironment + kCarbon);
  solved.set(below(kFiber, "E11"), "265e9");  // ln(265/225) is 3.3 widths of 5 %
  expectOne(solved, "far-from-start");
  solved.set(below(kFiber, "E11"), "300e9");  // 5.8
  EXPECT_THAT(solved.lines("far-from-start")[0], testing::HasSubstr(": error: "));
}

TEST(Verdict, NotesWhatTheTestsDoNotTell) {
  expectOne(Solved(kHead + kEnvironment + kCarbon), "undetermined");
}

TEST(Verdict, FindsAFiberThatChanges) {
  Solved solved(kHead + kEnvironment + kCarbon + kWetEnvironment + kCarbon);
  EXPECT_TRUE(solved.lines("fiber-changes").empty());
  solved.set(below({"moisture=\"wet\"", "value=\"fiber\""}, "E11"), "262e9");
  expectOne(solved, "fiber-changes");
}

TEST(Verdict, FindsGlassThatGotADirection) {
  Solved solved(kHead + kEnvironment + kGlass);
  EXPECT_TRUE(solved.lines("symmetry-lost").empty());
  solved.set(below(kFiber, "E22"), "110e9");
  expectOne(solved, "symmetry-lost");
}

TEST(Verdict, FindsAShearCurveThatWasDropped) {
  expectOne(Solved(kHead + kEnvironment + kCarbon + kShortCurve), "prefail");
}

TEST(Verdict, FindsAShearLawThatMissesItsCurve) {
  Solved solved(contentOf(std::string(LAMCRAFT_EXAMPLES) + "/eglass-my750.qdk"));
  EXPECT_TRUE(solved.lines("prefail").empty());
  solved.scale({"<sheardeg", "m=\""}, 0.5);
  EXPECT_EQ(solved.lines("prefail").size(), 1U);
}

TEST(Verdict, FindsFatigueConstantsThatAreMissing) {
  Solved solved(kHead + kEnvironment + kCarbon + kTests);
  EXPECT_THAT(solved.lines("fatigue"), testing::Each(testing::HasSubstr(": note: ")));
  std::string data = contentOf(solved.folder() / "fdata.xml");
  const std::size_t start =
      data.find("<fatigue>", data.find("value=\"matrix\"", data.find("<environment")));
  const std::string end = "</fatigue>";
  data.erase(start, data.find(end, start) + end.size() - start);
  solved.write("fdata.xml", data);
  const auto lines = solved.lines("fatigue");
  ASSERT_FALSE(lines.empty());
  EXPECT_THAT(lines[0], testing::HasSubstr(": warning: "));
  expectInGuide(lines[0]);
}

TEST(Verdict, FindsALawThatMissesItsTests) {
  Solved solved(kHead + kEnvironment + kCarbon + kTests);
  std::string data = contentOf(solved.folder() / "fdata.xml");
  const std::string marker = "<breaking value=\"";
  const std::size_t start = data.find(marker, data.find("<longitudinal>")) + marker.size();
  const std::size_t end = data.find('"', start);
  // 12 kJ/mol more are a factor of 130 in life at 296 K: exp(12000/(8.314 296)).
  const double energy = std::strtod(data.substr(start, end - start).c_str(), nullptr) + 12e3;
  solved.write("fdata.xml", data.replace(start, end - start, std::to_string(energy)));
  EXPECT_THAT(solved.lines("fatigue"),
              testing::Contains(testing::HasSubstr("lives scatter by 2.1 decades about the law")));
}

TEST(Verdict, FindsDataOfAnotherDeck) {
  Solved solved(kHead + kEnvironment + kCarbon);
  solved.replace("input.qdk", "0.6", "0.55");
  expectOne(solved, "stale");
  solved.replace("input.qdk", "NAME=PLY", "NAME=PLX");
  EXPECT_EQ(solved.lines("stale").size(), 2U);
  solved.write("input.qdk", "*LAMINA\n");
  EXPECT_EQ(solved.lines("stale").size(), 1U);
  solved.remove("input.qdk");
  EXPECT_THAT(solved.lines("stale"), testing::ElementsAre(testing::HasSubstr(": note: ")));
}

TEST(Verdict, FindsFatigueDataOfAnOlderRun) {
  Solved solved(kHead + kEnvironment + kCarbon);
  solved.write("fdata.xml", contentOf(solved.folder() / "mdata.xml"));
  EXPECT_THAT(solved.lines("stale"), testing::ElementsAre(testing::HasSubstr("fdata.xml")));
}

TEST(Verdict, ChecksTheDeckCopy) {
  Solved solved(kHead + kEnvironment + kCarbon);
  solved.replace("input.qdk", "*FVF", "*FVF, VALUE=2");
  EXPECT_EQ(solved.lines("unknown-parameter").size(), 1U);
}

TEST(Verdict, NamesTheEnvironmentWhereThereAreSeveral) {
  Solved solved(kHead + kEnvironment + kCarbon + kWetEnvironment + kCarbon);
  const auto lines = solved.lines("undetermined");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_THAT(lines[1], testing::HasSubstr("note: environment 2: "));
}

}  // namespace
}  // namespace lamkit
