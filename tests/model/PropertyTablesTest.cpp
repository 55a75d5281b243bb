// SPDX-License-Identifier: BSD-3-Clause
#include "model/PropertyTables.h"

#include <string>

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

TEST(PropertyRows, NameTheTwelveInOrder) {
  std::string labels;
  std::string tags;
  for (const PropertyRow& row : kPropertyRows) {
    labels += std::string(row.label) + ' ';
    tags += std::string(row.tag) + ' ';
  }
  EXPECT_EQ(labels, "E11 E22 E33 v12 v13 v23 G12 G13 G23 A11 A22 A33 ");
  EXPECT_EQ(tags, "E11 E22 E33 NU12 NU13 NU23 G12 G13 G23 CTE11 CTE22 CTE33 ");
}

TEST(PropertyRows, ScaleByDimension) {
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    const char kind = kPropertyRows[i].label[0];
    const Dimension expected = kind == 'v'   ? Dimension::none
                               : kind == 'A' ? Dimension::inverseTemperature
                                             : Dimension::stress;
    EXPECT_EQ(kPropertyRows[i].dimension, expected) << kPropertyRows[i].label;
  }
}

template <std::size_t N>
std::string join(const std::array<GroupRow, N>& rows) {
  std::string text;
  for (const GroupRow& row : rows) {
    text += std::string(row.deckName == nullptr ? "-" : row.deckName) + '=' + row.tag + ' ';
  }
  return text;
}

TEST(GroupRows, NameTheGroupsInOrder) {
  EXPECT_EQ(join(kUniStrengthRows), "T1=pS11 C1=nS11 T2=pS22 C2=nS22 S12=S12 S23=S23 ");
  EXPECT_EQ(join(kWeaveStrengthRows), "-=PS11K T1=PS11U -=NS11K C1=NS11U -=S12K S12=S12U ");
  EXPECT_EQ(join(kInvariantRows),
            "DILATATION=dilatation DISTORTION=distortion "
            "FIBERTENSILEDISTORTION=tensileFiberDistortion "
            "FIBERCOMPRESSIVEDISTORTION=compressiveFiberDistortion "
            "TENSILESTRAIN=tensileStrain COMPRESSIVESTRAIN=compressiveStrain ");
  EXPECT_EQ(join(kFractureRows), "GFTC=GftC GFCC=GfcC GMC=GmC GMNC=GmnC GMSC=GmsC ALPHA=alpha ");
  EXPECT_EQ(join(kCohesiveRows),
            "KNN=Knn KSS=Kss KTT=Ktt SN=Sn SS=Ss ST=St DMF_DM0=dmf_dm0 GC=GC GNC=GnC GSC=GsC "
            "GTC=GtC ALPHA=alpha D2N=d2n D2S=d2s D2T=d2t ");
}

TEST(Symmetry, HasTheNumbersOfTheDeck) {
  EXPECT_EQ(static_cast<int>(Symmetry::unset), 0);
  EXPECT_EQ(static_cast<int>(Symmetry::isotropic), 1);
  EXPECT_EQ(static_cast<int>(Symmetry::transverse12), 2);
  EXPECT_EQ(static_cast<int>(Symmetry::transverse23), 3);
  EXPECT_EQ(static_cast<int>(Symmetry::orthotropic), 4);
}

}  // namespace
}  // namespace lamcraft
