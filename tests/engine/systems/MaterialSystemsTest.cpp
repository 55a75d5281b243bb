// SPDX-License-Identifier: BSD-3-Clause
#include "systems/MaterialSystems.h"

#include <limits>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "elastic/TransverselyIsotropic.h"
#include "support/ReferenceData.h"

namespace kx {
namespace {

constexpr std::int32_t kSystemCount = 18;

// The ranges that the published readings of each family span; see tests/reference/published.json.
struct FamilyCase {
  std::int32_t number;
  const char* fiber;
  const char* matrix;
};
const FamilyCase kFamilies[] = {
    {1, "carbon_low", "thermoset_epoxy"},
    {2, "glass", "thermoset_epoxy"},
    {3, "kevlar", "thermoset_epoxy"},
    {4, "carbon_low", "thermoset_epoxy"},
    {5, "carbon_low", "thermoplastic_peek"},
    {6, "carbon_low", "bmi"},
    {7, "carbon_intermediate", "thermoset_epoxy"},
    {8, "carbon_intermediate", "thermoplastic_peek"},
    {9, "carbon_intermediate", "bmi"},
    {10, "carbon_high", "thermoset_epoxy"},
    {11, "carbon_high", "thermoplastic_peek"},
    {12, "carbon_high", "bmi"},
    {13, "glass", "thermoset_epoxy"},
    {14, "glass", "thermoplastic_peek"},
    {15, "glass", "bmi"},
    {16, "kevlar", "thermoset_epoxy"},
    {17, "kevlar", "thermoplastic_peek"},
    {18, "kevlar", "bmi"},
};

using Ranges = std::map<std::string, nlohmann::json>;

Ranges publishedRanges() {
  Ranges ranges;
  for (const auto& item : test::referenceCases("published.json")) {
    if (item.at("kind") != "constituent_default") {
      continue;
    }
    ranges[item.at("id").get<std::string>()] = item.at("targets").at("acceptance_range");
  }
  return ranges;
}

void expectWithin(const nlohmann::json& ranges, const char* name, const double value) {
  const auto& range = ranges.at(name);
  EXPECT_GE(value, range.at(0).get<double>()) << name;
  EXPECT_LE(value, range.at(1).get<double>()) << name;
}

TEST(MaterialSystems, FibersLieWithinTheirPublishedRange) {
  const Ranges ranges = publishedRanges();
  for (const FamilyCase& family : kFamilies) {
    SCOPED_TRACE(family.number);
    const auto& range = ranges.at(std::string("default_fibre_") + family.fiber);
    const Properties p = systemDefaults(family.number).fiber;
    expectWithin(range, "E11", p.e11 * 1e-9);
    expectWithin(range, "E22", p.e22 * 1e-9);
    expectWithin(range, "v12", p.v12);
    expectWithin(range, "v23", p.v23);
    expectWithin(range, "G12", p.g12 * 1e-9);
    expectWithin(range, "CTE11", p.a11 * 1e6);
    expectWithin(range, "CTE22", p.a22 * 1e6);
  }
}

TEST(MaterialSystems, MatricesLieWithinTheirPublishedRange) {
  const Ranges ranges = publishedRanges();
  for (const FamilyCase& family : kFamilies) {
    SCOPED_TRACE(family.number);
    const auto& range = ranges.at(std::string("default_matrix_") + family.matrix);
    const Properties p = systemDefaults(family.number).matrix;
    expectWithin(range, "E", p.e11 * 1e-9);
    expectWithin(range, "v", p.v12);
    expectWithin(range, "CTE", p.a11 * 1e6);
  }
}

TEST(MaterialSystems, AllAreAdmissibleAndSymmetric) {
  for (std::int32_t number = 1; number <= kSystemCount; ++number) {
    const SystemDefaults defaults = systemDefaults(number);
    EXPECT_TRUE(isAdmissible(defaults.fiber)) << number;
    EXPECT_TRUE(isAdmissible(defaults.matrix)) << number;
    const Properties& f = defaults.fiber;
    EXPECT_EQ(f.e22, f.e33);
    EXPECT_DOUBLE_EQ(f.g23, f.e22 / (2.0 * (1.0 + f.v23)));
    const Properties& m = defaults.matrix;
    EXPECT_EQ(m.e11, m.e33);
    EXPECT_EQ(m.v12, m.v23);
    EXPECT_DOUBLE_EQ(m.g12, m.e11 / (2.0 * (1.0 + m.v12)));
    EXPECT_EQ(m.g12, m.g23);
  }
}

TEST(MaterialSystems, UnknownNumbersGiveZeros) {
  for (const std::int32_t number : {0,
                                    -1,
                                    19,
                                    std::numeric_limits<std::int32_t>::min(),
                                    std::numeric_limits<std::int32_t>::max()}) {
    const SystemDefaults defaults = systemDefaults(number);
    for (const auto member : kPropertyOrder<double>) {
      EXPECT_EQ(defaults.fiber.*member, 0.0);
      EXPECT_EQ(defaults.matrix.*member, 0.0);
    }
  }
}

}  // namespace
}  // namespace kx
