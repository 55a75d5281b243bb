// SPDX-License-Identifier: BSD-3-Clause
#include "fft/Transform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "fft/InstructionSet.h"

namespace kx {

namespace {

// The lines of a block pass through the first-level cache together.
constexpr int kBlock = 32;

constexpr std::array<int, 9> kRadices{16, 12, 10, 8, 6, 5, 4, 3, 2};

// Whether fewer passes, or as many of which the widest is narrower.
bool isBetter(const std::vector<int>& factors, const std::vector<int>& others) {
  return others.empty() || factors.size() < others.size() ||
         (factors.size() == others.size() && *std::max_element(factors.begin(), factors.end()) <
                                                 *std::max_element(others.begin(), others.end()));
}

// The fewest factors, all of kRadices, whose product is n; empty when there are none.
std::vector<int> factorsOf(const int n) {
  std::vector<int> best;
  for (const int radix : kRadices) {
    if (n == radix) {
      return {radix};
    }
    if (n % radix != 0) {
      continue;
    }
    std::vector<int> factors = factorsOf(n / radix);
    factors.push_back(radix);
    if (factors.size() > 1 && isBetter(factors, best)) {
      best = std::move(factors);
    }
  }
  return best;
}

fft::RunPass widestPass() {
  switch (widestInstructionSet()) {
    case InstructionSet::avx512:
      return fft::avx512Pass();
    case InstructionSet::avx2:
      return fft::avx2Pass();
    default:
      return fft::baselinePass();
  }
}

void addTwiddles(const int n, const int radix, std::vector<double>& twiddles) {
  const double pi = std::acos(-1.0);
  for (int block = 0; block < n / radix; ++block) {
    for (int i = 1; i < radix; ++i) {
      const double angle = 2 * pi * (block * i % n) / n;
      twiddles.push_back(std::cos(angle));
      twiddles.push_back(std::sin(angle));
    }
  }
}

fft::PassJob blockOf(const fft::Lines& from,
                     const fft::Lines& to,
                     const int first,
                     const int lines,
                     const double sense) {
  fft::PassJob job;
  job.from = {from.base + first * from.line, from.point, from.line};
  job.to = {to.base + first * to.line, to.point, to.line};
  job.lines = std::min(kBlock, lines - first);
  job.sense = sense;
  return job;
}

}  // namespace

LineTransform::LineTransform(const int points) : points_(points), runPass_(widestPass()) {
  const std::vector<int> radices = points < 2 ? std::vector<int>{} : factorsOf(points);
  if (radices.empty()) {
    throw std::invalid_argument("points of a transform must be a product of 2, 3 and 5");
  }
  std::vector<std::size_t> offsets;
  int left = points;
  for (const int radix : radices) {
    offsets.push_back(twiddles_.size());
    addTwiddles(left, radix, twiddles_);
    left /= radix;
    passes_.push_back({radix, left, points / (left * radix), nullptr});
  }
  for (std::size_t pass = 0; pass < passes_.size(); ++pass) {
    passes_[pass].twiddles = twiddles_.data() + offsets[pass];
  }
}

std::size_t LineTransform::scratchSize(const int lines) const {
  return std::size_t{4} * static_cast<std::size_t>(points_) *
         static_cast<std::size_t>(std::min(lines, kBlock));
}

void LineTransform::run(fft::PassJob job,
                        const double* const inTurns,
                        const double* const outTurns,
                        double* const scratch) const {
  const fft::Lines from = job.from;
  const fft::Lines to = job.to;
  const std::ptrdiff_t line = 2 * job.lines;
  const std::array<fft::Lines, 2> buffers{fft::Lines{scratch, line, 2},
                                          fft::Lines{scratch + line * points_, line, 2}};
  for (std::size_t pass = 0; pass < passes_.size(); ++pass) {
    const bool isLast = pass + 1 == passes_.size();
    job.pass = passes_[pass];
    job.from = pass == 0 ? from : buffers[(pass - 1) % 2];
    job.to = isLast ? to : buffers[pass % 2];
    job.inTurns = pass == 0 ? inTurns : nullptr;
    job.outTurns = isLast ? outTurns : nullptr;
    runPass_(job);
  }
}

void LineTransform::forward(const fft::Lines& from,
                            const fft::Lines& to,
                            const int lines,
                            const double* const turns,
                            double* const scratch) const {
  for (int first = 0; first < lines; first += kBlock) {
    run(blockOf(from, to, first, lines, 1.0), turns, nullptr, scratch);
  }
}

void LineTransform::backward(const fft::Lines& from,
                             const fft::Lines& to,
                             const int lines,
                             const double* const turns,
                             double* const scratch) const {
  for (int first = 0; first < lines; first += kBlock) {
    run(blockOf(from, to, first, lines, -1.0), nullptr, turns, scratch);
  }
}

PlaneTransform::PlaneTransform(const int rows, const int columns)
    : alongColumns_(rows), alongRows_(columns) {}

std::size_t PlaneTransform::scratchSize() const {
  return std::max(alongColumns_.scratchSize(alongRows_.points()),
                  alongRows_.scratchSize(alongColumns_.points()));
}

void PlaneTransform::forward(double* const data, double* const scratch) const {
  const std::ptrdiff_t row = std::ptrdiff_t{2} * alongRows_.points();
  const fft::Lines rows{data, 2, row};
  const fft::Lines columns{data, row, 2};
  alongRows_.forward(rows, rows, alongColumns_.points(), nullptr, scratch);
  alongColumns_.forward(columns, columns, alongRows_.points(), nullptr, scratch);
}

void PlaneTransform::backward(double* const data, double* const scratch) const {
  const std::ptrdiff_t row = std::ptrdiff_t{2} * alongRows_.points();
  const fft::Lines rows{data, 2, row};
  const fft::Lines columns{data, row, 2};
  alongColumns_.backward(columns, columns, alongRows_.points(), nullptr, scratch);
  alongRows_.backward(rows, rows, alongColumns_.points(), nullptr, scratch);
}

}  // namespace kx
