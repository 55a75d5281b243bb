// SPDX-License-Identifier: BSD-3-Clause
#include "weave/voxel/MaterialField.h"

namespace kx {

MaterialField::MaterialField(const GridShape& shape) : shape_(shape) {
  rowRuns_.reserve(shape.rows() + 1);
  rowRuns_.push_back(0);
}

std::int32_t MaterialField::addMaterial(const Matrix6& stiffness, const Vector6& thermalStress) {
  for (Eigen::Index row = 0; row < 6; ++row) {
    for (Eigen::Index column = row; column < 6; ++column) {
      stiffness_.push_back((stiffness(row, column) + stiffness(column, row)) / 2);
    }
  }
  thermalStress_.insert(thermalStress_.end(), thermalStress.data(), thermalStress.data() + 6);
  return materialCount() - 1;
}

void MaterialField::addVoxel(const std::int32_t material) {
  const auto n3 = static_cast<std::size_t>(shape_.n3);
  const auto k = static_cast<std::int32_t>(voxels_ % n3);
  if (k == 0 || runs_.back().material != material) {
    runs_.push_back({k, material});
  }
  if (++voxels_ % n3 == 0) {
    rowRuns_.push_back(static_cast<std::int32_t>(runs_.size()));
  }
}

std::int32_t MaterialField::materialCount() const {
  return static_cast<std::int32_t>(thermalStress_.size() / kernels::kStressSize);
}

Matrix6 MaterialField::stiffness(const std::int32_t material) const {
  const double* value = stiffness_.data() + std::ptrdiff_t{material} * kernels::kStiffnessSize;
  Matrix6 c;
  for (Eigen::Index row = 0; row < 6; ++row) {
    for (Eigen::Index column = row; column < 6; ++column) {
      c(row, column) = c(column, row) = *value++;
    }
  }
  return c;
}

Vector6 MaterialField::thermalStress(const std::int32_t material) const {
  return Eigen::Map<const Vector6>(thermalStress_.data() +
                                   std::ptrdiff_t{material} * kernels::kStressSize);
}

std::vector<double> MaterialField::materialShares() const {
  std::vector<double> shares(static_cast<std::size_t>(materialCount()), 0.0);
  for (int i = 0; i < shape_.n1; ++i) {
    forEachRun(i, [&](int /*j*/, const int begin, const int end, const std::int32_t material) {
      shares[static_cast<std::size_t>(material)] += end - begin;
    });
  }
  for (double& share : shares) {
    share /= static_cast<double>(shape_.voxels());
  }
  return shares;
}

Matrix6 MaterialField::meanStiffness() const {
  const std::vector<double> shares = materialShares();
  Matrix6 mean = Matrix6::Zero();
  for (std::int32_t m = 0; m < materialCount(); ++m) {
    const double share = shares[static_cast<std::size_t>(m)];
    if (share > 0.0) {
      mean += share * stiffness(m);
    }
  }
  return mean;
}

Vector6 MaterialField::meanThermalStress() const {
  const std::vector<double> shares = materialShares();
  Vector6 mean = Vector6::Zero();
  for (std::int32_t m = 0; m < materialCount(); ++m) {
    mean += shares[static_cast<std::size_t>(m)] * thermalStress(m);
  }
  return mean;
}

const std::int32_t* MaterialField::rowRuns(const int i) const {
  return rowRuns_.data() + std::ptrdiff_t{i} * shape_.n2;
}

}  // namespace kx
