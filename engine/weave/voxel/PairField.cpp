// SPDX-License-Identifier: BSD-3-Clause
#include "weave/voxel/PairField.h"

#include <vector>

namespace kx {

kernels::PlaneJob PairField::planeJob(const int i) const {
  const int next = i + 1 < shape_.n1 ? i + 1 : 0;
  kernels::PlaneJob job;
  job.n2 = shape_.n2;
  job.n3 = shape_.n3;
  job.scale[0] = 0.25 / shape_.h1;
  job.scale[1] = 0.25 / shape_.h2;
  job.scale[2] = 0.25 / shape_.h3;
  job.nearNodes = plane(i);
  job.farNodes = plane(next);
  job.farShift = next == 0 && shape_.shift2 > 0 ? shape_.n2 - shape_.shift2 : 0;
  job.componentStride = static_cast<std::int64_t>(componentStride());
  return job;
}

void planeGradients(const PairField& field,
                    const std::ptrdiff_t lane,
                    const int i,
                    double* const strains) {
  kernels::PlaneJob job = field.planeJob(i);
  const std::ptrdiff_t count = std::ptrdiff_t{kernels::kStrainRows} * job.n2 * job.n3;
  AlignedArray scratch(static_cast<std::size_t>(kernels::planeScratch(job.n3)));
  AlignedArray both(static_cast<std::size_t>(2 * count));
  job.scratch = scratch.data();
  kernels::best().strainPlane(job, both.data());
  for (std::ptrdiff_t t = 0; t < count; ++t) {
    strains[t] = both.data()[2 * t + lane];
  }
}

}  // namespace kx
