#ifndef KX_DRIVER_ARGUMENTS_H
#define KX_DRIVER_ARGUMENTS_H

#include <cstddef>
#include <cstdint>
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

/// Runs a function of the contract; nothing is thrown across it. What the function has written
/// before an exception (out of memory, in practice) stands.
template <typename Function>
void guarded(Function&& function) noexcept {
  try {
    function();
  } catch (...) {
    return;
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
