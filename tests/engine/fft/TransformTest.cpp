#include "fft/Transform.h"

#include <complex>
#include <cstddef>
#include <vector>

#include <gtest/gtest.h>

namespace kx {
namespace {

using Complex = std::complex<double>;
constexpr double kTwoPi = 6.28318530717958647693;
constexpr double kRounding = 1e-12;  // sums of some hundred terms of order one

std::vector<Complex> numbers(const std::size_t count) {
  std::vector<Complex> values(count);
  for (std::size_t i = 0; i < count; ++i) {
    values[i] = {static_cast<double>((i * 7) % 11) - 5.0, static_cast<double>((i * 5) % 13) / 6.0};
  }
  return values;
}

// The definition, for one line of `points` numbers `stride` apart.
void sumDirectly(std::vector<Complex>& values,
                 const std::size_t first,
                 const std::size_t stride,
                 const std::size_t points) {
  std::vector<Complex> image(points);
  for (std::size_t k = 0; k < points; ++k) {
    for (std::size_t i = 0; i < points; ++i) {
      const double phase =
          -kTwoPi * static_cast<double>(i * k % points) / static_cast<double>(points);
      image[k] += values[first + i * stride] * std::polar(1.0, phase);
    }
  }
  for (std::size_t k = 0; k < points; ++k) {
    values[first + k * stride] = image[k];
  }
}

double* data(std::vector<Complex>& values) {
  return reinterpret_cast<double*>(values.data());
}

double distance(const std::vector<Complex>& a, const std::vector<Complex>& b) {
  double largest = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    largest = std::max(largest, std::abs(a[i] - b[i]));
  }
  return largest;
}

TEST(Transform, InterleavedLinesFollowTheDefinition) {
  for (const std::size_t n : {5U, 8U, 12U, 18U, 60U}) {
    constexpr std::size_t kCount = 6;
    std::vector<Complex> values = numbers(n * kCount);
    std::vector<Complex> expected = values;
    for (std::size_t c = 0; c < kCount; ++c) {
      sumDirectly(expected, c, kCount, n);
    }
    Transform::interleaved(static_cast<int>(n), kCount)->forward(data(values));
    EXPECT_LT(distance(values, expected), kRounding * 100) << n;
  }
}

TEST(Transform, PlaneFollowsTheDefinition) {
  constexpr std::size_t kRows = 10;
  constexpr std::size_t kColumns = 6;
  std::vector<Complex> values = numbers(kRows * kColumns);
  std::vector<Complex> expected = values;
  for (std::size_t row = 0; row < kRows; ++row) {
    sumDirectly(expected, row * kColumns, 1, kColumns);
  }
  for (std::size_t column = 0; column < kColumns; ++column) {
    sumDirectly(expected, column, kColumns, kRows);
  }
  Transform::plane(kRows, kColumns)->forward(data(values));
  EXPECT_LT(distance(values, expected), kRounding * 100);
}

TEST(Transform, BackwardUndoesForwardButForTheNumberOfPoints) {
  const std::vector<Complex> original = numbers(std::size_t{48} * 20);
  std::vector<Complex> values = original;
  const auto plane = Transform::plane(48, 20);
  plane->forward(data(values));
  plane->backward(data(values));
  for (Complex& value : values) {
    value /= 48.0 * 20.0;
  }
  EXPECT_LT(distance(values, original), kRounding);
}

}  // namespace
}  // namespace kx
