// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_SHEAR_SECANTLAW_H
#define KX_SHEAR_SECANTLAW_H

namespace kx {

/// One point of a measured in-plane shear curve: stress in any unit of stress, engineering shear
/// strain in any unit of strain (the reduction is independent of both). The sign is not looked at.
struct ShearPoint {
  double stress = 0.0;
  double strain = 0.0;
};

/// Secant degradation of a shear modulus: d(tau) = tau/(G0 gamma) = 1 up to the threshold, and
/// m tau + b above it, continuous at the threshold. The strain at a stress is tau/(G0 d).
struct SecantLaw {
  double initialModulus = 0.0;  ///< G0 [stress/strain], slope of the curve's first quarter
  double m = 0.0;               ///< [1/stress], negative
  double b = 0.0;               ///< [-], above 1
  double threshold = 0.0;       ///< [stress], where the law leaves the straight line

  /// d at a stress >= 0; 1 at and below the threshold, 0 at the law's asymptote and beyond.
  [[nodiscard]] double degradation(double stress) const noexcept;
  /// Strain that the law gives at a stress >= 0; infinite at the asymptote and beyond.
  [[nodiscard]] double strainAt(double stress) const noexcept;
  /// Stress that the law gives at a strain >= 0.
  [[nodiscard]] double stressAt(double strain) const noexcept;
};

}  // namespace kx

#endif
