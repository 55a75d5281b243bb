// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_BOUNDEDLEASTSQUARES_H
#define KX_FIT_BOUNDEDLEASTSQUARES_H

#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include <ceres/tiny_solver.h>
#include <Eigen/Dense>

#include "fit/FitResult.h"
#include "fit/Linearisation.h"

namespace kx {

/// Minimises |r(z)|^2 + lam |z|^2 over a box with Ceres' TinySolver and dual numbers.
///
///     struct Circle {                       // z0^2 + z1^2 = 4
///       static constexpr int kParameters = 2, kResiduals = 1;
///       template <class Scalar> bool operator()(const Scalar* z, Scalar* r) const {
///         r[0] = z[0] * z[0] + z[1] * z[1] - 4.0;
///         return true;
///       }
///       double error(const Eigen::Vector2d& z) const { return std::abs(z.squaredNorm() - 4.0); }
///     } const circle;
///     BoundedLeastSquares<Circle> solver(circle, {-1.0, -3.0}, {1.0, 3.0}, {});
///     solver.minimise({0.9, 1.0}, 0.0);     // a point of the circle, |z0| <= 1
///
/// Problem provides
///   static constexpr int kParameters, kResiduals;
///   template <class Scalar> bool operator()(const Scalar* z, Scalar* r) const;
///     weighted residuals; for doubles, false where the model is not defined (a step into such a
///     point is rejected); for dual numbers it is only asked at points that it accepted before;
///   double error(const Eigen::Matrix<double, kParameters, 1>& z) const; for the progress hook.
///
/// Levenberg-Marquardt: (madsen2004), section 3.2. The solver itself knows no bounds. It sees r at
/// the projection of its point onto the box, and a coordinate whose bound the gradient pushes
/// against has a zero derivative, so that it rests; the solver is started again from the projected
/// result until that changes nothing any more.
template <class Problem>
class BoundedLeastSquares {
 public:
  static constexpr int kParameters = Problem::kParameters;
  using Vector = Eigen::Matrix<double, kParameters, 1>;

  /// `problem` must outlive this object; `hook` may be empty.
  BoundedLeastSquares(const Problem& problem,
                      const Vector& lower,
                      const Vector& upper,
                      ProgressHook hook)
      : function_(problem, lower, upper, std::move(hook)) {
    // The costs to be told apart span twenty decades: absolute thresholds are set per call, or off.
    solver_.options.max_num_iterations = 50;
    solver_.options.parameter_tolerance = 1e-9;
    solver_.options.gradient_tolerance = 0.0;
    solver_.options.cost_threshold = 0.0;
  }

  /// The minimum next to z, inside the box. The problem must be defined at z.
  Vector minimise(const Vector& z, const double lam) {
    function_.setRegularisation(lam);
    solver_.options.function_tolerance = kNoGain * lam;
    Vector x = function_.projected(z);
    double cost = std::numeric_limits<double>::infinity();
    for (int start = 0; start < kMaxStarts; ++start) {
      const double newCost = solver_.Solve(function_, &x).final_cost;
      const Vector inside = function_.projected(x);
      const bool settled = inside == x || newCost > (1.0 - kNoGain) * cost;
      x = inside;
      if (settled) {
        break;
      }
      cost = newCost;
    }
    return x;
  }

  /// Narrows or widens the box, for a trust region around a moving point.
  void setBox(const Vector& lower, const Vector& upper) { function_.setBox(lower, upper); }

  /// Steps tried by all calls of minimise().
  [[nodiscard]] std::int32_t iterations() const noexcept { return function_.steps(); }

 private:
  static constexpr int kMaxStarts = 8;
  static constexpr double kNoGain = 1e-12;

  /// The function that TinySolver minimises: r and sqrt(lam) z below each other.
  class Function {
   public:
    using Scalar = double;
    enum {
      NUM_PARAMETERS = Problem::kParameters,
      NUM_RESIDUALS = Problem::kResiduals + NUM_PARAMETERS
    };

    Function(const Problem& problem, Vector lower, Vector upper, ProgressHook hook)
        : problem_(problem),
          hook_(std::move(hook)),
          lower_(std::move(lower)),
          upper_(std::move(upper)) {}

    void setRegularisation(const double lam) { rootOfLam_ = std::sqrt(lam); }
    void setBox(const Vector& lower, const Vector& upper) {
      lower_ = lower;
      upper_ = upper;
    }
    [[nodiscard]] Vector projected(const Vector& z) const {
      return z.cwiseMax(lower_).cwiseMin(upper_);
    }
    [[nodiscard]] std::int32_t steps() const noexcept { return steps_; }

    // NOLINTNEXTLINE(readability-non-const-parameter): the signature that TinySolver calls
    bool operator()(const double* x, double* residuals, double* jacobian) const {
      const Vector z = projected(Eigen::Map<const Vector>(x));
      Eigen::Map<Residuals> r(residuals);
      if (jacobian == nullptr) {
        ++steps_;
        if (!problem_(z.data(), residuals) || !r.template head<kOwn>().allFinite()) {
          r.setConstant(kRejected);
        }
        r.template tail<kParameters>() = rootOfLam_ * z;
        return true;
      }
      Eigen::Map<Jacobian> j(jacobian);
      linearised(z, r, j);
      holdAtBounds(z, r, j);
      if (hook_) {
        hook_(steps_, problem_.error(z));
      }
      return true;
    }

   private:
    static constexpr int kOwn = Problem::kResiduals;
    static constexpr double kRejected = 1e50;  // its square is still finite
    using Residuals = Eigen::Matrix<double, NUM_RESIDUALS, 1>;
    using Jacobian = Eigen::Matrix<double, NUM_RESIDUALS, NUM_PARAMETERS>;

    void linearised(const Vector& z, Eigen::Map<Residuals>& r, Eigen::Map<Jacobian>& j) const {
      kx::linearise(problem_, z, r, j);
      r.template tail<kParameters>() = rootOfLam_ * z;
      j.template bottomRows<kParameters>().setIdentity();
      j.template bottomRows<kParameters>() *= rootOfLam_;
    }

    /// Clears the derivatives of the coordinates that the gradient pushes out of the box.
    void holdAtBounds(const Vector& z,
                      const Eigen::Map<Residuals>& r,
                      Eigen::Map<Jacobian>& j) const {
      const Vector gradient = j.transpose() * r;
      for (int i = 0; i < NUM_PARAMETERS; ++i) {
        const bool outwards =
            (z(i) <= lower_(i) && gradient(i) > 0.0) || (z(i) >= upper_(i) && gradient(i) < 0.0);
        if (outwards || !j.col(i).allFinite()) {
          j.col(i).setZero();
        }
      }
    }

    const Problem& problem_;
    ProgressHook hook_;
    Vector lower_;
    Vector upper_;
    double rootOfLam_ = 0.0;
    mutable std::int32_t steps_ = 0;  // TinySolver takes the function as const
  };

  Function function_;
  ceres::TinySolver<Function> solver_;
};

}  // namespace kx

#endif
