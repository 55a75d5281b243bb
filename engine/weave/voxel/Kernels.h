// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_VOXEL_KERNELS_H
#define KX_WEAVE_VOXEL_KERNELS_H

#include <cstdint>

/// The inner loops of the solver, compiled once per instruction set.
///
/// Two load cases are solved at a time; their values at a node are neighbours in memory, so a
/// lane is 0 or 1 and a row of n3 nodes holds 2 * n3 doubles. A plane holds the three components
/// one after the other, `componentStride` doubles apart.
namespace kx::kernels {

/// Voxels of one row, begin to the next run's begin, with the stiffness number `material`.
struct Run {
  std::int32_t begin;
  std::int32_t material;
};

constexpr int kStiffnessSize = 21;  ///< upper triangle of a symmetric 6x6 matrix, row by row
constexpr int kStressSize = 6;

/// Share of the square of a strain that varies linearly along axis 3, from -1 to 1, in its mean.
constexpr double kBendingShare = 1.0 / 3.0;

/// Rows of strain of a voxel: the six components in its middle, then 11, 22, 12 at the upper face
/// less those in the middle (bending).
constexpr int kStrainRows = 9;

/// Doubles of scratch that one plane job needs.
constexpr std::int64_t planeScratch(const int n3) {
  return 42 * (2 * std::int64_t{n3} + 16);
}

/// Unit load of the two lanes: strain[component][lane] and temperature[lane].
struct PairLoad {
  double strain[6][2] = {};
  double temperature[2] = {};
};

/// Nodal forces of one plane of voxels: D^T C D u, with the in-plane strains 11, 22, 12 taken at
/// two points along axis 3, the others in the middle of a voxel. The part on the far nodes (plane i
/// + 1) is stored, the part on the near nodes (plane i) added to what the plane before has stored.
struct PlaneJob {
  int n2 = 0;
  int n3 = 0;
  double scale[3] = {};               ///< 1/(4 h) per axis
  const double* nearNodes = nullptr;  ///< displacement of plane i
  int farShift = 0;  ///< node row j of plane i + 1 is row j + farShift (cyclic) of the far arrays
  const double* farNodes = nullptr;       ///< displacement of plane i + 1
  std::int64_t componentStride = 0;       ///< of all planes here
  const std::int32_t* rowRuns = nullptr;  ///< n2 + 1 offsets into runs
  const Run* runs = nullptr;
  const double* stiffness = nullptr;      ///< kStiffnessSize per material
  double* nearForce = nullptr;            ///< null: not wanted
  double* farForce = nullptr;             ///< null: not wanted
  const PairLoad* load = nullptr;         ///< null: the homogeneous operator
  const double* thermalStress = nullptr;  ///< kStressSize per material, read when load is given
  double* scratch = nullptr;              ///< planeScratch(n3) doubles
};

/// Preconditioning of the two conjugate rows of wave numbers k2 and -k2.
///
/// Blocks are [component][k1][k3] complex numbers. residual -= step * force per lane, then
/// force = (reference stiffness)^-1 residual.
struct SpectralJob {
  int n1 = 0;
  int n3 = 0;
  double* force[2] = {};     ///< of k2 and -k2; equal pointers when the row is its own partner
  double* residual[2] = {};  ///< likewise
  double step[2] = {};
  const double* axis1 = nullptr;  ///< sin and cos of half the phase per k1 of row k2: [k1][2]
  int mirror = 0;                 ///< k1 of the opposite wave vector is mirror - k1 (cyclic)
  const double* axis3 = nullptr;  ///< SpectralBasis::axis3
  double axis2[2] = {};           ///< sin and cos for k2 (for -k2 the sine is negative)
  double scale[3] = {};           ///< 2/h per axis
  double reference[9] = {};       ///< C11 C22 C33 C12 C13 C23 C1212 C1313 C2323
  double nullMode = 0.0;          ///< wave vectors with a smaller square carry no force
  double normalisation = 1.0;     ///< factor of the inverse
  double* scratch = nullptr;      ///< 12 n3 doubles
};

/// Sums over the frequencies of a job: residual * force per lane, in Fourier space.
struct SpectralSums {
  double total = 0.0;       ///< lane 0 plus lane 1
  double difference = 0.0;  ///< lane 0 minus lane 1
};

struct Table {
  /// solution += step * direction, then direction = descent + turn * direction, per lane.
  void (*advance)(std::int64_t count,
                  const double* step,
                  const double* turn,
                  const double* descent,
                  double* direction,
                  double* solution);
  void (*voxelPlane)(const PlaneJob& job);
  /// Strains of the plane's voxels: kStrainRows times n2 rows of n3 voxels, both lanes. Reads the
  /// nodes of the job alone.
  void (*strainPlane)(const PlaneJob& job, double* strains);
  /// sums[lane] = sum of a * b
  void (*dot)(std::int64_t count, const double* a, const double* b, double* sums);
  void (*spectral)(const SpectralJob& job, SpectralSums* sums);
};

/// The table of the widest instruction set that this processor has.
const Table& best();

/// All tables that this processor can run, narrowest first; for tests.
int available(const Table* tables[3]);

}  // namespace kx::kernels

#endif
