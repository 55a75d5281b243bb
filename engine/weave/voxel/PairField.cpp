#include "weave/voxel/PairField.h"

#include <array>

namespace kx {

void planeGradients(const PairField& field,
                    const std::size_t lane,
                    const int i,
                    double* const strains) {
  const GridShape& shape = field.shape();
  const int next = i + 1 < shape.n1 ? i + 1 : 0;
  const int farShift = next == 0 && shape.shift2 > 0 ? shape.n2 - shape.shift2 : 0;
  const std::size_t count = static_cast<std::size_t>(shape.n2) * static_cast<std::size_t>(shape.n3);
  const double s1 = 0.25 / shape.h1;
  const double s2 = 0.25 / shape.h2;
  const double s3 = 0.25 / shape.h3;
  for (int j = 0; j < shape.n2; ++j) {
    const int beside = j + 1 < shape.n2 ? j + 1 : 0;
    std::array<const double*, 3> u00{};
    std::array<const double*, 3> u01{};
    std::array<const double*, 3> u10{};
    std::array<const double*, 3> u11{};
    for (std::size_t c = 0; c < 3; ++c) {
      u00[c] = field.row(i, j, static_cast<int>(c)) + lane;
      u01[c] = field.row(i, beside, static_cast<int>(c)) + lane;
      u10[c] = field.row(next, (j + farShift) % shape.n2, static_cast<int>(c)) + lane;
      u11[c] = field.row(next, (beside + farShift) % shape.n2, static_cast<int>(c)) + lane;
    }
    double* out = strains + static_cast<std::size_t>(j) * static_cast<std::size_t>(shape.n3);
    for (int k = 0; k < shape.n3; ++k, ++out) {
      const int a = 2 * k;
      const int b = k + 1 < shape.n3 ? a + 2 : 0;
      std::array<std::array<double, 3>, 3> g{};
      for (std::size_t c = 0; c < 3; ++c) {
        const double near0 = u00[c][a] + u00[c][b];
        const double near1 = u01[c][a] + u01[c][b];
        const double far0 = u10[c][a] + u10[c][b];
        const double far1 = u11[c][a] + u11[c][b];
        const double low = u00[c][a] + u01[c][a] + u10[c][a] + u11[c][a];
        const double high = u00[c][b] + u01[c][b] + u10[c][b] + u11[c][b];
        g[c] = {s1 * ((far0 + far1) - (near0 + near1)),
                s2 * ((near1 + far1) - (near0 + far0)),
                s3 * (high - low)};
      }
      out[0] = g[0][0];
      out[count] = g[1][1];
      out[2 * count] = g[2][2];
      out[3 * count] = g[0][1] + g[1][0];
      out[4 * count] = g[0][2] + g[2][0];
      out[5 * count] = g[1][2] + g[2][1];
    }
  }
}

}  // namespace kx
