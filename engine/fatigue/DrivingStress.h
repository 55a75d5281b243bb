// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FATIGUE_DRIVINGSTRESS_H
#define KX_FATIGUE_DRIVINGSTRESS_H

#include <vector>

#include "fatigue/DirectionFit.h"

namespace kx {

/// One record of a measured S-N curve; the order of the members is that of the C contract.
struct SnRecord {
  double stress = 0.0;     ///< of the largest magnitude [Pa]
  double life = 0.0;       ///< cycles to failure
  double frequency = 0.0;  ///< [Hz]; <= 0: the life is a time in seconds
  double angle = 0.0;      ///< of the load to the fiber or fill [degree]
  double ratio = 0.0;      ///< smallest over largest stress; |ratio| > 1: compression governs
};

/// Static strengths of one sense each [Pa]; <= 0: not given.
struct SensedStrength {
  double tension = 0.0;
  double compression = 0.0;
};

/// Load against the axes of a ply or weave.
enum class LoadAxis { along, across, oblique };

/// Cosine and sine of the angle between load and axis 1, given in degrees.
struct LoadDirection {
  double cosine = 1.0;
  double sine = 0.0;
};
LoadDirection loadDirection(double angle) noexcept;

/// Within one degree of axis 1 or 2, or neither. `angle` in degrees, any finite number.
LoadAxis loadAxis(double angle) noexcept;

/// Tests of one direction with their reference strength.
///
/// A record drives by compression when |ratio| > 1 or its stress is negative (at ratio -1 tension
/// governs), then with the inverse ratio; the peak is the magnitude of its stress. The reference is
/// the tensile strength as soon as one record pulls (or when there is none), else the compressive
/// one; a record of the other sense counts with the same fraction of its own strength.
class DirectionalTests {
 public:
  /// `shear`: static shear strength [Pa]; used by addOblique() only.
  DirectionalTests(const SensedStrength& normal, double shear) : normal_(normal), shear_(shear) {}

  /// Load along the direction: the driving stress is the stress.
  void addAxial(const SnRecord& record);

  /// Load with the stresses normal * stress on the direction and shear * stress along it:
  /// sqrt(normal^2 + (S/S12)^2 shear^2) stress drives; S/S12 = 1 where one is not given.
  void addOblique(const SnRecord& record, double normal, double shear);

  /// What the fit needs; `concentration`: matrix stress per driving stress.
  [[nodiscard]] DirectionData data(double concentration) const;

 private:
  void add(const SnRecord& record, double normal, double shear);

  SensedStrength normal_;
  double shear_;
  std::vector<LifeTest> pulled_;
  std::vector<LifeTest> pushed_;
};

}  // namespace kx

#endif
