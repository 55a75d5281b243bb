// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_CONTRACT_ENGINESTATE_H
#define KX_CONTRACT_ENGINESTATE_H

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>

#include "contract/SolveStatus.h"
#include "fatigue/PlainWeaveFatigue.h"
#include "parallel/ThreadPool.h"
#include "weave/model/WeaveModel.h"

namespace kx {

/// The composite kinds that have their own maximum errors.
enum class CompositeKind : std::int32_t { unidirectional = 2, woven = 3 };

/// The errors that a fit has to reach to count as converged.
struct MaximumErrors {
  double mechanical = 1e-3;
  double thermal = 1e-3;
};

/// All that the contract makes the library remember between calls. Everything else is a function of
/// a call's arguments.
class EngineState {
 public:
  /// The one of this process.
  static EngineState& instance() noexcept;

  /// selector 1: mechanical, 2: thermal. Unknown kinds and selectors, and errors that are no
  /// positive number, are ignored.
  void setMaximumError(std::int32_t kind, std::int32_t selector, double error) noexcept;
  [[nodiscard]] MaximumErrors maximumErrors(CompositeKind kind) const noexcept;

  void setMatrixIsotropic(bool isotropic) noexcept { isMatrixIsotropic_ = isotropic; }
  [[nodiscard]] bool isMatrixIsotropic() const noexcept { return isMatrixIsotropic_; }

  SolveStatus& status() noexcept { return status_; }

  /// Solves woven plies and remembers what it has solved, which changes no result.
  WeaveModel& weaves() { return weaves_; }

  /// The intact plain weave that was noted for the next fatigue fit, which takes it away; a fit of
  /// another weave drops it. At most one is kept.
  void noteIntactWeave(const WeaveDecomposition& weave) { intactWeave_ = weave; }
  void dropIntactWeave() noexcept { intactWeave_.reset(); }
  [[nodiscard]] std::optional<WeaveDecomposition> takeIntactWeave() noexcept;

 private:
  struct Limits {
    std::atomic<double> mechanical{1e-3};
    std::atomic<double> thermal{1e-3};
  };
  Limits unidirectional_;
  Limits woven_;
  std::atomic<bool> isMatrixIsotropic_{false};
  SolveStatus status_;
  WeaveModel weaves_{ThreadPool::defaultThreads()};
  std::optional<WeaveDecomposition> intactWeave_;
};

}  // namespace kx

#endif
