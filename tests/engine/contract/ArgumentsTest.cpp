// SPDX-License-Identifier: BSD-3-Clause
#include "contract/Arguments.h"

#include <cmath>
#include <new>

#include <gtest/gtest.h>

namespace {

TEST(Arguments, AreGivenWhenNoneIsMissing) {
  const double number = 0.0;
  const double* const none = nullptr;
  EXPECT_TRUE(kx::areGiven(&number));
  EXPECT_TRUE(kx::areGiven(&number, &number));
  EXPECT_FALSE(kx::areGiven(none));
  EXPECT_FALSE(kx::areGiven(&number, none));
  EXPECT_FALSE(kx::areGiven(none, &number));
}

TEST(Arguments, AnExceptionEndsAtTheContractAndLeavesNoNumbers) {
  double numbers[] = {1.0, 2.0, 3.0};
  kx::guarded({{numbers, 2}, {nullptr, 4}}, [&numbers] {
    numbers[0] = 5.0;
    throw std::bad_alloc();
  });
  EXPECT_TRUE(std::isnan(numbers[0]));
  EXPECT_TRUE(std::isnan(numbers[1]));
  EXPECT_EQ(numbers[2], 3.0);
}

TEST(Arguments, WithoutAnExceptionTheNumbersStand) {
  double number = 1.0;
  kx::guarded({{&number, 1}}, [&number] { number = 5.0; });
  EXPECT_EQ(number, 5.0);
}

}  // namespace
