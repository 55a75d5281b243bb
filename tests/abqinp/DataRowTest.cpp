// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/DataRow.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace abqinp {
namespace {

TEST(DataRow, HoldsTheValuesOfItsLine) {
  EXPECT_EQ(DataRow("1,2,").values().size(), 3U);
  EXPECT_TRUE(DataRow("").values().empty());
  EXPECT_TRUE(DataRow().values().empty());
}

TEST(DataRow, ReadsNumbers) {
  const DataRow row("-1.5E3,,7");
  EXPECT_EQ(row.doubleValue(0, 9.0), -1500.0);
  EXPECT_EQ(row.doubleValue(1, 9.0), 9.0) << "an empty value reads as the default";
  EXPECT_EQ(row.intValue(2, 9), 7);
  EXPECT_EQ(row.intValue(3, 9), 9) << "so does a column that is missing";
}

TEST(DataRow, LooksOnlyAtTheValueThatIsAskedFor) {
  const DataRow row("1,X");
  EXPECT_EQ(row.doubleValue(0, 0.0), 1.0);
  EXPECT_THROW(static_cast<void>(row.doubleValue(1, 0.0)), std::invalid_argument);
}

}  // namespace
}  // namespace abqinp
