// SPDX-License-Identifier: BSD-3-Clause
#include "fit/BoundedLeastSquares.h"

#include <gtest/gtest.h>

namespace kx {
namespace {

using Vector2 = Eigen::Matrix<double, 2, 1>;

/// Rosenbrock's valley as residuals; its only minimum is at (1, 1).
struct Rosenbrock {
  static constexpr int kParameters = 2;
  static constexpr int kResiduals = 2;
  template <class Scalar>
  bool operator()(const Scalar* z, Scalar* r) const {
    r[0] = 10.0 * (z[1] - z[0] * z[0]);
    r[1] = 1.0 - z[0];
    return true;
  }
  double error(const Vector2& z) const {
    Vector2 r;
    (*this)(z.data(), r.data());
    return r.norm();
  }
};

/// One equation for two unknowns, z0 + 2 z1 = 5, not defined left of z0 = -1.
struct Plane {
  static constexpr int kParameters = 2;
  static constexpr int kResiduals = 1;
  template <class Scalar>
  bool operator()(const Scalar* z, Scalar* r) const {
    r[0] = z[0] + 2.0 * z[1] - 5.0;
    return !(z[0] < -1.0);
  }
  double error(const Vector2& z) const { return std::abs(z(0) + 2.0 * z(1) - 5.0); }
};

const Vector2 kFar = Vector2::Constant(100.0);

TEST(BoundedLeastSquares, FindsTheFreeMinimum) {
  const Rosenbrock problem;
  BoundedLeastSquares<Rosenbrock> solver(problem, -kFar, kFar, {});
  const Vector2 z = solver.minimise({-1.2, 1.0}, 0.0);
  EXPECT_NEAR(z(0), 1.0, 1e-9);
  EXPECT_NEAR(z(1), 1.0, 1e-9);
  EXPECT_GT(solver.iterations(), 0);
}

TEST(BoundedLeastSquares, StopsOnTheBoundThatHidesTheMinimum) {
  const Rosenbrock problem;
  BoundedLeastSquares<Rosenbrock> solver(problem, -kFar, {0.5, 100.0}, {});
  const Vector2 z = solver.minimise({-1.2, 1.0}, 0.0);
  EXPECT_EQ(z(0), 0.5);
  EXPECT_NEAR(z(1), 0.25, 1e-9);
}

TEST(BoundedLeastSquares, LeavesABoundThatHoldsItBackNoLonger) {
  const Rosenbrock problem;
  BoundedLeastSquares<Rosenbrock> solver(problem, {-100.0, 0.0}, kFar, {});
  // From (-1, 0) the gradient in z1 pushes inwards, from (0.1, 0) outwards until z0 has grown.
  for (const Vector2& start : {Vector2(-1.0, 0.0), Vector2(0.1, 0.0)}) {
    const Vector2 z = solver.minimise(start, 0.0);
    EXPECT_NEAR(z(0), 1.0, 1e-8);
    EXPECT_NEAR(z(1), 1.0, 1e-8);
  }
}

// With r = a.z - 5 and |a|^2 = 5 the minimum of r^2 + lam |z|^2 is z = 5 a / (5 + lam).
TEST(BoundedLeastSquares, PenaltyPullsTowardsZero) {
  const Plane problem;
  BoundedLeastSquares<Plane> solver(problem, -kFar, kFar, {});
  const double lam = 0.1;
  const Vector2 z = solver.minimise(Vector2::Zero(), lam);
  EXPECT_NEAR(z(0), 5.0 / (5.0 + lam), 1e-9);
  EXPECT_NEAR(z(1), 10.0 / (5.0 + lam), 1e-9);
}

TEST(BoundedLeastSquares, NeverStepsWhereTheProblemIsNotDefined) {
  const Plane problem;
  BoundedLeastSquares<Plane> solver(problem, {-100.0, -100.0}, {100.0, -50.0}, {});
  EXPECT_GE(solver.minimise({0.0, -60.0}, 1e-6)(0), -1.0);
  BoundedLeastSquares<Plane> towards(problem, {-100.0, 20.0}, kFar, {});
  const Vector2 z = towards.minimise({5.0, 30.0}, 1e-6);  // the equation asks for z0 = -35
  EXPECT_GE(z(0), -1.0);
  EXPECT_LT(problem.error(z), problem.error({5.0, 30.0}));
}

TEST(BoundedLeastSquares, BoxCanMove) {
  const Rosenbrock problem;
  BoundedLeastSquares<Rosenbrock> solver(problem, -kFar, {0.5, 100.0}, {});
  const Vector2 held = solver.minimise({0.0, 0.0}, 0.0);
  solver.setBox(-kFar, kFar);
  const Vector2 z = solver.minimise(held, 0.0);
  EXPECT_NEAR(z(0), 1.0, 1e-8);
}

TEST(BoundedLeastSquares, ReportsEveryAcceptedStep) {
  const Rosenbrock problem;
  std::vector<std::pair<std::int32_t, double>> reports;
  BoundedLeastSquares<Rosenbrock> solver(
      problem, -kFar, kFar, [&](const std::int32_t iteration, const double error) {
        reports.emplace_back(iteration, error);
      });
  solver.minimise({-1.2, 1.0}, 0.0);
  ASSERT_GE(reports.size(), 3U);
  EXPECT_EQ(reports.front().first, 0);
  // To rounding: what a compiler works out itself, it may round once where a run rounds twice.
  EXPECT_DOUBLE_EQ(reports.front().second, problem.error({-1.2, 1.0}));
  EXPECT_LE(reports.back().first, solver.iterations());
  for (std::size_t i = 1; i < reports.size(); ++i) {
    EXPECT_GT(reports[i].first, reports[i - 1].first);
    EXPECT_LT(reports[i].second, reports[i - 1].second);
  }
}

}  // namespace
}  // namespace kx
