// SPDX-License-Identifier: BSD-3-Clause
#include "fit/Continuation.h"

#include <gtest/gtest.h>

namespace kx {
namespace {

using Vector3 = Eigen::Matrix<double, 3, 1>;

/// z0 + 2 z1 = 3 and, when `contradiction` is not zero, z0 + 2 z1 = 3 + contradiction; z2 is free.
struct Lines {
  static constexpr int kParameters = 3;
  static constexpr int kResiduals = 2;
  double contradiction = 0.0;
  double slope = 2.0;

  template <class Scalar>
  bool operator()(const Scalar* z, Scalar* r) const {
    r[0] = z[0] + slope * z[1] - 3.0;
    r[1] = r[0] - contradiction;
    return true;
  }
  double error(const Vector3& z) const {
    Eigen::Vector2d r;
    (*this)(z.data(), r.data());
    return r.norm() / std::sqrt(2.0);
  }
};

/// One equation that the start satisfies.
struct Satisfied {
  static constexpr int kParameters = 3;
  static constexpr int kResiduals = 1;
  template <class Scalar>
  bool operator()(const Scalar* z, Scalar* r) const {
    r[0] = z[0] + z[1];
    return true;
  }
  double error(const Vector3& z) const { return std::abs(z(0) + z(1)); }
};

/// Two targets of one unknown, 1 and 0. The residuals weigh the first and the error the second.
struct WeighedOtherwise {
  static constexpr int kParameters = 1;
  static constexpr int kResiduals = 2;
  double start = 0.0;

  template <class Scalar>
  bool operator()(const Scalar* z, Scalar* r) const {
    r[0] = start + z[0] - 1.0;
    r[1] = 0.1 * (start + z[0]);
    return true;
  }
  double error(const Eigen::Matrix<double, 1, 1>& z) const { return std::abs(start + z(0)); }
};

// Along the undetermined direction the position rests on lam >= 1e-11 against the rounding 1e-16.
constexpr double kSelection = 1e-5;

const Vector3 kFar = Vector3::Constant(10.0);

TEST(Continuation, MeetsTheTargetsWithTheShortestMove) {
  const auto fit = mostProbableFit(Lines{}, -kFar, kFar, {});
  EXPECT_LT(fit.error, 1e-8);
  EXPECT_NEAR(fit.z(0), 0.6, kSelection);  // 3 (1, 2) / |(1, 2)|^2
  EXPECT_NEAR(fit.z(1), 1.2, kSelection);
  EXPECT_EQ(fit.z(2), 0.0);
  EXPECT_GT(fit.iterations, 0);
}

TEST(Continuation, ShortestMoveRespectsTheBox) {
  const Vector3 upper(10.0, 0.5, 10.0);
  const auto fit = mostProbableFit(Lines{}, -kFar, upper, {});
  EXPECT_LT(fit.error, 1e-8);
  EXPECT_NEAR(fit.z(0), 2.0, 1e-8);
  EXPECT_EQ(fit.z(1), 0.5);
}

TEST(Continuation, DoesNothingWhereNothingIsMissing) {
  const auto fit = mostProbableFit(Satisfied{}, -kFar, kFar, {});
  EXPECT_EQ(fit.z, Vector3::Zero());
  EXPECT_EQ(fit.error, 0.0);
  EXPECT_EQ(fit.iterations, 0);
}

// Two contradicting targets are met in their mean but for the penalty's part, lam/(2 |a|^2 + lam).
TEST(Continuation, ContradictingTargetsEndInTheMostProbableCompromise) {
  const Lines problem{1.0};
  const auto fit = mostProbableFit(problem, -kFar, kFar, {});
  const double lam = 0.05 * 0.05;
  EXPECT_NEAR(fit.z(0), 3.5 * 2.0 / (10.0 + lam), 1e-8);
  EXPECT_NEAR(fit.z(1), 2.0 * fit.z(0), 1e-8);
}

TEST(Continuation, EndsWhereItStartedWhenEveryStageRaisesTheError) {
  const Eigen::Matrix<double, 1, 1> far(10.0);
  const auto fit = mostProbableFit(WeighedOtherwise{0.25}, -far, far, {});
  EXPECT_EQ(fit.z(0), 0.0);
  EXPECT_EQ(fit.error, 0.25);
  EXPECT_GT(fit.iterations, 0);
}

TEST(Continuation, MovesWhenTheErrorFallsAsWell) {
  const Eigen::Matrix<double, 1, 1> far(10.0);
  const auto fit = mostProbableFit(WeighedOtherwise{2.0}, -far, far, {});
  EXPECT_NEAR(fit.error, 1.0 / 1.01, 0.01);  // the minimum of the residuals, 1 / (1 + 0.1^2)
}

}  // namespace
}  // namespace kx
