// SPDX-License-Identifier: BSD-3-Clause
#include "model/Composite.h"

#include <gtest/gtest.h>

#include "model/support/TestComposite.h"

namespace lamcraft {
namespace {

TEST(Composite, StartsWithDeckDefaults) {
  const TestComposite composite;
  EXPECT_EQ(composite.laminaSymmetry(), Symmetry::orthotropic);
  EXPECT_EQ(composite.harness(), 0);
  EXPECT_EQ(composite.unitSystem, 1);
  EXPECT_EQ(composite.density, 0.0);
  EXPECT_EQ(composite.maximumErrors, (std::array<double, 2>{1e-3, 1e-3}));
  EXPECT_TRUE(composite.materialName.empty());
  EXPECT_TRUE(composite.environments.empty());
  EXPECT_FALSE(composite.presence.variation || composite.presence.fracture ||
               composite.presence.delam || composite.presence.snData || composite.presence.nlShear);
}

TEST(Composite, AppendsEnvironmentsWithoutMergingThem) {
  TestComposite composite;
  composite.addEnvironment("DRY", 297.0);
  composite.addEnvironment("DRY", 297.0);
  EnvironmentRecord& last = composite.addEnvironment("WET", 350.0);
  ASSERT_EQ(composite.environments.size(), 3U);
  EXPECT_EQ(&last, &composite.environments.back());
  EXPECT_EQ(last.temperature, 350.0);
  EXPECT_STREQ(last.moisture->name, "wet");
}

// A list that grew by copying would reset the mark, and the unit conversion would then scale
// defaults that are in base units already.
TEST(Composite, RemembersSystemDefaultsWhenMoreEnvironmentsFollow) {
  TestComposite composite;
  composite.addEnvironment("DRY", 297.0).fiber.kind = PropertySet::Kind::systemDefaults;
  for (int i = 0; i < 100; ++i) {
    composite.addEnvironment("WET", 300.0);
  }
  EXPECT_EQ(composite.environments.front().fiber.kind, PropertySet::Kind::systemDefaults);
  EXPECT_EQ(composite.environments.front().matrix.kind, PropertySet::Kind::deck);
}

}  // namespace
}  // namespace lamcraft
