// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_LAMINA_CONCENTRATION_H
#define KX_LAMINA_CONCENTRATION_H

#include "elastic/Voigt.h"
#include "lamina/UnidirectionalLamina.h"

namespace kx {

/// Mean fields of one phase r of a composite in terms of the overall ones:
///   eps_r = strain eps + thermalStrain dT,   sig_r = stress sig + thermalStress dT
/// with the identities (hill1963, benveniste1990) sum c_r strain = sum c_r stress = I and
/// sum c_r thermalStrain = sum c_r thermalStress = 0.
template <class Scalar>
struct ConcentrationOf {
  Matrix6Of<Scalar> strain;
  Vector6Of<Scalar> thermalStrain;  ///< [1/K], at zero overall strain
  Matrix6Of<Scalar> stress;
  Vector6Of<Scalar> thermalStress;  ///< [Pa/K], at zero overall stress
};
using Concentration = ConcentrationOf<double>;

/// The phase's mean strains as a 6x6 matrix.
template <class Scalar>
Matrix6Of<Scalar> strainConcentration(const PhaseStrainOf<Scalar>& phase) {
  Matrix6Of<Scalar> a = Matrix6Of<Scalar>::Zero();
  a(k11, k11) = Scalar(1.0);
  a(k22, k11) = a(k33, k11) = phase.axial;
  a(k22, k22) = a(k33, k33) = 0.5 * (phase.dilatation + phase.transverseShear);
  a(k22, k33) = a(k33, k22) = 0.5 * (phase.dilatation - phase.transverseShear);
  a(k12, k12) = a(k13, k13) = phase.axialShear;
  a(k23, k23) = phase.transverseShear;
  return a;
}

/// Strain and stress concentrations of a phase with the constants `constants` and the mean strains
/// `phase`, in a lamina with the constants `effective`. Stress: B = C_r A S*,
/// b = C_r (A alpha* + a - alpha_r).
template <class Scalar>
ConcentrationOf<Scalar> concentration(const TransverselyIsotropicOf<Scalar>& constants,
                                      const PhaseStrainOf<Scalar>& phase,
                                      const TransverselyIsotropicOf<Scalar>& effective) {
  ConcentrationOf<Scalar> result;
  result.strain = strainConcentration(phase);
  result.thermalStrain = Vector6Of<Scalar>::Zero();
  result.thermalStrain(k22) = result.thermalStrain(k33) = phase.thermal;

  const Matrix6Of<Scalar> c = stiffness(constants);
  result.stress = c * result.strain * compliance(properties(effective));
  result.thermalStress = c * (result.strain * expansion(properties(effective)) +
                              result.thermalStrain - expansion(properties(constants)));
  return result;
}

}  // namespace kx

#endif
