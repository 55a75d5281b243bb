#ifndef KX_FIT_FITSUMMARY_H
#define KX_FIT_FITSUMMARY_H

#include <cstdint>
#include <functional>

namespace kx {

enum class Termination {
  failed,          ///< nothing was fitted: the input makes no sense, or the fit never ran
  converged,       ///< the final error is within the maximum error that was asked for
  bestCompromise,  ///< the targets cannot be met that closely; the result is still the best found
};

/// What a fit did. The defaults mean that it never ran.
struct FitSummary {
  Termination termination = Termination::failed;
  double initialError = -1.0;    ///< at the start values
  double finalError = -1.0;      ///< at the values returned
  std::int32_t iterations = -1;  ///< solver steps tried; 0 when the start values are returned
};

/// Called on the fitting thread after every accepted solver step with the number of steps tried so
/// far and the error reached. Must not throw.
using ProgressHook = std::function<void(std::int32_t iteration, double error)>;

}  // namespace kx

#endif
