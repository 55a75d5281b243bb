#include "fatigue/PlainWeaveFatigue.h"

#include <algorithm>
#include <cstddef>

namespace kx {
namespace {

constexpr std::size_t kComponents = 6;
enum Component : std::size_t { c11, c22, c33, c12, c13, c23 };
using Stress = std::array<double, kComponents>;

double entry(const ConcentrationColumns& matrix,
             const std::size_t row,
             const std::size_t column) noexcept {
  return matrix[kComponents * column + row];
}

Stress column(const ConcentrationColumns& matrix, const std::size_t index) noexcept {
  Stress stress{};
  for (std::size_t row = 0; row < kComponents; ++row) {
    stress[row] = entry(matrix, row, index);
  }
  return stress;
}

double component(const ConcentrationColumns& matrix,
                 const std::size_t row,
                 const Stress& stress) noexcept {
  double sum = 0.0;
  for (std::size_t index = 0; index < kComponents; ++index) {
    sum += entry(matrix, row, index) * stress[index];
  }
  return sum;
}

/// Tow axis 1 along composite axis 2, tow axis 2 against composite axis 1.
Stress inWarpAxes(const Stress& s) noexcept {
  return {s[c22], s[c11], s[c33], -s[c12], s[c23], -s[c13]};
}

SensedStrength kneeOrUltimate(const WeaveStrengths& strengths) noexcept {
  const auto choose = [](const double knee, const double ultimate) {
    return knee > 0.0 ? knee : ultimate;
  };
  return {choose(strengths.knee.tension, strengths.ultimate.tension),
          choose(strengths.knee.compression, strengths.ultimate.compression)};
}

}  // namespace

TowMatrixStress towMatrixStress(const WeaveDecomposition& weave) noexcept {
  const Stress fillUnderFill = column(weave.fill, c11);
  const Stress warpUnderFill = inWarpAxes(column(weave.warp, c11));
  const Stress warpUnderWarp = inWarpAxes(column(weave.warp, c22));
  return {component(weave.fillMatrix, c11, fillUnderFill),
          component(weave.warpMatrix, c11, warpUnderWarp),
          component(weave.warpMatrix, c22, warpUnderFill)};
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
