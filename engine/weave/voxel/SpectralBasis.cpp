#include "weave/voxel/SpectralBasis.h"

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

std::vector<double> halfPhases(const int n) {
  constexpr double kPi = 3.14159265358979323846;
  std::vector<double> phases;
  for (int k = 0; k < n; ++k) {
    const int frequency = 2 * k <= n ? k : k - n;
    // Exactly zero at the Nyquist frequency, where rounding would leave 6e-17.
    const double cosine = 2 * k == n ? 0.0 : std::cos(kPi * frequency / n);
    phases.push_back(std::sin(kPi * frequency / n));
    phases.push_back(cosine);
  }
  return phases;
}

}  // namespace

SpectralBasis::SpectralBasis(const GridShape& gridShape)
    : shape(gridShape),
      plane(Transform::plane(gridShape.n2, gridShape.n3)),
      lines(Transform::interleaved(gridShape.n1, gridShape.n3)),
      axis1(halfPhases(gridShape.n1)),
      axis2(halfPhases(gridShape.n2)),
      axis3(halfPhases(gridShape.n3)) {
  const double smallest = std::min({shape.h1, shape.h2, shape.h3});
  largestSquare = 4.0 / (smallest * smallest);
}

}  // namespace kx
