// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_REPORT_LIFECURVES_H
#define LAMKIT_REPORT_LIFECURVES_H

#include <cstddef>
#include <optional>
#include <vector>

#include "folder/MaterialFolder.h"

namespace lamkit {

/// A stress and the life under it.
struct LifePoint {
  double stress = 0.0;  ///< magnitude [Pa]
  double life = 0.0;    ///< cycles
};

/// The tests of one angle and ratio, and the engine's life for them.
struct LifeSeries {
  double angle = 0.0;  ///< [degree]
  double ratio = 0.0;
  double frequency = 0.0;  ///< of the curve: geometric mean of the tests' [Hz]; 0: lives in seconds
  std::vector<LifePoint> tests;
  std::vector<LifePoint> curve;  ///< empty where nothing could be fitted
  /// Root mean square of log10(life of the engine over measured life), each test at its own
  /// frequency; nothing without a curve.
  std::optional<double> scatter;
};

/// The S-N tests of an environment.
struct LifeChart {
  std::vector<LifeSeries> series;
  bool isRecomputed = false;  ///< the constants stand in no file: fitted again by the engine
};

/// The tests of an environment (counted from 0) with curves; of a ply by the constants of
/// fdata.xml, of a weave by constants that the engine fits again, as no file holds them.
[[nodiscard]] LifeChart lifeChart(const MaterialFolder& folder, std::size_t environment);

}  // namespace lamkit

#endif
