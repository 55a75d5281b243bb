// SPDX-License-Identifier: BSD-3-Clause
#include "card/CardUnits.h"

#include <gtest/gtest.h>

namespace lamkit {
namespace {

TEST(CardUnits, SiLeavesNumbersAsTheyAre) {
  for (const Quantity quantity : {Quantity::none,
                                  Quantity::stress,
                                  Quantity::length,
                                  Quantity::energy,
                                  Quantity::density,
                                  Quantity::traction,
                                  Quantity::expansion,
                                  Quantity::thermalStress}) {
    EXPECT_EQ(kSi.factorOf(quantity), 1.0);
  }
  EXPECT_STREQ(kSi.unitOf(Quantity::density), "kg/m^3");
}

TEST(CardUnits, MillimetreAndTonneAreConsistent) {
  EXPECT_DOUBLE_EQ(kMillimetreTonne.factorOf(Quantity::stress), 1e-6);    // Pa to N/mm^2
  EXPECT_DOUBLE_EQ(kMillimetreTonne.factorOf(Quantity::length), 1e3);     // m to mm
  EXPECT_DOUBLE_EQ(kMillimetreTonne.factorOf(Quantity::energy), 1e-3);    // N/m to N/mm
  EXPECT_DOUBLE_EQ(kMillimetreTonne.factorOf(Quantity::density), 1e-12);  // kg/m^3 to t/mm^3
  EXPECT_DOUBLE_EQ(kMillimetreTonne.factorOf(Quantity::traction), 1e-9);  // Pa/m to N/mm^3
  EXPECT_DOUBLE_EQ(kMillimetreTonne.factorOf(Quantity::thermalStress), 1e-6);
  EXPECT_EQ(kMillimetreTonne.factorOf(Quantity::expansion), 1.0);
  EXPECT_EQ(kMillimetreTonne.factorOf(Quantity::none), 1.0);
  EXPECT_STREQ(kMillimetreTonne.unitOf(Quantity::density), "t/mm^3");
}

TEST(CardUnits, ASpeedOfSoundIsTheSameInBothSystems) {
  // sqrt(E / density), in m/s and in mm/s: force, mass and length belong together.
  const double squared =
      kMillimetreTonne.factorOf(Quantity::stress) / kMillimetreTonne.factorOf(Quantity::density);
  const double length = kMillimetreTonne.factorOf(Quantity::length);
  EXPECT_DOUBLE_EQ(squared, length * length);
}

TEST(CardUnits, TheModelsTablesNameTheirQuantities) {
  EXPECT_EQ(quantityOf(lamcraft::Dimension::stress), Quantity::stress);
  EXPECT_EQ(quantityOf(lamcraft::Dimension::length), Quantity::length);
  EXPECT_EQ(quantityOf(lamcraft::Dimension::forcePerLength), Quantity::energy);
  EXPECT_EQ(quantityOf(lamcraft::Dimension::inverseTemperature), Quantity::expansion);
  EXPECT_EQ(quantityOf(lamcraft::Dimension::none), Quantity::none);
}

}  // namespace
}  // namespace lamkit
