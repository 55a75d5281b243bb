// SPDX-License-Identifier: BSD-3-Clause
// The kernels' code, included by one source file per instruction set; see Kernels.h. Everything
// has internal linkage and nothing of the standard library is used: an inline function shared
// with code for a lesser processor could otherwise come out compiled for the better one.
#ifndef KX_WEAVE_VOXEL_KERNELBODIES_H
#define KX_WEAVE_VOXEL_KERNELBODIES_H

#include "weave/voxel/Kernels.h"

namespace kx::kernels {
namespace {

// Four doubles: two voxels of a row, two lanes each. A pair: one voxel.
constexpr std::int64_t kWidth = 4;
using Vec = double __attribute__((vector_size(8 * kWidth)));
using Pair = double __attribute__((vector_size(16)));

inline Vec load(const double* from) {
  Vec value;
  __builtin_memcpy(&value, from, sizeof value);
  return value;
}

inline void store(double* to, const Vec value) {
  __builtin_memcpy(to, &value, sizeof value);
}

inline Pair loadPair(const double* from) {
  Pair value;
  __builtin_memcpy(&value, from, sizeof value);
  return value;
}

inline void storePair(double* to, const Pair value) {
  __builtin_memcpy(to, &value, sizeof value);
}

inline Vec twice(const double* lanes) {
  return Vec{lanes[0], lanes[1], lanes[0], lanes[1]};
}

void advance(const std::int64_t count,
             const double* const step,
             const double* const turn,
             const double* const descent,
             double* const direction,
             double* const solution) {
  const Vec steps = twice(step);
  const Vec turns = twice(turn);
  for (std::int64_t t = 0; t < count; t += kWidth) {
    const Vec old = load(direction + t);
    store(solution + t, load(solution + t) + steps * old);
    store(direction + t, load(descent + t) + turns * old);
  }
}

void dot(const std::int64_t count, const double* const a, const double* const b, double* sums) {
  Vec first{};
  Vec second{};
  std::int64_t t = 0;
  for (; t + 2 * kWidth <= count; t += 2 * kWidth) {
    first += load(a + t) * load(b + t);
    second += load(a + t + kWidth) * load(b + t + kWidth);
  }
  if (t < count) {
    first += load(a + t) * load(b + t);
  }
  first += second;
  sums[0] = first[0] + first[2];
  sums[1] = first[1] + first[3];
}

constexpr int kInPlane[3] = {0, 1, 3};  // components 11, 22, 12

constexpr int kBefore = 4;  // room for the voxel before the first, keeping alignment
constexpr int kRowCount = 42;

// Each row of scratch is long enough for a row of nodes, its periodic continuation and the excess
// of the last vector.
constexpr std::int64_t rowLength(const int n3) {
  return kBefore + 2 * n3 + 3 * kWidth;
}

// The rows of scratch of a plane job, in units of one row of nodes or voxels.
struct Rows {
  double* sum[2][3];         ///< far plus near nodes, of this and the next row of nodes
  double* difference[2][3];  ///< far minus near nodes, likewise
  double* strain[6];
  double* bending[3];  ///< these and `strain` are kStrainRows rows one after the other
  double* lower[6];    ///< stress, kBefore into the row; 11, 22, 12 as the lower nodes meet them
  double* upper[6];    ///< as the upper nodes meet them; the same rows but for 11, 22, 12
  double* along[3];    ///< forces that a row of voxels leaves to the next row of nodes: of strains
  double* across[3];   ///< along axes 2 and 3, and along axis 1
  double* firstAlong[3];  ///< those on the first row of nodes, which waits for the last voxels
  double* firstAcross[3];

  explicit Rows(const PlaneJob& job) {
    double* next = job.scratch;
    const std::int64_t length = rowLength(job.n3);
    const auto take = [&](double** const rows, const int count) {
      for (int i = 0; i < count; ++i, next += length) {
        rows[i] = next;
      }
    };
    take(sum[0], 3);
    take(sum[1], 3);
    take(difference[0], 3);
    take(difference[1], 3);
    take(strain, 6);
    take(bending, 3);
    take(lower, 6);
    for (int c = 0; c < 6; ++c) {
      lower[c] += kBefore;
      upper[c] = lower[c];
    }
    for (const int c : kInPlane) {
      take(upper + c, 1);
      upper[c] += kBefore;
    }
    take(along, 3);
    take(across, 3);
    take(firstAlong, 3);
    take(firstAcross, 3);
  }
};

inline std::int64_t rowStart(const PlaneJob& job, const int component, const int j) {
  return component * job.componentStride + std::int64_t{2} * j * job.n3;
}

inline int farRow(const PlaneJob& job, const int j) {
  const int shifted = j + job.farShift;
  return shifted < job.n2 ? shifted : shifted - job.n2;
}

// Sum and difference of the far and near nodes of node row j, continued by one node.
inline void foldPlanes(const PlaneJob& job, const int j, const Rows& rows, const int slot) {
  const int m = 2 * job.n3;
  for (int c = 0; c < 3; ++c) {
    const double* const nearRow = job.nearNodes + rowStart(job, c, j);
    const double* const farNodes = job.farNodes + rowStart(job, c, farRow(job, j));
    double* const sum = rows.sum[slot][c];
    double* const difference = rows.difference[slot][c];
    for (int t = 0; t < m; t += kWidth) {
      const Vec u = load(nearRow + t);
      const Vec v = load(farNodes + t);
      store(sum + t, v + u);
      store(difference + t, v - u);
    }
    storePair(sum + m, loadPair(sum));
    storePair(difference + m, loadPair(difference));
  }
}

struct Gradient {
  Vec d1, d2, d3;
  Vec bent1, bent2;  // d1 and d2 at the upper face less those in the middle
};

inline Gradient gradientAt(const double* const sum0,
                           const double* const sum1,
                           const double* const difference0,
                           const double* const difference1,
                           const int t,
                           const Vec* const scale) {
  const Vec s00 = load(sum0 + t);
  const Vec s01 = load(sum0 + t + 2);
  const Vec s10 = load(sum1 + t);
  const Vec s11 = load(sum1 + t + 2);
  const Vec x0 = load(difference0 + t) + load(difference1 + t);
  const Vec x1 = load(difference0 + t + 2) + load(difference1 + t + 2);
  const Vec y0 = s10 - s00;
  const Vec y1 = s11 - s01;
  const Vec z = (s01 + s11) - (s00 + s10);
  return {scale[0] * (x1 + x0),
          scale[1] * (y1 + y0),
          scale[2] * z,
          scale[0] * (x1 - x0),
          scale[1] * (y1 - y0)};
}

// Strains of the voxel row between the node rows in `slot` and 1 - slot.
inline void strainRow(const PlaneJob& job, const Rows& rows, const int slot) {
  const int other = 1 - slot;
  const Vec scale[3] = {Vec{} + job.scale[0], Vec{} + job.scale[1], Vec{} + job.scale[2]};
  const int m = 2 * job.n3;
  for (int t = 0; t < m; t += kWidth) {
    Gradient g[3];
    for (int c = 0; c < 3; ++c) {
      g[c] = gradientAt(rows.sum[slot][c],
                        rows.sum[other][c],
                        rows.difference[slot][c],
                        rows.difference[other][c],
                        t,
                        scale);
    }
    store(rows.strain[0] + t, g[0].d1);
    store(rows.strain[1] + t, g[1].d2);
    store(rows.strain[2] + t, g[2].d3);
    store(rows.strain[3] + t, g[0].d2 + g[1].d1);
    store(rows.strain[4] + t, g[0].d3 + g[2].d1);
    store(rows.strain[5] + t, g[1].d3 + g[2].d2);
    store(rows.bending[0] + t, g[0].bent1);
    store(rows.bending[1] + t, g[1].bent2);
    store(rows.bending[2] + t, g[0].bent2 + g[1].bent1);
  }
}

inline void addUnitStrain(const PlaneJob& job, const Rows& rows) {
  for (int c = 0; c < 6; ++c) {
    double* const strain = rows.strain[c];
    const Vec unit = twice(job.load->strain[c]);
    for (int t = 0; t < 2 * job.n3; t += kWidth) {
      store(strain + t, load(strain + t) + unit);
    }
  }
}

// Stress at the middle of the voxels of a run, and at 11, 22, 12 what the faces' nodes meet: of two
// integration points along axis 3.
inline void stressOfRun(const double* const c, const Rows& rows, const int from, const int to) {
  for (int t = from; t < to; t += kWidth) {
    const Vec e0 = load(rows.strain[0] + t);
    const Vec e1 = load(rows.strain[1] + t);
    const Vec e2 = load(rows.strain[2] + t);
    const Vec e3 = load(rows.strain[3] + t);
    const Vec e4 = load(rows.strain[4] + t);
    const Vec e5 = load(rows.strain[5] + t);
    const Vec b0 = kBendingShare * load(rows.bending[0] + t);
    const Vec b1 = kBendingShare * load(rows.bending[1] + t);
    const Vec b3 = kBendingShare * load(rows.bending[2] + t);
    const Vec s0 = (c[0] * e0 + c[1] * e1 + c[2] * e2) + (c[3] * e3 + c[4] * e4 + c[5] * e5);
    const Vec s1 = (c[1] * e0 + c[6] * e1 + c[7] * e2) + (c[8] * e3 + c[9] * e4 + c[10] * e5);
    const Vec s3 = (c[3] * e0 + c[8] * e1 + c[12] * e2) + (c[15] * e3 + c[16] * e4 + c[17] * e5);
    const Vec m0 = c[0] * b0 + c[1] * b1 + c[3] * b3;
    const Vec m1 = c[1] * b0 + c[6] * b1 + c[8] * b3;
    const Vec m3 = c[3] * b0 + c[8] * b1 + c[15] * b3;
    store(rows.lower[0] + t, s0 - m0);
    store(rows.upper[0] + t, s0 + m0);
    store(rows.lower[1] + t, s1 - m1);
    store(rows.upper[1] + t, s1 + m1);
    store(rows.lower[3] + t, s3 - m3);
    store(rows.upper[3] + t, s3 + m3);
    store(rows.lower[2] + t,
          (c[2] * e0 + c[7] * e1 + c[11] * e2) + (c[12] * e3 + c[13] * e4 + c[14] * e5));
    store(rows.lower[4] + t,
          (c[4] * e0 + c[9] * e1 + c[13] * e2) + (c[16] * e3 + c[18] * e4 + c[19] * e5));
    store(rows.lower[5] + t,
          (c[5] * e0 + c[10] * e1 + c[14] * e2) + (c[17] * e3 + c[19] * e4 + c[20] * e5));
  }
}

inline void relieveThermalStress(const double* const thermalStress,
                                 const double* const temperature,
                                 const Rows& rows,
                                 const int from,
                                 const int to) {
  const Vec temperatures = twice(temperature);
  const auto relieve = [&](double* const stress, const int c) {
    for (int t = from; t < to; t += kWidth) {
      store(stress + t, load(stress + t) - thermalStress[c] * temperatures);
    }
  };
  for (int c = 0; c < 6; ++c) {
    relieve(rows.lower[c], c);
  }
  for (const int c : kInPlane) {
    relieve(rows.upper[c], c);
  }
}

// Stresses of voxel row j, continued by one voxel in front. A run's last vector may reach into
// the next run, which overwrites it.
inline void stressRow(const PlaneJob& job, const int j, const Rows& rows) {
  const int m = 2 * job.n3;
  for (std::int32_t r = job.rowRuns[j]; r < job.rowRuns[j + 1]; ++r) {
    const Run& run = job.runs[r];
    const int from = 2 * run.begin;
    const int to = r + 1 < job.rowRuns[j + 1] ? 2 * job.runs[r + 1].begin : m;
    stressOfRun(job.stiffness + std::int64_t{run.material} * kStiffnessSize, rows, from, to);
    if (job.load != nullptr) {
      relieveThermalStress(job.thermalStress + std::int64_t{run.material} * kStressSize,
                           job.load->temperature,
                           rows,
                           from,
                           to);
    }
  }
  for (int c = 0; c < 6; ++c) {
    storePair(rows.upper[c] - 2, loadPair(rows.upper[c] + m - 2));
  }
}

// Where the forces of node row j go.
struct ForceRow {
  double* near;
  double* far;

  ForceRow(const PlaneJob& job, const int component, const int j)
      : near(job.nearForce != nullptr ? job.nearForce + rowStart(job, component, j) : nullptr),
        far(job.farForce != nullptr ? job.farForce + rowStart(job, component, farRow(job, j))
                                    : nullptr) {}

  void put(const int t, const Vec along, const Vec across) const {
    if (near != nullptr) {
      store(near + t, load(near + t) + (along - across));
    }
    if (far != nullptr) {
      store(far + t, along + across);
    }
  }
};

// Which stress components make the force components along axes 1, 2, 3.
constexpr int kTraction[3][3] = {{0, 3, 4}, {3, 1, 5}, {4, 5, 2}};

// Forces of voxel row j on node row j, together with what row j - 1 left to it. Node
// row 0 waits for the last voxel row, so that every force is stored in one piece.
inline void forceRow(const PlaneJob& job, const int j, const Rows& rows) {
  const int m = 2 * job.n3;
  for (int c = 0; c < 3; ++c) {
    const double* const upper1 = rows.upper[kTraction[c][0]];
    const double* const lower1 = rows.lower[kTraction[c][0]];
    const double* const upper2 = rows.upper[kTraction[c][1]];
    const double* const lower2 = rows.lower[kTraction[c][1]];
    const double* const s3 = rows.lower[kTraction[c][2]];
    const ForceRow forces(job, c, j);
    for (int t = 0; t < m; t += kWidth) {
      const Vec x = job.scale[0] * (load(upper1 + t - 2) + load(lower1 + t));
      const Vec y = job.scale[1] * (load(upper2 + t - 2) + load(lower2 + t));
      const Vec z = job.scale[2] * (load(s3 + t - 2) - load(s3 + t));
      const Vec along = z - y;
      if (j == 0) {
        store(rows.firstAlong[c] + t, along);
        store(rows.firstAcross[c] + t, x);
      } else {
        forces.put(t, along + load(rows.along[c] + t), x + load(rows.across[c] + t));
      }
      store(rows.along[c] + t, z + y);
      store(rows.across[c] + t, x);
    }
  }
}

// Node row 0: voxel row 0 and the last one.
inline void closeFirstRow(const PlaneJob& job, const Rows& rows) {
  const int m = 2 * job.n3;
  for (int c = 0; c < 3; ++c) {
    const ForceRow forces(job, c, 0);
    for (int t = 0; t < m; t += kWidth) {
      const Vec along = load(rows.firstAlong[c] + t) + load(rows.along[c] + t);
      const Vec across = load(rows.firstAcross[c] + t) + load(rows.across[c] + t);
      forces.put(t, along, across);
    }
  }
}

void voxelPlane(const PlaneJob& job) {
  const Rows rows(job);
  foldPlanes(job, 0, rows, 0);
  for (int j = 0; j < job.n2; ++j) {
    const int slot = j & 1;
    foldPlanes(job, j + 1 < job.n2 ? j + 1 : 0, rows, 1 - slot);
    strainRow(job, rows, slot);
    if (job.load != nullptr) {
      addUnitStrain(job, rows);
    }
    stressRow(job, j, rows);
    forceRow(job, j, rows);
  }
  closeFirstRow(job, rows);
}

void strainPlane(const PlaneJob& job, double* const strains) {
  const Rows rows(job);
  const std::int64_t m = std::int64_t{2} * job.n3;
  foldPlanes(job, 0, rows, 0);
  for (int j = 0; j < job.n2; ++j) {
    const int slot = j & 1;
    foldPlanes(job, j + 1 < job.n2 ? j + 1 : 0, rows, 1 - slot);
    strainRow(job, rows, slot);
    for (int c = 0; c < kStrainRows; ++c) {
      const double* const row = rows.strain[0] + c * rowLength(job.n3);
      __builtin_memcpy(strains + (std::int64_t{c} * job.n2 + j) * m,
                       row,
                       static_cast<std::size_t>(m) * sizeof(double));
    }
  }
}

// k1 of the wave vector opposite to k1's.
inline int opposite(const SpectralJob& job, const int k1) {
  const int index = job.mirror - k1;
  return index < 0 ? index + job.n1 : index;
}

// Inverse of the reference stiffness at the wave vectors of two neighbouring k3, each number twice.
struct Inverse {
  Vec i11, i22, i33, i12, i13, i23;
};

// The wave vectors of one k1 and k2 but for the factors of k3: (first cos, second cos, third sin).
struct WaveRow {
  double first, second, third;
};

inline WaveRow waveRow(const SpectralJob& job, const int k1) {
  const double s1 = job.axis1[2 * k1];
  const double c1 = job.axis1[2 * k1 + 1];
  const double s2 = job.axis2[0];
  const double c2 = job.axis2[1];
  return {job.scale[0] * s1 * c2, job.scale[1] * c1 * s2, job.scale[2] * c1 * c2};
}

inline Inverse inverseAt(const SpectralJob& job, const WaveRow& row, const std::int64_t k) {
  const double* const c = job.reference;
  const Vec s3 = load(job.axis3 + 2 * k);
  const Vec c3 = load(job.axis3 + 2 * (job.n3 + 1) + 2 * k);
  const Vec q1 = row.first * c3;
  const Vec q2 = row.second * c3;
  const Vec q3 = row.third * s3;
  const Vec inPlane = c3 * c3 + kBendingShare * (s3 * s3);
  const Vec a = row.first * row.first * inPlane;
  const Vec b = row.second * row.second * inPlane;
  const Vec d = q3 * q3;
  const Vec k11 = c[0] * a + c[6] * b + c[7] * d;
  const Vec k22 = c[6] * a + c[1] * b + c[8] * d;
  const Vec k33 = c[7] * (q1 * q1) + c[8] * (q2 * q2) + c[2] * d;
  const Vec k12 = (c[3] + c[6]) * (row.first * row.second) * inPlane;
  const Vec k13 = (c[4] + c[7]) * q1 * q3;
  const Vec k23 = (c[5] + c[8]) * q2 * q3;
  const Vec m11 = k22 * k33 - k23 * k23;
  const Vec m12 = k13 * k23 - k12 * k33;
  const Vec m13 = k12 * k23 - k13 * k22;
  const Vec determinant = k11 * m11 + k12 * m12 + k13 * m13;
  const Vec none{};
  const auto carries = q1 * q1 + q2 * q2 + d > none + job.nullMode;
  const Vec factor = carries ? job.normalisation / (carries ? determinant : none + 1.0) : none;
  return {factor * m11,
          factor * (k11 * k33 - k13 * k13),
          factor * (k11 * k22 - k12 * k12),
          factor * m12,
          factor * m13,
          factor * (k12 * k13 - k11 * k23)};
}

// A row of all k3 and the row of the opposite wave vectors: three components each, `stride` doubles
// apart.
struct OppositeRows {
  double* residual;
  double* force;
  std::int64_t stride;
  double* oppositeResidual;
  double* oppositeForce;
  std::int64_t oppositeStride;
};

// Numbers k and k + 1 of a row; kLast: the last and the first.
template <bool kLast>
inline Vec loadTwo(const double* const row, const std::int64_t k) {
  if constexpr (kLast) {
    return __builtin_shufflevector(loadPair(row + 2 * k), loadPair(row), 0, 1, 2, 3);
  } else {
    return load(row + 2 * k);
  }
}

template <bool kLast>
inline void storeTwo(double* const row, const std::int64_t k, const Vec value) {
  if constexpr (kLast) {
    storePair(row + 2 * k, __builtin_shufflevector(value, value, 0, 1));
    storePair(row, __builtin_shufflevector(value, value, 2, 3));
  } else {
    store(row + 2 * k, value);
  }
}

inline Vec exchanged(const Vec value) {
  return __builtin_shufflevector(value, value, 2, 3, 0, 1);
}

struct VecSums {
  Vec total{};
  Vec difference{};
};

// Residual and descent direction at k and k + 1, and at their opposites n3 - k and n3 - k - 1.
//
// The lanes are the real and the imaginary part of one complex field, so in Fourier space a lane
// is a combination of a wave vector and its opposite: lane 0 has (f(k) + conj f(-k)) / 2.
template <bool kLast>
inline void descend(const SpectralJob& job,
                    const WaveRow& wave,
                    const OppositeRows& rows,
                    const std::int64_t k,
                    VecSums& sums) {
  const double mean = (job.step[0] + job.step[1]) / 2;
  const double half = (job.step[0] - job.step[1]) / 2;
  const Vec conjugate = {half, -half, half, -half};
  const std::int64_t mirrored = 2 * (job.n3 - k - 1);
  Vec r[3];
  Vec s[3];
  for (int c = 0; c < 3; ++c) {
    double* const residual = rows.residual + c * rows.stride;
    double* const opposite = rows.oppositeResidual + c * rows.oppositeStride + mirrored;
    const Vec f = loadTwo<kLast>(rows.force + c * rows.stride, k);
    const Vec g = exchanged(load(rows.oppositeForce + c * rows.oppositeStride + mirrored));
    r[c] = loadTwo<kLast>(residual, k) - mean * f - conjugate * g;
    s[c] = exchanged(load(opposite)) - mean * g - conjugate * f;
    storeTwo<kLast>(residual, k, r[c]);
    store(opposite, exchanged(s[c]));
  }
  const Inverse i = inverseAt(job, wave, k);
  const Vec z[3] = {i.i11 * r[0] + i.i12 * r[1] + i.i13 * r[2],
                    i.i12 * r[0] + i.i22 * r[1] + i.i23 * r[2],
                    i.i13 * r[0] + i.i23 * r[1] + i.i33 * r[2]};
  const Vec y[3] = {i.i11 * s[0] + i.i12 * s[1] + i.i13 * s[2],
                    i.i12 * s[0] + i.i22 * s[1] + i.i23 * s[2],
                    i.i13 * s[0] + i.i23 * s[1] + i.i33 * s[2]};
  for (int c = 0; c < 3; ++c) {
    storeTwo<kLast>(rows.force + c * rows.stride, k, z[c]);
    store(rows.oppositeForce + c * rows.oppositeStride + mirrored, exchanged(y[c]));
    sums.total += z[c] * r[c] + y[c] * s[c];
    sums.difference += z[c] * s[c];
  }
}

inline void descendRows(const SpectralJob& job,
                        const int k1,
                        const OppositeRows& rows,
                        const double weight,
                        SpectralSums& sums) {
  const WaveRow wave = waveRow(job, k1);
  VecSums own;
  for (std::int64_t k = 1; k + 1 < job.n3; k += 2) {
    descend<false>(job, wave, rows, k, own);
  }
  descend<true>(job, wave, rows, job.n3 - 1, own);
  sums.total += weight * ((own.total[0] + own.total[1]) + (own.total[2] + own.total[3]));
  sums.difference +=
      2 * weight *
      ((own.difference[0] - own.difference[1]) + (own.difference[2] - own.difference[3]));
}

// A row that is its own opposite meets a copy of itself, and counts half.
inline OppositeRows withCopy(const SpectralJob& job, const OppositeRows& rows) {
  const std::int64_t line = std::int64_t{2} * job.n3;
  double* const residual = job.scratch;
  double* const force = job.scratch + 3 * line;
  for (int c = 0; c < 3; ++c) {
    __builtin_memcpy(residual + c * line,
                     rows.residual + c * rows.stride,
                     static_cast<std::size_t>(line) * sizeof(double));
    __builtin_memcpy(force + c * line,
                     rows.force + c * rows.stride,
                     static_cast<std::size_t>(line) * sizeof(double));
  }
  return {rows.residual, rows.force, rows.stride, residual, force, line};
}

void spectral(const SpectralJob& job, SpectralSums* const sums) {
  const bool single = job.force[0] == job.force[1];
  const std::int64_t line = std::int64_t{2} * job.n3;
  const std::int64_t stride = line * job.n1;
  *sums = {};
  for (int k1 = 0; k1 < job.n1; ++k1) {
    const int other = opposite(job, k1);
    const OppositeRows rows{job.residual[0] + k1 * line,
                            job.force[0] + k1 * line,
                            stride,
                            job.residual[1] + other * line,
                            job.force[1] + other * line,
                            stride};
    if (single && other == k1) {
      descendRows(job, k1, withCopy(job, rows), 0.5, *sums);
    } else if (!single || k1 < other) {
      descendRows(job, k1, rows, 1.0, *sums);
    }
  }
}

static_assert(planeScratch(8) == kRowCount * rowLength(8), "the rows fit the scratch");

constexpr Table kTable{advance, voxelPlane, strainPlane, dot, spectral};

}  // namespace
}  // namespace kx::kernels

#endif
