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

// Rows of scratch, each long enough for a row of nodes, its periodic continuation and the excess
// of the last vector.
struct Rows {
  double* base;
  std::int64_t length;
  double* operator()(const int row) const { return base + row * length; }
};

constexpr int kBefore = 4;  // room for the voxel before the first, keeping alignment
constexpr int kSumRows = 0, kDifferenceRows = 6, kStrainRows = 12, kStressRows = 18,
              kCarryRows = 24, kFirstRows = 36, kRowCount = 42;

constexpr std::int64_t rowLength(const int n3) {
  return kBefore + 2 * n3 + 3 * kWidth;
}

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
    double* const sum = rows(kSumRows + 3 * slot + c);
    double* const difference = rows(kDifferenceRows + 3 * slot + c);
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
  const Vec x = (load(difference0 + t) + load(difference1 + t)) +
                (load(difference0 + t + 2) + load(difference1 + t + 2));
  const Vec y = (s10 - s00) + (s11 - s01);
  const Vec z = (s01 + s11) - (s00 + s10);
  return {scale[0] * x, scale[1] * y, scale[2] * z};
}

// Strains of the voxel row between the node rows in `slot` and 1 - slot.
inline void strainRow(const PlaneJob& job, const Rows& rows, const int slot) {
  const int other = 1 - slot;
  const Vec scale[3] = {Vec{} + job.scale[0], Vec{} + job.scale[1], Vec{} + job.scale[2]};
  const int m = 2 * job.n3;
  for (int t = 0; t < m; t += kWidth) {
    Gradient g[3];
    for (int c = 0; c < 3; ++c) {
      g[c] = gradientAt(rows(kSumRows + 3 * slot + c),
                        rows(kSumRows + 3 * other + c),
                        rows(kDifferenceRows + 3 * slot + c),
                        rows(kDifferenceRows + 3 * other + c),
                        t,
                        scale);
    }
    store(rows(kStrainRows) + t, g[0].d1);
    store(rows(kStrainRows + 1) + t, g[1].d2);
    store(rows(kStrainRows + 2) + t, g[2].d3);
    store(rows(kStrainRows + 3) + t, g[0].d2 + g[1].d1);
    store(rows(kStrainRows + 4) + t, g[0].d3 + g[2].d1);
    store(rows(kStrainRows + 5) + t, g[1].d3 + g[2].d2);
  }
}

inline void addUnitStrain(const PlaneJob& job, const Rows& rows) {
  for (int c = 0; c < 6; ++c) {
    double* const strain = rows(kStrainRows + c);
    const Vec unit = twice(job.load->strain[c]);
    for (int t = 0; t < 2 * job.n3; t += kWidth) {
      store(strain + t, load(strain + t) + unit);
    }
  }
}

inline void stressOfRun(const double* const c, const Rows& rows, const int from, const int to) {
  for (int t = from; t < to; t += kWidth) {
    const Vec e0 = load(rows(kStrainRows) + t);
    const Vec e1 = load(rows(kStrainRows + 1) + t);
    const Vec e2 = load(rows(kStrainRows + 2) + t);
    const Vec e3 = load(rows(kStrainRows + 3) + t);
    const Vec e4 = load(rows(kStrainRows + 4) + t);
    const Vec e5 = load(rows(kStrainRows + 5) + t);
    const int at = kBefore + t;
    store(rows(kStressRows) + at,
          (c[0] * e0 + c[1] * e1 + c[2] * e2) + (c[3] * e3 + c[4] * e4 + c[5] * e5));
    store(rows(kStressRows + 1) + at,
          (c[1] * e0 + c[6] * e1 + c[7] * e2) + (c[8] * e3 + c[9] * e4 + c[10] * e5));
    store(rows(kStressRows + 2) + at,
          (c[2] * e0 + c[7] * e1 + c[11] * e2) + (c[12] * e3 + c[13] * e4 + c[14] * e5));
    store(rows(kStressRows + 3) + at,
          (c[3] * e0 + c[8] * e1 + c[12] * e2) + (c[15] * e3 + c[16] * e4 + c[17] * e5));
    store(rows(kStressRows + 4) + at,
          (c[4] * e0 + c[9] * e1 + c[13] * e2) + (c[16] * e3 + c[18] * e4 + c[19] * e5));
    store(rows(kStressRows + 5) + at,
          (c[5] * e0 + c[10] * e1 + c[14] * e2) + (c[17] * e3 + c[19] * e4 + c[20] * e5));
  }
}

inline void relieveThermalStress(const double* const thermalStress,
                                 const double* const temperature,
                                 const Rows& rows,
                                 const int from,
                                 const int to) {
  const Vec temperatures = twice(temperature);
  for (int c = 0; c < 6; ++c) {
    double* const stress = rows(kStressRows + c) + kBefore;
    for (int t = from; t < to; t += kWidth) {
      store(stress + t, load(stress + t) - thermalStress[c] * temperatures);
    }
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
    double* const stress = rows(kStressRows + c) + kBefore;
    storePair(stress - 2, loadPair(stress + m - 2));
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

// Forces of voxel row j on node row j, together with what row j - 1 left in the carry rows. Node
// row 0 waits for the last voxel row, so that every force is stored in one piece.
inline void forceRow(const PlaneJob& job, const int j, const Rows& rows) {
  const int m = 2 * job.n3;
  const int newCarry = kCarryRows + 6 * (j & 1);
  const int oldCarry = kCarryRows + 6 * (1 - (j & 1));
  for (int c = 0; c < 3; ++c) {
    const double* const s1 = rows(kStressRows + kTraction[c][0]) + kBefore;
    const double* const s2 = rows(kStressRows + kTraction[c][1]) + kBefore;
    const double* const s3 = rows(kStressRows + kTraction[c][2]) + kBefore;
    const ForceRow forces(job, c, j);
    for (int t = 0; t < m; t += kWidth) {
      const Vec x = job.scale[0] * (load(s1 + t - 2) + load(s1 + t));
      const Vec y = job.scale[1] * (load(s2 + t - 2) + load(s2 + t));
      const Vec z = job.scale[2] * (load(s3 + t - 2) - load(s3 + t));
      store(rows(newCarry + c) + t, z + y);
      store(rows(newCarry + 3 + c) + t, x);
      Vec across = x;
      Vec along = z - y;
      if (j == 0) {
        store(rows(kFirstRows + c) + t, along);
        store(rows(kFirstRows + 3 + c) + t, across);
        continue;
      }
      along += load(rows(oldCarry + c) + t);
      across += load(rows(oldCarry + 3 + c) + t);
      forces.put(t, along, across);
    }
  }
}

// Node row 0: voxel row 0 and the last one.
inline void closeFirstRow(const PlaneJob& job, const Rows& rows) {
  const int m = 2 * job.n3;
  const int carry = kCarryRows + 6 * ((job.n2 - 1) & 1);
  for (int c = 0; c < 3; ++c) {
    const ForceRow forces(job, c, 0);
    for (int t = 0; t < m; t += kWidth) {
      const Vec along = load(rows(kFirstRows + c) + t) + load(rows(carry + c) + t);
      const Vec across = load(rows(kFirstRows + 3 + c) + t) + load(rows(carry + 3 + c) + t);
      forces.put(t, along, across);
    }
  }
}

void voxelPlane(const PlaneJob& job) {
  const Rows rows{job.scratch, rowLength(job.n3)};
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

// k1 of the wave vector opposite to k1's.
inline int opposite(const SpectralJob& job, const int k1) {
  const int index = job.mirror - k1;
  return index < 0 ? index + job.n1 : index;
}

// Inverse of the reference stiffness at the wave vectors (k1, +-k2, all k3): six rows of n3.
inline void inverseRow(const SpectralJob& job, const int row, const int k1, double* const out) {
  const std::int64_t at = row == 0 ? k1 : opposite(job, k1);
  const double sign = row == 0 ? 1.0 : -1.0;
  const double s1 = sign * job.axis1[2 * at];
  const double c1 = job.axis1[2 * at + 1];
  const double sin2 = sign * job.axis2[0];
  const double c2 = job.axis2[1];
  const double* const c = job.reference;
  const std::int64_t n3 = job.n3;
  for (std::int64_t k = 0; k < n3; ++k) {
    const double s3 = job.axis3[2 * k];
    const double c3 = job.axis3[2 * k + 1];
    const double q1 = job.scale[0] * s1 * c2 * c3;
    const double q2 = job.scale[1] * c1 * sin2 * c3;
    const double q3 = job.scale[2] * c1 * c2 * s3;
    const double a = q1 * q1;
    const double b = q2 * q2;
    const double d = q3 * q3;
    const double k11 = c[0] * a + c[6] * b + c[7] * d;
    const double k22 = c[6] * a + c[1] * b + c[8] * d;
    const double k33 = c[7] * a + c[8] * b + c[2] * d;
    const double k12 = (c[3] + c[6]) * q1 * q2;
    const double k13 = (c[4] + c[7]) * q1 * q3;
    const double k23 = (c[5] + c[8]) * q2 * q3;
    const double m11 = k22 * k33 - k23 * k23;
    const double m12 = k13 * k23 - k12 * k33;
    const double m13 = k12 * k23 - k13 * k22;
    const double determinant = k11 * m11 + k12 * m12 + k13 * m13;
    const bool carries = a + b + d > job.nullMode;
    const double factor = carries ? job.normalisation / (carries ? determinant : 1.0) : 0.0;
    out[k] = factor * m11;
    out[n3 + k] = factor * (k11 * k33 - k13 * k13);
    out[2 * n3 + k] = factor * (k11 * k22 - k12 * k12);
    out[3 * n3 + k] = factor * m12;
    out[4 * n3 + k] = factor * m13;
    out[5 * n3 + k] = factor * (k12 * k13 - k11 * k23);
  }
}

// The lanes are the real and the imaginary part of one complex field, so in Fourier space a lane
// is a combination of a wave vector and its opposite: lane 0 has (f(k) + conj f(-k)) / 2.
inline void lowerResidual(const SpectralJob& job, const int row, const int k1) {
  const double mean = (job.step[0] + job.step[1]) / 2;
  const double half = (job.step[0] - job.step[1]) / 2;
  const Pair conjugate = {half, -half};
  for (int c = 0; c < 3; ++c) {
    const std::int64_t component = std::int64_t{c} * job.n1 * job.n3;
    double* const r = job.residual[row] + 2 * (component + std::int64_t{k1} * job.n3);
    const double* const f = job.force[row] + 2 * (component + std::int64_t{k1} * job.n3);
    const double* const g =
        job.force[1 - row] + 2 * (component + std::int64_t{opposite(job, k1)} * job.n3);
    storePair(r, loadPair(r) - mean * loadPair(f) - conjugate * loadPair(g));
    for (std::int64_t k = 1; k < job.n3; ++k) {
      storePair(r + 2 * k,
                loadPair(r + 2 * k) - mean * loadPair(f + 2 * k) -
                    conjugate * loadPair(g + 2 * (job.n3 - k)));
    }
  }
}

struct PairSums {
  Pair total;
  Pair difference;
};

inline void descend(const SpectralJob& job,
                    const int row,
                    const int k1,
                    const double* const inverse,
                    PairSums& sums) {
  const std::int64_t n3 = job.n3;
  const std::int64_t component = 2 * n3 * job.n1;
  const double* const r = job.residual[row] + 2 * n3 * k1;
  const double* const g = job.residual[1 - row] + 2 * n3 * opposite(job, k1);
  double* const f = job.force[row] + 2 * n3 * k1;
  for (std::int64_t k = 0; k < n3; ++k) {
    const std::int64_t mirrored = k == 0 ? 0 : n3 - k;
    const Pair r1 = loadPair(r + 2 * k);
    const Pair r2 = loadPair(r + component + 2 * k);
    const Pair r3 = loadPair(r + 2 * component + 2 * k);
    const double i12 = inverse[3 * n3 + k];
    const double i13 = inverse[4 * n3 + k];
    const double i23 = inverse[5 * n3 + k];
    const Pair z1 = inverse[k] * r1 + i12 * r2 + i13 * r3;
    const Pair z2 = i12 * r1 + inverse[n3 + k] * r2 + i23 * r3;
    const Pair z3 = i13 * r1 + i23 * r2 + inverse[2 * n3 + k] * r3;
    storePair(f + 2 * k, z1);
    storePair(f + component + 2 * k, z2);
    storePair(f + 2 * component + 2 * k, z3);
    sums.total += z1 * r1 + z2 * r2 + z3 * r3;
    sums.difference += z1 * loadPair(g + 2 * mirrored) +
                       z2 * loadPair(g + component + 2 * mirrored) +
                       z3 * loadPair(g + 2 * component + 2 * mirrored);
  }
}

void spectral(const SpectralJob& job, SpectralSums* const sums) {
  const bool single = job.force[0] == job.force[1];
  for (int row = 0; row < (single ? 1 : 2); ++row) {
    for (int k1 = 0; k1 < job.n1; ++k1) {
      lowerResidual(job, row, k1);
    }
  }
  PairSums pairs{};
  for (int row = 0; row < (single ? 1 : 2); ++row) {
    for (int k1 = 0; k1 < job.n1; ++k1) {
      inverseRow(job, row, k1, job.scratch);
      descend(job, row, k1, job.scratch, pairs);
    }
  }
  sums->total = pairs.total[0] + pairs.total[1];
  sums->difference = pairs.difference[0] - pairs.difference[1];
}

static_assert(planeScratch(8) == kRowCount * rowLength(8), "the rows fit the scratch");

constexpr Table kTable{advance, voxelPlane, dot, spectral};

}  // namespace
}  // namespace kx::kernels

#endif
