// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_COMPOSITE_UNI_H
#define LAMCRAFT_COMPOSITE_UNI_H

#include <string>

#include "composite/SolvableComposite.h"

namespace lamcraft {

/// A unidirectional composite: fiber and matrix.
class Uni final : public SolvableComposite {
 public:
  /// The texts that the data files give as the types of the constituents.
  Uni(const std::string& fiberType, const std::string& matrixType);

  [[nodiscard]] Symmetry laminaSymmetry() const noexcept override { return Symmetry::transverse23; }

  /// Every environment's transverse shear strength, the sixth, must be above 0.
  bool validate(std::ostream& messages) const override;

  bool write(const std::string& path, DataFile file) const override;

 private:
  void printTitle() const override;
  [[nodiscard]] std::size_t resultRowCount() const noexcept override { return 2; }
  void fit(const std::string& folder, EnvironmentRecord& environment) const override;
  micromechanics::PrefailOutcome reduceShear(const std::string& folder,
                                             EnvironmentRecord& environment) const override;

  [[nodiscard]] double fiberVolumeFraction() const;
};

}  // namespace lamcraft

#endif
