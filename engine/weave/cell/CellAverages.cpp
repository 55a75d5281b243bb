#include "weave/cell/CellAverages.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "weave/cell/PhaseStrains.h"

namespace kx {

namespace {

constexpr double kContactGap = 0.05;    // of the ply thickness: closer tows count as touching
constexpr double kContactLayer = 0.03;  // of the ply thickness, into either tow

// Sums over voxels, one column per load case; volume in voxels.
struct RegionSums {
  double volume = 0.0;
  Eigen::Matrix<double, 6, 7> strain = Eigen::Matrix<double, 6, 7>::Zero();
  Eigen::Matrix<double, 6, 7> stress = Eigen::Matrix<double, 6, 7>::Zero();

  void add(const RegionSums& other) {
    volume += other.volume;
    strain += other.strain;
    stress += other.stress;
  }

  // Strains are in place; the stresses follow, the phase being one material all over the region.
  void close(const PhaseStiffness& phase) {
    stress = phase.c * strain;
    stress.col(static_cast<Eigen::Index>(kThermalCase)) -= volume * phase.beta;
  }
};

constexpr std::size_t kInterface = kCellPhases;
using CellSums = std::array<RegionSums, kCellPhases + 1>;

double gapOf(const WeaveColumn& column) {
  return std::max(column.fill.lower - column.warp.upper, column.warp.lower - column.fill.upper);
}

// The parts of fill and warp near the face with which they touch, and the weight of the column.
struct Contact {
  Interval fill;
  Interval warp;
  double weight = 0.0;
};

Contact contactOf(const UnitCell& cell, const WeaveColumn& column, const double widestGap) {
  if (gapOf(column) > widestGap) {
    return {};
  }
  const WeaveGeometry& geometry = cell.geometry();
  const double layer = kContactLayer * geometry.thickness();
  const double fillLayer = std::min(layer, column.fill.length());
  const double warpLayer = std::min(layer, column.warp.length());
  const double weight = std::min(column.fill.length() / geometry.fillThickness(),
                                 column.warp.length() / geometry.warpThickness());
  if (column.fill.lower + column.fill.upper > column.warp.lower + column.warp.upper) {
    return {{column.fill.lower, column.fill.lower + fillLayer},
            {column.warp.upper - warpLayer, column.warp.upper},
            weight};
  }
  return {{column.fill.upper - fillLayer, column.fill.upper},
          {column.warp.lower, column.warp.lower + warpLayer},
          weight};
}

// The widest gap that counts as contact: wider where a coarse grid meets no closer one.
double contactGap(const UnitCell& cell) {
  double closest = std::numeric_limits<double>::max();
  for (int i = 0; i < cell.shape().n1; ++i) {
    for (int j = 0; j < cell.shape().n2; ++j) {
      const WeaveColumn& column = cell.column(i, j);
      const bool both = column.fill.length() > 0.0 && column.warp.length() > 0.0;
      if (both) {
        closest = std::min(closest, gapOf(column));
      }
    }
  }
  return std::max(kContactGap * cell.geometry().thickness(), closest);
}

CellSums planeSums(const CellMaterials& materials,
                   const CellFields& fields,
                   const double widestGap,
                   const int i) {
  const UnitCell& cell = materials.cell();
  PhaseStrains plane(materials, fields, kLoadCases);
  plane.load(i);
  CellSums sums;
  for (int j = 0; j < cell.shape().n2; ++j) {
    const Contact contact = contactOf(cell, cell.column(i, j), widestGap);
    CellSums column;
    CellSums touching;
    plane.visitColumn(j, [&](const std::size_t r, const double share, const auto& e, const int k) {
      column[r].volume += share;
      column[r].strain += share * e;
      if (r == kPocket || !(contact.weight > 0.0)) {
        return;
      }
      const double weight =
          contact.weight * cell.overlap(r == kFill ? contact.fill : contact.warp, k);
      touching[r].volume += weight;
      touching[r].strain += weight * e;
    });
    const auto phases = materials.phasesAt(i, j);
    for (std::size_t r = 0; r < kCellPhases; ++r) {
      column[r].close(*phases[r]);
      touching[r].close(*phases[r]);
      sums[r].add(column[r]);
      sums[kInterface].add(touching[r]);
    }
  }
  return sums;
}

RegionMeans meansOf(const RegionSums& sums, const double voxels) {
  RegionMeans means;
  means.volume = sums.volume / voxels;
  means.strain = sums.strain.leftCols<6>() / sums.volume;
  means.thermalStrain = sums.strain.col(6) / sums.volume;
  means.stress = sums.stress.leftCols<6>() / sums.volume;
  means.thermalStress = sums.stress.col(6) / sums.volume;
  return means;
}

Concentration concentrationOf(const RegionMeans& means, const CellResponse& response) {
  return {means.strain,
          means.thermalStrain,
          means.stress * response.compliance,
          means.stress * response.expansion + means.thermalStress};
}

// Of the whole cell in terms of itself.
Concentration wholeConcentration() {
  return {Matrix6::Identity(), Vector6::Zero(), Matrix6::Identity(), Vector6::Zero()};
}

// Work of the strains of one phase in each of Hill's moduli, summed over voxels.
struct SensitivitySums {
  std::array<Matrix6, 5> work;
  Matrix6 strain = Matrix6::Zero();

  SensitivitySums() { work.fill(Matrix6::Zero()); }

  void add(const double share, const Matrix6& local) {
    using Row = Eigen::Matrix<double, 1, 6>;
    const Row along = local.row(k11);
    const Row dilatation = local.row(k22) + local.row(k33);
    const Row distortion = local.row(k22) - local.row(k33);
    const auto square = [share](const Row& row) -> Matrix6 {
      return share * (row.transpose() * row);
    };
    const Matrix6 mixed = share * (along.transpose() * dilatation);
    work[CellSensitivity::axial] += square(along);
    work[CellSensitivity::cross] += mixed + mixed.transpose();
    work[CellSensitivity::bulk] += square(dilatation);
    work[CellSensitivity::transverse] += square(distortion) + square(local.row(k23));
    work[CellSensitivity::shear] += square(local.row(k12)) + square(local.row(k13));
    strain += share * local;
  }
};

using CellSensitivitySums = std::array<SensitivitySums, kCellPhases>;

CellSensitivitySums planeSensitivity(const CellMaterials& materials,
                                     const CellFields& fields,
                                     const int i) {
  PhaseStrains plane(materials, fields, kStrainCases);
  plane.load(i);
  CellSensitivitySums sums;
  for (int j = 0; j < materials.cell().shape().n2; ++j) {
    const std::array<Matrix6, kCellPhases> toLocal{
        Matrix6::Identity(), materials.fill(i, j).toLocal, materials.warp(i, j).toLocal};
    plane.visitColumn(j, [&](const std::size_t r, const double share, const auto& e, int /*k*/) {
      sums[r].add(share, toLocal[r] * e);
    });
  }
  return sums;
}

}  // namespace

CellResponse cellResponse(const CellMaterials& materials,
                          const CellFields& fields,
                          ThreadPool& team) {
  const UnitCell& cell = materials.cell();
  const double widestGap = contactGap(cell);
  std::vector<CellSums> planes(static_cast<std::size_t>(cell.shape().n1));
  team.forEach(planes.size(), [&](const std::size_t i) {
    planes[i] = planeSums(materials, fields, widestGap, static_cast<int>(i));
  });
  CellSums sums;
  RegionSums whole;
  for (const CellSums& plane : planes) {
    for (std::size_t r = 0; r < sums.size(); ++r) {
      sums[r].add(plane[r]);
    }
  }
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    whole.add(sums[r]);
  }
  const auto voxels = static_cast<double>(cell.shape().voxels());
  const RegionMeans overall = meansOf(whole, voxels);
  CellResponse response;
  response.stiffness = overall.stress;
  response.compliance = overall.stress.inverse();
  response.expansion = -response.compliance * overall.thermalStress;
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    response.phases[r] = sums[r].volume > 0.0 ? concentrationOf(meansOf(sums[r], voxels), response)
                                              : wholeConcentration();
  }
  response.interface = sums[kInterface].volume > 0.0
                           ? concentrationOf(meansOf(sums[kInterface], voxels), response)
                           : wholeConcentration();
  return response;
}

double strainEnergy(const CellMaterials& materials,
                    const CellFields& fields,
                    const std::size_t loadCase) {
  const MaterialField& field = materials.field();
  const GridShape& shape = field.shape();
  const auto n3 = static_cast<std::size_t>(shape.n3);
  const std::size_t count = static_cast<std::size_t>(shape.n2) * n3;
  std::vector<double> strains(6 * count);
  double sum = 0.0;
  for (int i = 0; i < shape.n1; ++i) {
    planeStrains(fields, loadCase, i, strains.data());
    const std::int32_t* const rows = field.rowRuns(i);
    for (int j = 0; j < shape.n2; ++j) {
      for (std::int32_t run = rows[j]; run < rows[j + 1]; ++run) {
        const Matrix6 c = field.stiffness(field.runs()[run].material);
        const int end = run + 1 < rows[j + 1] ? field.runs()[run + 1].begin : shape.n3;
        for (int k = field.runs()[run].begin; k < end; ++k) {
          const Eigen::Map<const Vector6, 0, Eigen::InnerStride<>> strain(
              strains.data() + static_cast<std::size_t>(j) * n3 + static_cast<std::size_t>(k),
              Eigen::InnerStride<>(static_cast<Eigen::Index>(count)));
          sum += strain.dot(c * strain);
        }
      }
    }
  }
  return sum / static_cast<double>(shape.voxels());
}

Matrix6 CellSensitivity::stiffnessFor(
    const std::array<TransverselyIsotropic, kCellPhases>& phases) const {
  Matrix6 overall = Matrix6::Zero();
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    const HillModuli hill = hillModuli(phases[r]);
    overall += hill.n * stiffness[r][axial] + hill.l * stiffness[r][cross] +
               hill.k * stiffness[r][bulk] + hill.m * stiffness[r][transverse] +
               hill.p * stiffness[r][shear];
  }
  return overall;
}

CellSensitivity cellSensitivity(const CellMaterials& materials,
                                const CellFields& fields,
                                ThreadPool& team) {
  const GridShape& shape = materials.cell().shape();
  std::vector<CellSensitivitySums> planes(static_cast<std::size_t>(shape.n1));
  team.forEach(planes.size(), [&](const std::size_t i) {
    planes[i] = planeSensitivity(materials, fields, static_cast<int>(i));
  });
  CellSensitivity mean;
  const double share = 1.0 / static_cast<double>(shape.voxels());
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    mean.stiffness[r].fill(Matrix6::Zero());
    mean.strain[r].setZero();
    for (const CellSensitivitySums& plane : planes) {
      for (std::size_t m = 0; m < 5; ++m) {
        mean.stiffness[r][m] += share * plane[r].work[m];
      }
      mean.strain[r] += share * plane[r].strain;
    }
  }
  return mean;
}

}  // namespace kx
