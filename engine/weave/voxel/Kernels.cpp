// SPDX-License-Identifier: BSD-3-Clause
#include "weave/voxel/Kernels.h"

#include "fft/InstructionSet.h"
#include "weave/voxel/KernelTables.h"

namespace kx::kernels {

int available(const Table* tables[3]) {
  const InstructionSet widest = widestInstructionSet();
  int count = 0;
  tables[count++] = &baselineTable();
  if (widest >= InstructionSet::avx2) {
    tables[count++] = &avx2Table();
  }
  if (widest >= InstructionSet::avx512) {
    tables[count++] = &avx512Table();
  }
  return count;
}

const Table& best() {
  const Table* tables[3] = {};
  return *tables[available(tables) - 1];
}

}  // namespace kx::kernels
