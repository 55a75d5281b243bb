// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FATIGUE_DIRECTIONFIT_H
#define KX_FATIGUE_DIRECTIONFIT_H

#include <cstddef>
#include <vector>

#include "fatigue/BondBreaking.h"

namespace kx {

/// One fatigue test as the fit of a direction sees it.
struct LifeTest {
  double peak = 0.0;       ///< driving stress of the composite at the peak [Pa], > 0
  double ratio = 0.0;      ///< other extreme over the peak, in [-1, 1]
  double life = 0.0;       ///< cycles to failure, > 0
  double frequency = 0.0;  ///< [Hz], > 0
};

/// What is known about one direction of a composite.
struct DirectionData {
  double strength = 0.0;       ///< static, in terms of the driving stress [Pa]; <= 0: not given
  double concentration = 0.0;  ///< matrix stress per driving stress, > 0
  std::vector<LifeTest> tests;
};

/// Constants of one direction and how well they reproduce the tests.
struct DirectionFit {
  BondConstants constants;       ///< all zeros when nothing could be fitted
  BondConstants standardErrors;  ///< one standard deviation; 0 for what is not fitted
  double initialError = 0.0;     ///< rms of log10(predicted/measured life), prior constants
  double finalError = 0.0;       ///< the same for the fitted constants
  int iterations = 0;
  std::size_t tests = 0;  ///< that were fitted

  [[nodiscard]] bool isFitted() const noexcept { return constants.breakingEnergy > 0.0; }
};

/// Fits Ub, gb and k to tests and static strength by least squares.
///
/// Unknowns: x = gb S/(R T), the deviation e of rampStrength() from S (so Ub/(R T) =
/// ln(nu0 t_ramp) + x (1 + e)), and k >= 0. Residuals: ln(predicted/measured life) over the
/// scatter of the tests, and three priors, which are all there is without tests:
/// e = 0 +- 0.05, x = 18 +- 8, k = 0.7 +- 0.5 (fixed below three tests). The scatter is that of a
/// straight line through the tests (ln time against stress), pooled with one test's worth of a
/// factor e. If the priors still keep the tests further from the model than 1.03 times that line,
/// they are relaxed step by step: the tests come first.
/// What such tests cannot tell stays tied: Psi = 1, healing constants equal to the breaking ones
/// (then healing is negligible at every stress).
///
/// Without a strength the largest peak stands in for it, with e +- 0.5; without either, with a
/// temperature or concentration that is no positive number, or with tests that only a negative
/// energy would explain (lives far below any loading time), the constants are 0.
/// Beyond 256 usable tests an even selection over their stresses is fitted. temperature [K].
DirectionFit fitDirection(const DirectionData& data, double temperature);

}  // namespace kx

#endif
