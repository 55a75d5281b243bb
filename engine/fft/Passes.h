// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FFT_PASSES_H
#define KX_FFT_PASSES_H

#include <cstddef>

/// The inner loops of the transforms, compiled once per instruction set.
namespace kx::fft {

/// Where the numbers of a bundle of lines lie, in doubles: point i of line l begins at
/// base + i * point + l * line. Lines 2 apart lie side by side.
struct Lines {
  double* base = nullptr;
  std::ptrdiff_t point = 0;
  std::ptrdiff_t line = 2;
};

/// One pass of Stockham's autosort algorithm (stockham1966) over all points of a bundle:
/// `blocks` groups of `radix` points each, which lie `blocks * repeats` apart in the input and
/// `repeats` apart in the output.
struct Pass {
  int radix = 1;
  int blocks = 1;
  int repeats = 1;
  const double* twiddles = nullptr;  ///< cos and sin per block and output 1 ... radix - 1
};

struct PassJob {
  Pass pass;
  Lines from;
  Lines to;
  int lines = 0;
  double sense = 1.0;                ///< 1 forward (exponent -i), -1 backward
  const double* inTurns = nullptr;   ///< null, or cos and sin by which each input point is turned
  const double* outTurns = nullptr;  ///< null, or the same for the output, against the sense
};

using RunPass = void (*)(const PassJob&);

/// Butterflies of 2, 3, 4, 5, 6, 8 or 10 points; any other radix by its definition.
RunPass baselinePass();
RunPass avx2Pass();    ///< needs AVX2 and FMA
RunPass avx512Pass();  ///< needs AVX-512 F, VL and DQ

}  // namespace kx::fft

#endif
