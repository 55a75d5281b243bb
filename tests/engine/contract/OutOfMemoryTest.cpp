// SPDX-License-Identifier: BSD-3-Clause
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>

#include <gtest/gtest.h>

#include "contract/Contract.h"

namespace kx::test {
namespace {

bool isNoNumber(const double value) {
  return std::isnan(value);
}

/// The fit of a plain weave whose lamina is one of its own start values.
struct WeaveCall : WeaveOptimization {
  WeaveCall() {
    weave.towFractions = {0.45, 0.45};
    weave.fiberFractionInTow = 0.6;
    fiber = twelve({225e9, 15e9, 0.2, 0.25, 15e9, -0.5e-6, 15e-6});
    matrix = twelve(isotropic(4.2e9, 0.34, 45e-6));
    lamina = {60e9, 60e9, 10e9, 0.05, 0.3, 0.3, 5e9, 4e9, 4e9, 2e-6, 2e-6, 4e-5};
  }
};

enum Outcome : int { solved, withoutNumbers, unclear };

template <typename Values>
bool areNoNumbers(const Values& values) {
  return std::all_of(values.begin(), values.end(), isNoNumber);
}

template <typename Call>
bool isWithoutConstants(const Call& call) {
  return areNoNumbers(call.lamina) && areNoNumbers(call.fiber) && areNoNumbers(call.matrix);
}

Outcome outcomeOf(const WeaveCall& call) {
  if (isWithoutConstants(call) && isNoNumber(call.errors[0])) {
    return withoutNumbers;
  }
  return call.iterations[0] > 0 ? solved : unclear;
}

Outcome outcomeOf(const UnidirectionalCall& call) {
  const bool isWithoutErrors =
      std::all_of(call.errors.begin(), call.errors.begin() + 4, isNoNumber);
  if (isWithoutConstants(call) && isWithoutErrors && areNoNumbers(call.fatigueRows)) {
    return withoutNumbers;
  }
  return call.iterations[0] > 0 ? solved : unclear;
}

/// The same weave's shear curve: linear up to 20 MPa, then softening to 80 MPa.
struct ShearCall : WeavePrefail {
  ShearCall() {
    const WeaveCall fit;
    weave = fit.weave;
    fiber = fit.fiber;
    matrix = fit.matrix;
    lamina.fill(0.0);
    shearStrength = 80e6;
    pointCount = 16;
    for (int i = 1; i <= pointCount; ++i) {
      const double tau = 5e6 * i;
      stress.push_back(tau);
      strain.push_back(tau / (4.4e9 * (tau <= 20e6 ? 1.0 : 1.0 - (tau - 20e6) / 100e6)));
    }
  }
};

Outcome outcomeOf(const ShearCall& call) {
  const bool hasFailed = call.failed.value() == 1 && call.code.value() == 0;
  if (hasFailed && isNoNumber(call.m.value()) && areNoNumbers(call.c2mdeg)) {
    return withoutNumbers;
  }
  return call.failed.value() == 0 && call.c2mdeg[1] > 0.0 ? solved : unclear;
}

/// The outcome of a call in a process that may take no more than `more` bytes on top of what it
/// has.
template <typename Call>
int outcomeWith(const std::size_t more, Call call) {
  const pid_t id = fork();
  if (id == 0) {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t most = pages * static_cast<std::size_t>(getpagesize()) + more;
    const rlimit limit{most, most};
    setrlimit(RLIMIT_AS, &limit);
    call.run();
    _exit(outcomeOf(call));
  }
  int status = 0;
  waitpid(id, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(OutOfMemory, LeavesNoNumbersThatLookLikeAResult) {
  if (LAMCRAFT_IS_SANITIZED) {
    GTEST_SKIP() << "sanitizers take more addresses than any limit";
  }
  constexpr std::size_t kMegabyte = std::size_t{1} << 20;
  // What the heap has left of earlier calls is not counted.
  for (const std::size_t more : {0U, 1U, 4U, 8U, 12U, 16U, 20U}) {
    // Enough or not, as the threads need it.
    const int outcome = outcomeWith(more * kMegabyte, WeaveCall{});
    EXPECT_TRUE(outcome == withoutNumbers || outcome == solved) << more << " MB: " << outcome;
  }
  EXPECT_EQ(outcomeWith(1000 * kMegabyte, WeaveCall{}), solved);
}

// The curve is reduced before the softening solves need memory.
TEST(OutOfMemory, InTheSofteningSolvesIsAFailureOfThePrefailStep) {
  if (LAMCRAFT_IS_SANITIZED) {
    GTEST_SKIP() << "sanitizers take more addresses than any limit";
  }
  constexpr std::size_t kMegabyte = std::size_t{1} << 20;
  for (const std::size_t more : {1U, 4U}) {
    EXPECT_EQ(outcomeWith(more * kMegabyte, ShearCall{}), withoutNumbers) << more << " MB";
  }
  EXPECT_EQ(outcomeWith(1000 * kMegabyte, ShearCall{}), solved);
}

// The library copies the records, 20 MB of them, for which there is no room.
TEST(OutOfMemory, LeavesNoNumbersInTheConstantsAndRowsOfALamina) {
  if (LAMCRAFT_IS_SANITIZED) {
    GTEST_SKIP() << "sanitizers take more addresses than any limit";
  }
  constexpr std::size_t kMegabyte = std::size_t{1} << 20;
  UnidirectionalCall call;
  call.sn.assign(500'000, call.sn.front());
  EXPECT_EQ(outcomeWith(10 * kMegabyte, call), withoutNumbers);
  EXPECT_EQ(outcomeWith(1000 * kMegabyte, call), solved);
}

}  // namespace
}  // namespace kx::test
