// SPDX-License-Identifier: BSD-3-Clause
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
constexpr double kExtrapolation = 0.2;  // of the difference between two grids

using Cases = CellMeans::Cases;
using Region = CellMeans::Region;

void add(Region& sum, const double factor, const Region& part) {
  sum.volume += factor * part.volume;
  sum.strain += factor * part.strain;
  sum.stress += factor * part.stress;
}

void add(CellMeans& sum, const double factor, const CellMeans& part) {
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    add(sum.phases[r], factor, part.phases[r]);
  }
  add(sum.interface, factor, part.interface);
  sum.energy += factor * part.energy;
}

// Stress of a phase under the strains of all cases.
Cases stressOf(const PhaseStiffness& phase, const Cases& strain, const double volume) {
  Cases stress = phase.c * strain;
  stress.col(static_cast<Eigen::Index>(kThermalCase)) -= volume * phase.beta;
  return stress;
}

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

// Sums over the voxels of plane i.
CellMeans planeSums(const CellMaterials& materials,
                    const CellFields& fields,
                    const double widestGap,
                    const int i) {
  const UnitCell& cell = materials.cell();
  PhaseStrains plane(materials, fields, kLoadCases);
  plane.load(i);
  CellMeans sums;
  for (int j = 0; j < cell.shape().n2; ++j) {
    const Contact contact = contactOf(cell, cell.column(i, j), widestGap);
    const auto phases = materials.phasesAt(i, j);
    plane.visitColumn(
        j, [&](const std::size_t r, const double share, const VoxelStrains& strains, const int k) {
          const Cases strain = strains.mean;
          const Cases bending = strains.bending;
          const Cases stress = stressOf(*phases[r], strain, 1.0);
          add(sums.phases[r], share, {1.0, strain, stress});
          sums.energy += share * (strain.leftCols<6>().transpose() * stress +
                                  bending.leftCols<6>().transpose() * (phases[r]->c * bending));
          if (r == kPocket || !(contact.weight > 0.0)) {
            return;
          }
          const double weight =
              contact.weight * cell.overlap(r == kFill ? contact.fill : contact.warp, k);
          add(sums.interface, weight, {1.0, strain, stress});
        });
  }
  return sums;
}

Concentration concentrationOf(const Region& region, const CellResponse& response) {
  const Cases strain = region.strain / region.volume;
  const Cases stress = region.stress / region.volume;
  return {strain.leftCols<6>(),
          strain.col(6),
          stress.leftCols<6>() * response.compliance,
          stress.leftCols<6>() * response.expansion + stress.col(6)};
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

  void add(const double share, const Matrix6& local, const Matrix6& bending) {
    addWork(share, local);
    addWork(share, bending);
    strain += share * local;
  }

  void addWork(const double share, const Matrix6& local) {
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
    plane.visitColumn(
        j, [&](const std::size_t r, const double share, const VoxelStrains& strains, int /*k*/) {
          sums[r].add(share, toLocal[r] * strains.mean, toLocal[r] * strains.bending);
        });
  }
  return sums;
}

}  // namespace

CellMeans cellMeans(const CellMaterials& materials, const CellFields& fields, ThreadPool& team) {
  const UnitCell& cell = materials.cell();
  const double widestGap = contactGap(cell);
  std::vector<CellMeans> planes(static_cast<std::size_t>(cell.shape().n1));
  team.forEach(planes.size(), [&](const std::size_t i) {
    planes[i] = planeSums(materials, fields, widestGap, static_cast<int>(i));
  });
  CellMeans means;
  for (const CellMeans& plane : planes) {
    add(means, 1.0 / static_cast<double>(cell.shape().voxels()), plane);
  }
  return means;
}

CellResponse cellResponse(const CellMeans& means) {
  CellResponse response;
  const Matrix6 stiffness = means.energy.leftCols<6>();
  response.stiffness = (stiffness + stiffness.transpose()) / 2;
  response.compliance = response.stiffness.inverse();
  response.expansion = -response.compliance * means.energy.col(6);
  Cases missing;
  missing << response.stiffness, means.energy.col(6);
  double tows = 0.0;
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    missing -= means.phases[r].stress;
    tows += r == kPocket ? 0.0 : means.phases[r].volume;
  }
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    Region phase = means.phases[r];
    if (r != kPocket) {
      phase.stress += phase.volume / tows * missing;
    }
    response.phases[r] =
        phase.volume > 0.0 ? concentrationOf(phase, response) : wholeConcentration();
  }
  response.interface = means.interface.volume > 0.0 ? concentrationOf(means.interface, response)
                                                    : wholeConcentration();
  return response;
}

CellMeans extrapolated(const CellMeans& fine, const CellMeans& coarse) {
  CellMeans means;
  add(means, 1.0 + kExtrapolation, fine);
  add(means, -kExtrapolation, coarse);
  return means;
}

CellSensitivity extrapolated(const CellSensitivity& fine, const CellSensitivity& coarse) {
  CellSensitivity result = fine;
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    for (std::size_t m = 0; m < result.stiffness[r].size(); ++m) {
      result.stiffness[r][m] += kExtrapolation * (fine.stiffness[r][m] - coarse.stiffness[r][m]);
    }
    result.strain[r] += kExtrapolation * (fine.strain[r] - coarse.strain[r]);
  }
  return result;
}

double extrapolated(const double fine, const double coarse) {
  return fine + kExtrapolation * (fine - coarse);
}

double strainEnergy(const CellMaterials& materials,
                    const CellFields& fields,
                    const std::size_t loadCase) {
  const MaterialField& field = materials.field();
  const GridShape& shape = field.shape();
  const std::ptrdiff_t count = std::ptrdiff_t{shape.n2} * shape.n3;
  std::vector<double> strains(static_cast<std::size_t>(kernels::kStrainRows * count));
  double sum = 0.0;
  for (int i = 0; i < shape.n1; ++i) {
    planeStrains(fields, loadCase, i, strains.data());
    field.forEachRun(i, [&](const int j, const int begin, const int end, const auto material) {
      const Matrix6 c = field.stiffness(material);
      for (int k = begin; k < end; ++k) {
        using Stride = Eigen::InnerStride<>;
        const double* const first = strains.data() + std::ptrdiff_t{j} * shape.n3 + k;
        const Eigen::Map<const Vector6, 0, Stride> mean(first, Stride(count));
        const double* const bent = first + 6 * count;
        Vector6 bending = Vector6::Zero();
        bending(k11) = bent[0];
        bending(k22) = bent[count];
        bending(k12) = bent[2 * count];
        sum += mean.dot(c * mean) + kernels::kBendingShare * bending.dot(c * bending);
      }
    });
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
