// SPDX-License-Identifier: BSD-3-Clause
#include "material/MaterialSystems.h"

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

TEST(MaterialSystems, NumbersStartAtOneInTheLibrarysOrder) {
  EXPECT_EQ(materialSystemCode("CFRP"), 1);
  EXPECT_EQ(materialSystemCode("GFRP"), 2);
  EXPECT_EQ(materialSystemCode("KFRP"), 3);
  std::int32_t number = 3;
  for (const std::string fiber : {"CFL", "CFI", "CFH", "GF", "KF"}) {
    for (const std::string matrix : {"-TSP", "-TPP", "-BMI"}) {
      std::string system = fiber;
      system += matrix;
      EXPECT_EQ(materialSystemCode(system), ++number) << system;
    }
  }
  EXPECT_EQ(number, 18);
}

TEST(MaterialSystems, OtherNamesHaveNoNumber) {
  for (const char* const name : {"", "cfrp", "CFRP ", "CFRP-TSP", "CFL", "TSP"}) {
    EXPECT_EQ(materialSystemCode(name), std::nullopt) << name;
  }
}

struct TypesCase {
  const char* name;
  const char* fiber;
  const char* matrix;
};
std::ostream& operator<<(std::ostream& out, const TypesCase& c) {
  return out << c.name;
}

class TypesOfSystem : public testing::TestWithParam<TypesCase> {};

TEST_P(TypesOfSystem, AreThoseOfItsHalves) {
  const ConstituentTypes types = constituentTypes(GetParam().name);
  EXPECT_EQ(types.fiber, GetParam().fiber);
  EXPECT_EQ(types.matrix, GetParam().matrix);
}

const TypesCase kTypes[] = {
    {"CFRP", "carbon low", "thermoset polymer"},
    {"GFRP", "glass", "thermoset polymer"},
    {"KFRP", "kevlar", "thermoset polymer"},
    {"CFL-TSP", "carbon low", "thermoset polymer"},
    {"CFI-TPP", "carbon intermediate", "thermoplastic polymer"},
    {"CFH-BMI", "carbon high", "BMI"},
    {"GF-TPP", "glass", "thermoplastic polymer"},
    {"KF-BMI", "kevlar", "BMI"},
    {"XYZ", "NA", "NA"},
    {"KFRPX", "NA", "NA"},
    {"cfrp", "NA", "NA"},
    {"", "NA", "NA"},
    {"CFL-", "carbon low", "NA"},
    {"-TPP", "NA", "thermoplastic polymer"},
    {"CFL-TSP-X", "carbon low", "NA"},
    {"XX-BMI", "NA", "BMI"},
};
INSTANTIATE_TEST_SUITE_P(All, TypesOfSystem, testing::ValuesIn(kTypes));

}  // namespace
}  // namespace lamcraft
