// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_COMPOSITE_SATINWEAVE_H
#define LAMCRAFT_COMPOSITE_SATINWEAVE_H

#include <cstdint>
#include <string>
#include <string_view>

#include "composite/SolvableComposite.h"

namespace lamcraft {

/// A woven composite, plain weave or satin: matrix pocket, fill and warp tows, their interface.
class SatinWeave final : public SolvableComposite {
 public:
  /// harness: 1 plain weave, 4, 5 or 8 satin. The texts are the types of the tows' constituents.
  SatinWeave(const std::string& fiberType, const std::string& matrixType, std::int32_t harness);

  [[nodiscard]] bool isWoven() const noexcept override { return true; }

  [[nodiscard]] std::int32_t harness() const noexcept override { return harness_; }

  /// A satin needs the degradation factors of fiber and matrix; a plain weave is always valid.
  bool validate(std::ostream& messages) const override;

  /// Always the material data: the fatigue data file of a weave has the same content.
  bool write(const std::string& path, DataFile file) const override;

  /// Lists the environment's damage states too.
  EnvironmentRecord& addEnvironment(std::string_view moistureText, double temperature) override;

 private:
  void printTitle() const override;
  [[nodiscard]] std::size_t resultRowCount() const noexcept override { return 4; }
  void fit(const std::string& folder, EnvironmentRecord& environment) const override;
  micromechanics::PrefailOutcome reduceShear(const std::string& folder,
                                             EnvironmentRecord& environment) const override;
  void finish(const std::string& folder, EnvironmentRecord& environment) const override;

  [[nodiscard]] bool isPlain() const noexcept { return harness_ < 2; }
  [[nodiscard]] micromechanics::WeaveGeometry geometry() const;
  void runFatigue(const std::string& folder, EnvironmentRecord& environment) const;
  void computeDamageState(const std::string& folder,
                          const EnvironmentRecord& environment,
                          std::int32_t snCount,
                          DamageStateRecord& record) const;

  std::int32_t harness_;
};

}  // namespace lamcraft

#endif
