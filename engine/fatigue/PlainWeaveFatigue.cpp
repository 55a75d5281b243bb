// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/PlainWeaveFatigue.h"

#include <algorithm>

namespace kx {
namespace {

/// Tow axis 1 along composite axis 2, tow axis 2 against composite axis 1.
Vector6 inWarpAxes(const Vector6& s) {
  Vector6 turned;
  turned << s(k22), s(k11), s(k33), -s(k12), s(k23), -s(k13);
  return turned;
}

SensedStrength kneeOrUltimate(const WeaveStrengths& strengths) noexcept {
  const auto choose = [](const double knee, const double ultimate) {
    return knee > 0.0 ? knee : ultimate;
  };
  return {choose(strengths.knee.tension, strengths.ultimate.tension),
          choose(strengths.knee.compression, strengths.ultimate.compression)};
}

}  // namespace

TowMatrixStress towMatrixStress(const WeaveDecomposition& weave) {
  const Vector6 warpUnderFill = inWarpAxes(weave.warp.col(k11));
  const Vector6 warpUnderWarp = inWarpAxes(weave.warp.col(k22));
  return {weave.fillMatrix.row(k11).dot(weave.fill.col(k11)),
          weave.warpMatrix.row(k11).dot(warpUnderWarp),
          weave.warpMatrix.row(k22).dot(warpUnderFill)};
}

FatigueFit fitPlainWeaveFatigue(const std::vector<SnRecord>& records,
                                const double temperature,
                                const WeaveStrengths& strengths,
                                const WeaveDecomposition& weave) {
  const auto matrix = towMatrixStress(weave);
  const double kneeShear =
      strengths.kneeShear > 0.0 ? strengths.kneeShear : strengths.ultimateShear;
  DirectionalTests longitudinal(strengths.ultimate, strengths.ultimateShear);
  DirectionalTests transverse(kneeOrUltimate(strengths), kneeShear);
  for (const auto& record : records) {
    const auto direction = loadDirection(record.angle);
    const auto axis = loadAxis(record.angle);
    if (axis == LoadAxis::along) {
      longitudinal.addAxial(record);
    } else if (axis == LoadAxis::across) {
      longitudinal.addOblique(record, matrix.warpAlong / matrix.fillAlong, 0.0);
    } else {
      const double larger =
          std::max(direction.cosine * direction.cosine, direction.sine * direction.sine);
      transverse.addOblique(record, larger, direction.sine * direction.cosine);
    }
  }
  return {fitDirection(longitudinal.data(matrix.fillAlong), temperature),
          fitDirection(transverse.data(matrix.warpAcross), temperature)};
}

}  // namespace kx
