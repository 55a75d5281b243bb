// SPDX-License-Identifier: BSD-3-Clause
#include "report/CsvFiles.h"

#include <gtest/gtest.h>

namespace lamkit {
namespace {

MaterialData weave() {
  StateDecomposition decomposition;
  decomposition.state = 3;
  for (std::size_t i = 0; i < 36; ++i) {
    decomposition.slot.stress[i] = static_cast<double>(i) + 0.5;
  }
  decomposition.slot.thermalStress[2] = -7.25e3;
  FittedConstituent phase;
  phase.name = "fill_fiber";
  phase.decompositions.push_back(decomposition);
  FittedConstituent tow;
  tow.name = "fill";
  tow.children.push_back(phase);
  MaterialData data;
  data.harness = 1;
  data.environments.emplace_back();
  data.environments.back().temperature = 296.15;
  data.environments.back().moisture = "dry";
  data.environments.back().constituents.push_back(tow);
  return data;
}

TEST(DecompositionsCsv, HasALineForEachNumber) {
  const std::string csv = decompositionsCsv(weave());
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 1 + 84);
  EXPECT_EQ(csv.rfind("environment,temperature [K],moisture,constituent,state,matrix,row,column,"
                      "value\n",
                      0),
            0U);
  // Matrices are kept by columns: row 2, column 3 is number 1 + 6 * 2.
  EXPECT_NE(csv.find("\n1,296.15,dry,fill_fiber,3,stress [-],2,3,13.5\n"), std::string::npos);
  EXPECT_NE(csv.find("\n1,296.15,dry,fill_fiber,3,thermal stress [Pa/K],3,1,-7250\n"),
            std::string::npos);
}

TEST(DecompositionsCsv, IsEmptyForAPly) {
  MaterialData ply = weave();
  ply.harness.reset();
  EXPECT_EQ(decompositionsCsv(ply), "");
}

}  // namespace
}  // namespace lamkit
