// SPDX-License-Identifier: BSD-3-Clause
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

std::vector<double> doubledHalfPhases(const int n) {
  const std::vector<double> phases = halfPhases(n);
  std::vector<double> doubled;
  for (const std::size_t part : {std::size_t{0}, std::size_t{1}}) {
    for (std::size_t k = 0; k < phases.size(); k += 2) {
      doubled.insert(doubled.end(), 2, phases[k + part]);
    }
    doubled.insert(doubled.end(), 2, phases[part]);
  }
  return doubled;
}

// Turns per repeat along axis 1 of the fields of row k2, to be reduced to whole turns.
double turnsOf(const GridShape& shape, const int row) {
  return -static_cast<double>(row) * shape.shift2 / shape.n2;
}

}  // namespace

SpectralBasis::SpectralBasis(const GridShape& gridShape)
    : shape(gridShape),
      plane(gridShape.n2, gridShape.n3),
      lines(gridShape.n1),
      axis2(halfPhases(gridShape.n2)),
      axis3(doubledHalfPhases(gridShape.n3)) {
  for (int row = 0; 2 * row <= shape.n2; ++row) {
    addHalfPhases(shape.n1, turnsOf(shape, row), axis1);
  }
  for (int k2 = 0; shape.shift2 > 0 && k2 < shape.n2; ++k2) {
    const double turns = turnsOf(shape, 2 * k2 <= shape.n2 ? k2 : k2 - shape.n2);
    for (int i = 0; i < shape.n1; ++i) {
      planePhases.push_back(std::cos(-2 * kPi * turns * i / shape.n1));
      planePhases.push_back(std::sin(-2 * kPi * turns * i / shape.n1));
    }
  }
  const double smallest = std::min({shape.h1, shape.h2, shape.h3});
  largestSquare = 4.0 / (smallest * smallest);
}

const double* SpectralBasis::phasesOf(const int k2) const {
  return planePhases.empty() ? nullptr : planePhases.data() + std::ptrdiff_t{2} * k2 * shape.n1;
}

}  // namespace kx
