// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_TESTS_WEAVE_CELL_WEAVECASES_H
#define KX_TESTS_WEAVE_CELL_WEAVECASES_H

#include <string>

#include "lamina/UnidirectionalLamina.h"
#include "support/ReferenceData.h"
#include "weave/cell/CellAverages.h"
#include "weave/cell/CellSolver.h"

namespace kx::test {

/// A weave and its constituents, as the voxel model takes them.
struct WeaveCase {
  int harness = 1;
  double fill = 0.4;
  double warp = 0.4;
  double thickness = 0.12;
  double towFiberFraction = 0.7;
  TransverselyIsotropic fiber{230e9, 15e9, 0.2, 0.25, 20e9, -5e-7, 1e-5};
  TransverselyIsotropic matrix = isotropic(3.5e9, 0.35, 5.5e-5);

  WeaveGeometry geometry() const {
    return {*InterlacingPattern::ofHarness(harness), fill, warp, thickness};
  }
};

inline PhaseStiffness phaseOf(const TransverselyIsotropic& solid) {
  const Matrix6 c = stiffness(solid);
  return {c, c * expansion(properties(solid))};
}

inline CellConstituents constituentsOf(const WeaveCase& weave) {
  const PhaseStiffness tow =
      phaseOf(homogenise(weave.fiber, weave.matrix, weave.towFiberFraction).effective);
  return {{phaseOf(weave.matrix), tow, tow}};
}

/// A weave of the reference data with its degraded constituents.
struct ReferenceWeave {
  WeaveCase weave;
  CellConstituents constituents;
};

inline ReferenceWeave referenceWeave(const nlohmann::json& entry) {
  ReferenceWeave result;
  WeaveCase& weave = result.weave;
  weave.harness = entry.at("harness");
  weave.fill = entry.at("fill_fraction");
  weave.warp = entry.at("warp_fraction");
  weave.thickness = entry.at("thickness_over_pitch");
  weave.towFiberFraction = entry.at("tow_vf");
  weave.fiber = transverselyIsotropic(propertiesFrom(entry.at("fibre")));
  weave.matrix = transverselyIsotropic(propertiesFrom(entry.at("matrix")));
  const auto degraded = [&](TransverselyIsotropic solid, const char* key) {
    const double factor = entry.at("degradation").value(key, 1.0);
    solid.e11 *= factor;
    solid.e22 *= factor;
    solid.g12 *= factor;
    return solid;
  };
  const auto tow = [&](const char* fiberKey, const char* matrixKey) {
    return phaseOf(homogenise(degraded(weave.fiber, fiberKey),
                              degraded(weave.matrix, matrixKey),
                              weave.towFiberFraction)
                       .effective);
  };
  result.constituents = {
      {phaseOf(degraded(weave.matrix, "dp")), tow("dff", "dfm"), tow("dwf", "dwm")}};
  return result;
}

inline CellResponse respond(const WeaveCase& weave,
                            const CellConstituents& constituents,
                            const CellResolution& resolution,
                            const double tolerance = 1e-4,
                            const int threads = 1) {
  ThreadPool team(threads);
  const UnitCell cell(weave.geometry(), resolution);
  const CellMaterials materials(cell, constituents);
  CellSolver solver(cell, team);
  CellFields fields;
  SolveSettings settings;
  settings.tolerance = tolerance;
  solver.solve(materials, ThermalCase::with, settings, fields);
  return cellResponse(cellMeans(materials, fields, team));
}

inline Properties propertiesOf(const CellResponse& response) {
  return propertiesFromCompliance(response.compliance, response.expansion);
}

}  // namespace kx::test

#endif
