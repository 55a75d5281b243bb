#include "weave/voxel/SpectralBasis.h"

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

constexpr double kPi = 3.14159265358979323846;

void addHalfPhases(const int n, const double offset, std::vector<double>& phases) {
  for (int k = 0; k < n; ++k) {
    const double frequency = (2 * k <= n ? k : k - n) + offset;
    phases.push_back(std::sin(kPi * frequency / n));
    phases.push_back(std::cos(kPi * frequency / n));
  }
}

std::vector<double> halfPhases(const int n) {
  std::vector<double> phases;
  addHalfPhases(n, 0.0, phases);
  return phases;
}

// Turns per repeat along axis 1 of the fields of row k2, to be reduced to whole turns.
double turnsOf(const GridShape& shape, const int row) {
  return -static_cast<double>(row) * shape.shift2 / shape.n2;
}

}  // namespace

SpectralBasis::SpectralBasis(const GridShape& gridShape)
    : shape(gridShape),
      plane(Transform::plane(gridShape.n2, gridShape.n3)),
      lines(Transform::interleaved(gridShape.n1, gridShape.n3)),
      axis2(halfPhases(gridShape.n2)),
      axis3(halfPhases(gridShape.n3)) {
  for (int row = 0; 2 * row <= shape.n2; ++row) {
    const double turns = turnsOf(shape, row);
    addHalfPhases(shape.n1, turns, axis1);
    for (int i = 0; i < shape.n1; ++i) {
      planePhases.push_back(std::cos(-2 * kPi * turns * i / shape.n1));
      planePhases.push_back(std::sin(-2 * kPi * turns * i / shape.n1));
    }
  }
  const double smallest = std::min({shape.h1, shape.h2, shape.h3});
  largestSquare = 4.0 / (smallest * smallest);
}

}  // namespace kx
