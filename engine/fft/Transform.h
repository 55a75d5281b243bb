// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FFT_TRANSFORM_H
#define KX_FFT_TRANSFORM_H

#include <cstddef>
#include <vector>

#include "fft/Passes.h"

namespace kx {

/// Complex discrete Fourier transforms of many lines at once, double precision.
///
/// Unnormalised: forward (exponent -i) followed by backward multiplies by the number of points. A
/// number is a pair of doubles, real part first. The passes over the points (stockham1966) are
/// fixed by their number alone and all lines go through each of them together, so that results
/// repeat bit by bit on one instruction set. Objects may be used by several threads at once.
class LineTransform {
 public:
  /// `points` >= 2 must be a product of 2, 3 and 5: std::invalid_argument otherwise.
  explicit LineTransform(int points);
  LineTransform(const LineTransform&) = delete;
  LineTransform& operator=(const LineTransform&) = delete;

  int points() const { return points_; }

  /// Doubles of scratch that a transform of `lines` lines needs.
  std::size_t scratchSize(int lines) const;

  /// `from` and `to` may be the same bundle, else they must not overlap. With `turns`, cos and sin
  /// of an angle per point, point i of the input is first turned by the angle i (forward), of the
  /// output last turned back by it (backward).
  void forward(const fft::Lines& from,
               const fft::Lines& to,
               int lines,
               const double* turns,
               double* scratch) const;
  void backward(const fft::Lines& from,
                const fft::Lines& to,
                int lines,
                const double* turns,
                double* scratch) const;

 private:
  void run(fft::PassJob job, const double* inTurns, const double* outTurns, double* scratch) const;

  int points_;
  std::vector<double> twiddles_;
  std::vector<fft::Pass> passes_;  ///< point into twiddles_
  fft::RunPass runPass_;
};

/// Transforms of rows * columns points stored row by row, in place.
class PlaneTransform {
 public:
  PlaneTransform(int rows, int columns);

  std::size_t scratchSize() const;
  void forward(double* data, double* scratch) const;
  void backward(double* data, double* scratch) const;

 private:
  LineTransform alongColumns_;  ///< over the points of a column
  LineTransform alongRows_;
};

}  // namespace kx

#endif
