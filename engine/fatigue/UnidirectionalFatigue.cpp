// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/UnidirectionalFatigue.h"

namespace kx {

FatigueFit fitUnidirectionalFatigue(const std::vector<SnRecord>& records,
                                    const double temperature,
                                    const PlyStrengths& strengths,
                                    const MatrixConcentration& matrix) {
  DirectionalTests longitudinal(strengths.longitudinal, strengths.shear);
  DirectionalTests transverse(strengths.transverse, strengths.shear);
  for (const auto& record : records) {
    if (loadAxis(record.angle) == LoadAxis::along) {
      longitudinal.addAxial(record);
    } else {
      const auto direction = loadDirection(record.angle);
      transverse.addOblique(
          record, direction.sine * direction.sine, direction.sine * direction.cosine);
    }
  }
  return {fitDirection(longitudinal.data(matrix.longitudinal), temperature),
          fitDirection(transverse.data(matrix.transverse), temperature)};
}

}  // namespace kx
