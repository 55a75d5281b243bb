// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_CONTRACT_ARGUMENTS_H
#define KX_CONTRACT_ARGUMENTS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <vector>

#include "fatigue/BondBreaking.h"
#include "fatigue/DrivingStress.h"
#include "shear/ShearCurve.h"

namespace kx {

/// What a fit that never ran reports as its errors: all of it.
inline constexpr double kNoFitError = 1.0;

/// True when every argument was given.
template <typename... Pointers>
bool areGiven(const Pointers*... pointers) noexcept {
  return (... && (pointers != nullptr));
}

/// Doubles that a function of the contract writes; none when `values` is null.
struct Output {
  double* values;
  std::size_t count;
};
using Outputs = std::initializer_list<Output>;

inline void fillWith(const double value, const Outputs outputs) noexcept {
  for (const Output& output : outputs) {
    if (output.values != nullptr) {
      std::fill_n(output.values, output.count, value);
    }
  }
}

/// Runs a function of the contract; nothing is thrown across it. An exception (out of memory, in
/// practice) leaves no numbers in its outputs: what was not solved must not look as if it were.
template <typename Function>
void guarded(const Outputs outputs, Function&& function) noexcept {
  try {
    function();
  } catch (...) {
    fillWith(std::numeric_limits<double>::quiet_NaN(), outputs);
  }
}

/// A count of elements; 0 for a missing, negative or absurd one.
std::size_t countFrom(const std::int32_t* count) noexcept;

/// count records of five doubles each.
std::vector<SnRecord> snRecordsFrom(const double* records, const std::int32_t* count);

/// count points from two columns.
std::vector<ShearPoint> shearPointsFrom(const double* stress,
                                        const double* strain,
                                        const std::int32_t* count);

/// Writes six doubles: U breaking, healing, gamma breaking, healing, Psi, k.
void copyTo(const BondConstants& constants, double* row) noexcept;

/// Writes the scalars of a reduced curve and what became of it.
void copyTo(const ShearReduction& reduction,
            double* m,
            double* b,
            double* thr,
            std::int32_t* failed,
            std::int32_t* code) noexcept;

}  // namespace kx

#endif
