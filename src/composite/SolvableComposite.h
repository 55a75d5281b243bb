// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_COMPOSITE_SOLVABLECOMPOSITE_H
#define LAMCRAFT_COMPOSITE_SOLVABLECOMPOSITE_H

#include <cstddef>
#include <string>

#include "composite/MicromechanicsCalls.h"
#include "model/Composite.h"

namespace lamcraft {

/// A composite that is solved environment by environment, as both models are: title, conversion to
/// base units, monitor, and for every environment fit, prefail and report. The models supply the
/// steps.
class SolvableComposite : public Composite {
 public:
  int solve(const std::string& folder) final;

 private:
  /// Names the kind of composite and the material.
  virtual void printTitle() const = 0;
  /// Number of result rows that the library fills.
  [[nodiscard]] virtual std::size_t resultRowCount() const noexcept = 0;
  /// Fits fiber and matrix of the environment.
  virtual void fit(const std::string& folder, EnvironmentRecord& environment) const = 0;
  /// Reduces the environment's shear curve.
  virtual micromechanics::PrefailOutcome reduceShear(const std::string& folder,
                                                     EnvironmentRecord& environment) const = 0;
  /// Runs what follows the report of the converged values; nothing unless a model has more to do.
  virtual void finish(const std::string& /*folder*/, EnvironmentRecord& /*environment*/) const {}

  void solveEnvironment(const std::string& folder, EnvironmentRecord& environment) const;
  void runPrefail(const std::string& folder, EnvironmentRecord& environment) const;
};

}  // namespace lamcraft

#endif
