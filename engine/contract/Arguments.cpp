// SPDX-License-Identifier: BSD-3-Clause
#include "contract/Arguments.h"

namespace kx {
namespace {

/// More elements than any deck holds: such a count is a mistake, and reading on would be one, too.
constexpr std::int32_t kLargestCount = 1 << 24;
constexpr std::size_t kSnColumns = 5;

}  // namespace

std::size_t countFrom(const std::int32_t* count) noexcept {
  return count != nullptr && *count > 0 && *count <= kLargestCount
             ? static_cast<std::size_t>(*count)
             : 0;
}

std::vector<SnRecord> snRecordsFrom(const double* records, const std::int32_t* count) {
  std::vector<SnRecord> result;
  if (records == nullptr) {
    return result;
  }
  result.reserve(countFrom(count));
  for (std::size_t i = 0; i < countFrom(count); ++i) {
    const double* record = records + kSnColumns * i;
    result.push_back({record[0], record[1], record[2], record[3], record[4]});
  }
  return result;
}

std::vector<ShearPoint> shearPointsFrom(const double* stress,
                                        const double* strain,
                                        const std::int32_t* count) {
  std::vector<ShearPoint> result;
  if (!areGiven(stress, strain)) {
    return result;
  }
  result.reserve(countFrom(count));
  for (std::size_t i = 0; i < countFrom(count); ++i) {
    result.push_back({stress[i], strain[i]});
  }
  return result;
}

void copyTo(const BondConstants& constants, double* row) noexcept {
  row[0] = constants.breakingEnergy;
  row[1] = constants.healingEnergy;
  row[2] = constants.breakingActivation;
  row[3] = constants.healingActivation;
  row[4] = constants.loadTransfer;
  row[5] = constants.amplitudeFactor;
}

void copyTo(const ShearReduction& reduction,
            double* m,
            double* b,
            double* thr,
            std::int32_t* failed,
            std::int32_t* code) noexcept {
  *m = reduction.law.m;
  *b = reduction.law.b;
  *thr = reduction.law.threshold;
  *failed = reduction.verdict == CurveVerdict::reduced ? 0 : 1;
  *code = static_cast<std::int32_t>(reduction.verdict);
}

}  // namespace kx
