#include "weave/voxel/Kernels.h"

#include "weave/voxel/KernelTables.h"

namespace kx::kernels {

namespace {

bool hasAvx2() {
#if defined(KX_X86_KERNELS)
  return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
#else
  return false;
#endif
}

bool hasAvx512() {
#if defined(KX_X86_KERNELS)
  return hasAvx2() && __builtin_cpu_supports("avx512f") != 0 &&
         __builtin_cpu_supports("avx512vl") != 0 && __builtin_cpu_supports("avx512dq") != 0;
#else
  return false;
#endif
}

}  // namespace

int available(const Table* tables[3]) {
  int count = 0;
  tables[count++] = &baselineTable();
  if (hasAvx2()) {
    tables[count++] = &avx2Table();
  }
  if (hasAvx512()) {
    tables[count++] = &avx512Table();
  }
  return count;
}

const Table& best() {
  const Table* tables[3] = {};
  return *tables[available(tables) - 1];
}

}  // namespace kx::kernels
