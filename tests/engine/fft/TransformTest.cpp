// SPDX-License-Identifier: BSD-3-Clause
#include "fft/Transform.h"

#include <complex>
#include <cstddef>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "fft/InstructionSet.h"

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

std::vector<double> scratchFor(const std::size_t size) {
  return std::vector<double>(size);
}

fft::Lines sideBySide(std::vector<Complex>& values, const int lines) {
  return {data(values), std::ptrdiff_t{2} * lines, 2};
}

// Every radix, alone and joined, with odd and even numbers of lines.
TEST(LineTransform, FollowsTheDefinition) {
  for (const int n : {2, 3, 4, 5, 6, 8, 10, 12, 15, 16, 18, 24, 25, 48, 60, 80, 81, 128, 240}) {
    for (const int lines : {1, 6, 7, 33}) {
      const auto count = static_cast<std::size_t>(lines);
      const auto points = static_cast<std::size_t>(n);
      std::vector<Complex> values = numbers(points * count);
      std::vector<Complex> expected = values;
      for (std::size_t c = 0; c < count; ++c) {
        sumDirectly(expected, c, count, points);
      }
      const LineTransform transform(n);
      std::vector<double> scratch = scratchFor(transform.scratchSize(lines));
      const fft::Lines all = sideBySide(values, lines);
      transform.forward(all, all, lines, nullptr, scratch.data());
      EXPECT_LT(distance(values, expected), kRounding * 100) << n << ", " << lines;
    }
  }
}

TEST(LineTransform, BackwardUndoesForwardButForTheNumberOfPoints) {
  constexpr int kPoints = 60;
  constexpr int kLines = 5;
  const std::vector<Complex> original = numbers(std::size_t{kPoints} * kLines);
  std::vector<Complex> values = original;
  std::vector<Complex> image(values.size());
  const LineTransform transform(kPoints);
  std::vector<double> scratch = scratchFor(transform.scratchSize(kLines));
  transform.forward(
      sideBySide(values, kLines), sideBySide(image, kLines), kLines, nullptr, scratch.data());
  EXPECT_EQ(distance(values, original), 0.0);
  transform.backward(
      sideBySide(image, kLines), sideBySide(values, kLines), kLines, nullptr, scratch.data());
  for (Complex& value : values) {
    value /= 1.0 * kPoints;
  }
  EXPECT_LT(distance(values, original), kRounding);
}

TEST(LineTransform, TurnsPointsBeforeItGoesForwardAndBackAfterItCameBack) {
  constexpr int kPoints = 24;
  constexpr int kLines = 4;
  std::vector<double> turns;
  std::vector<Complex> turned = numbers(std::size_t{kPoints} * kLines);
  std::vector<Complex> values = turned;
  const std::vector<Complex> original = values;
  for (std::size_t i = 0; i < kPoints; ++i) {
    const Complex turn = std::polar(1.0, 0.3 * static_cast<double>(i));
    turns.insert(turns.end(), {turn.real(), turn.imag()});
    for (std::size_t line = 0; line < kLines; ++line) {
      turned[i * kLines + line] *= turn;
    }
  }
  const LineTransform transform(kPoints);
  std::vector<double> scratch = scratchFor(transform.scratchSize(kLines));
  const fft::Lines lines = sideBySide(values, kLines);
  const fft::Lines expected = sideBySide(turned, kLines);
  transform.forward(lines, lines, kLines, turns.data(), scratch.data());
  transform.forward(expected, expected, kLines, nullptr, scratch.data());
  EXPECT_LT(distance(values, turned), kRounding);
  transform.backward(lines, lines, kLines, turns.data(), scratch.data());
  for (Complex& value : values) {
    value /= 1.0 * kPoints;
  }
  EXPECT_LT(distance(values, original), kRounding);
}

TEST(LineTransform, RefusesLengthsWithOtherPrimeFactors) {
  EXPECT_THROW(LineTransform{7}, std::invalid_argument);
  EXPECT_THROW(LineTransform{44}, std::invalid_argument);
  EXPECT_THROW(LineTransform{1}, std::invalid_argument);
}

TEST(PlaneTransform, FollowsTheDefinition) {
  for (const std::size_t rows : {9U, 10U}) {
    constexpr std::size_t kColumns = 6;
    std::vector<Complex> values = numbers(rows * kColumns);
    std::vector<Complex> expected = values;
    for (std::size_t row = 0; row < rows; ++row) {
      sumDirectly(expected, row * kColumns, 1, kColumns);
    }
    for (std::size_t column = 0; column < kColumns; ++column) {
      sumDirectly(expected, column, kColumns, rows);
    }
    const PlaneTransform plane(static_cast<int>(rows), kColumns);
    std::vector<double> scratch = scratchFor(plane.scratchSize());
    plane.forward(data(values), scratch.data());
    EXPECT_LT(distance(values, expected), kRounding * 100);
  }
}

TEST(PlaneTransform, BackwardUndoesForwardButForTheNumberOfPoints) {
  const std::vector<Complex> original = numbers(std::size_t{48} * 20);
  std::vector<Complex> values = original;
  const PlaneTransform plane(48, 20);
  std::vector<double> scratch = scratchFor(plane.scratchSize());
  plane.forward(data(values), scratch.data());
  plane.backward(data(values), scratch.data());
  for (Complex& value : values) {
    value /= 48.0 * 20.0;
  }
  EXPECT_LT(distance(values, original), kRounding);
}

TEST(Passes, OfAllInstructionSetsAgreeToRounding) {
  std::vector<fft::RunPass> passes{fft::baselinePass()};
  if (widestInstructionSet() >= InstructionSet::avx2) {
    passes.push_back(fft::avx2Pass());
  }
  if (widestInstructionSet() >= InstructionSet::avx512) {
    passes.push_back(fft::avx512Pass());
  }
  for (const int radix : {2, 3, 4, 5, 6, 8, 10, 12, 16}) {
    constexpr int kLines = 5;
    const std::vector<double> twiddles(std::size_t{2} * static_cast<std::size_t>(radix), 0.6);
    std::vector<Complex> from = numbers(std::size_t{2} * static_cast<std::size_t>(radix) * kLines);
    std::vector<std::vector<Complex>> images;
    for (const fft::RunPass pass : passes) {
      images.emplace_back(from.size());
      fft::PassJob job;
      job.pass = {radix, 1, 2, twiddles.data()};
      job.from = sideBySide(from, kLines);
      job.to = sideBySide(images.back(), kLines);
      job.lines = kLines;
      pass(job);
      EXPECT_LT(distance(images.back(), images.front()), kRounding) << radix;
    }
  }
}

}  // namespace
}  // namespace kx
