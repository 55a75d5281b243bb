// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_CELL_CELLAVERAGES_H
#define KX_WEAVE_CELL_CELLAVERAGES_H

#include <array>

#include "lamina/Concentration.h"
#include "parallel/ThreadPool.h"
#include "weave/cell/CellFields.h"
#include "weave/cell/CellMaterials.h"

namespace kx {

/// Means over the voxels of a cell that its response is made of, one column per load case; linear
/// in the fields but for `energy`.
///
/// Stress and strain of a region are its volume's share of the cell times its mean. `energy` holds
/// the mean of strain i : stress j for the six strains i and all cases j: the entries of C*, and in
/// the last column those of minus the overall thermal stress, with an error that is the product of
/// those of the two fields.
struct CellMeans {
  using Cases = Eigen::Matrix<double, 6, kLoadCases>;
  struct Region {
    double volume = 0.0;  ///< over that of the cell
    Cases strain = Cases::Zero();
    Cases stress = Cases::Zero();  ///< [Pa], [Pa/K]
  };
  std::array<Region, kCellPhases> phases;
  Region interface;
  Cases energy = Cases::Zero();  ///< [Pa], [Pa/K]
};

/// From the fields of all seven unit loads.
CellMeans cellMeans(const CellMaterials& materials, const CellFields& fields, ThreadPool& team);

/// What means on a fine and on a coarse grid of 3/8 of its voxels per tow let expect of a still
/// finer one: fine + (fine - coarse) / 5, as for errors of the order 1.8. The moduli have orders
/// between 1 and 2; one weight for all keeps every identity that is linear in the means.
CellMeans extrapolated(const CellMeans& fine, const CellMeans& coarse);

/// What a solved cell is for its surroundings.
struct CellResponse {
  Matrix6 stiffness;                              ///< C* [Pa]
  Matrix6 compliance;                             ///< its inverse [1/Pa]
  Vector6 expansion;                              ///< alpha* [1/K]
  std::array<Concentration, kCellPhases> phases;  ///< of pocket, fill, warp
  Concentration interface;  ///< of a thin layer on both sides of where the tows touch
  bool isConverged = true;  ///< false: a field did not reach its tolerance
};

/// Effective properties from the energy, concentrations from the phases' means.
///
/// With c_r the volume fractions of the phases, the sums of c_r times strain and stress
/// concentrations are identities and those of the thermal ones zero, to rounding: what the fields'
/// residual leaves between energy and mean stress, some 1e-4, is added to the tows' stress.
/// The interface has no volume and stands in no sum: it is the mean over layers of 3 % of the ply
/// thickness inside of the two tows at the faces with which they touch (gap up to 5 % of the ply
/// thickness), each column weighted with the thinner tow's relative thickness.
/// A phase that the voxel model does not hold gets the concentrations of the whole.
CellResponse cellResponse(const CellMeans& means);

/// What the overall stiffness and thermal stress depend on, from the fields of the six strains.
///
/// With Hill's moduli (n, l, k, m, p) of the phases in their own axes, C* = sum over phases and
/// moduli of modulus * stiffness[phase][modulus]: exact at the moduli of the fields, and with an
/// error of second order elsewhere (hill1963: the fields are stationary). beta* = sum over phases
/// of strain[phase]^T beta_phase (levin1967).
struct CellSensitivity {
  enum Modulus : std::size_t { axial, cross, bulk, transverse, shear };
  std::array<std::array<Matrix6, 5>, kCellPhases> stiffness;
  std::array<Matrix6, kCellPhases> strain;  ///< mean over the cell of phase strain, phase axes

  Matrix6 stiffnessFor(const std::array<TransverselyIsotropic, kCellPhases>& phases) const;
};

/// Mean over the cell of strain : C : strain under one unit strain [Pa]: the diagonal entry of C*,
/// with an error that is the square of the residual's.
double strainEnergy(const CellMaterials& materials, const CellFields& fields, std::size_t loadCase);

CellSensitivity cellSensitivity(const CellMaterials& materials,
                                const CellFields& fields,
                                ThreadPool& team);

/// As for CellMeans.
CellSensitivity extrapolated(const CellSensitivity& fine, const CellSensitivity& coarse);
double extrapolated(double fine, double coarse);

}  // namespace kx

#endif
