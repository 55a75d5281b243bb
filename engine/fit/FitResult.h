// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_FITRESULT_H
#define KX_FIT_FITRESULT_H

#include <cstdint>
#include <functional>

#include "elastic/Properties.h"

namespace kx {

/// Called on the fitting thread after every accepted solver step with the number of steps tried so
/// far and the error reached; at the end with those that are returned. Must not throw.
using ProgressHook = std::function<void(std::int32_t iteration, double error)>;

/// What a fit is given besides the materials.
struct FitOptions {
  /// Errors that make a fit count as converged; they never end one early.
  double maximumMechanicalError = 1e-3;
  double maximumThermalError = 1e-3;
  bool isotropicMatrix = false;  ///< keep the matrix isotropic whatever its start values say
  ProgressHook progress;
};

/// A ply with its fiber and matrix. Given to a fit: the measured ply, where a mechanical constant
/// <= 0 and an expansion of 0 are not given, and the start values of the constituents. Returned by
/// one: the fitted constituents, and the ply that they give.
struct FittedMaterials {
  Properties lamina;
  Properties fiber;
  Properties matrix;
};

enum class Termination {
  failed,          ///< there is no model: the numbers make no sense
  converged,       ///< the final error is within the maximum error that was asked for
  bestCompromise,  ///< the targets cannot be met that closely; the result is still the best found
};

/// What one half of a fit, mechanical or thermal, did. Errors are relativeRms(); 0 where nothing
/// was given.
struct FitSummary {
  Termination termination = Termination::failed;
  double initialError = 1.0;    ///< at the start values
  double finalError = 1.0;      ///< at the values returned
  std::int32_t iterations = 0;  ///< solver steps tried, or field solves of a weave
};

/// A fit that ended with `error`.
FitSummary summaryOf(double initialError,
                     double error,
                     double maximumError,
                     std::int32_t iterations);

struct FitResult {
  FittedMaterials materials;
  FitSummary mechanical;
  FitSummary thermal;
};

/// The answer where the model cannot be evaluated at the start: no constant is a number, the errors
/// are 1, nothing was tried.
FitResult noModel();

/// Tells the hook what is returned, then returns it.
FitResult reported(FitResult result, const FitOptions& options);

/// A mechanical constant of a ply that is zero or less is not given.
constexpr bool isGiven(const double target) {
  return target > 0.0;
}

/// Root mean square of value/target - 1 over the targets that were added; 0 when there is none.
class RelativeRms {
 public:
  void add(double value, double target);
  [[nodiscard]] double value() const;

 private:
  double sum_ = 0.0;
  int count_ = 0;
};

}  // namespace kx

#endif
