// SPDX-License-Identifier: BSD-3-Clause
#include "weave/voxel/KernelBodies.h"
#include "weave/voxel/KernelTables.h"

namespace kx::kernels {

const Table& avx512Table() {
  return kTable;
}

}  // namespace kx::kernels
