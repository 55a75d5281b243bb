#ifndef KX_WEAVE_CELL_CELLAVERAGES_H
#define KX_WEAVE_CELL_CELLAVERAGES_H

#include <array>

#include "lamina/Concentration.h"
#include "parallel/ThreadPool.h"
#include "weave/cell/CellFields.h"
#include "weave/cell/CellMaterials.h"

namespace kx {

/// Mean strain and stress of a region under the unit loads: per unit overall strain (6 columns) and
/// per kelvin at zero overall strain. Composite axes.
struct RegionMeans {
  double volume = 0.0;  ///< of the region over that of the cell
  Matrix6 strain = Matrix6::Zero();
  Vector6 thermalStrain = Vector6::Zero();
  Matrix6 stress = Matrix6::Zero();         ///< [Pa]
  Vector6 thermalStress = Vector6::Zero();  ///< [Pa/K]
};

/// What a solved cell is for its surroundings.
struct CellResponse {
  Matrix6 stiffness;   ///< C* [Pa]: mean stress under the unit strains
  Matrix6 compliance;  ///< its inverse [1/Pa]
  Vector6 expansion;   ///< alpha* [1/K]: from the mean stress under the temperature rise
  std::array<Concentration, kCellPhases> phases;  ///< of pocket, fill, warp
  Concentration interface;  ///< of a thin layer on both sides of where the tows touch
};

/// Concentrations and effective properties from the fields of all seven unit loads.
///
/// With c_r the volume fractions of the phases, the sums of c_r times strain and stress
/// concentrations are identities and those of the thermal ones zero, to rounding.
/// The interface has no volume and stands in no sum: it is the mean over layers of 3 % of the ply
/// thickness inside of the two tows at the faces with which they touch (gap up to 5 % of the ply
/// thickness), each column weighted with the thinner tow's relative thickness.
/// A phase that the voxel model does not hold gets the concentrations of the whole.
CellResponse cellResponse(const CellMaterials& materials,
                          const CellFields& fields,
                          ThreadPool& team);

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

}  // namespace kx

#endif
