// SPDX-License-Identifier: BSD-3-Clause
#include "fft/InstructionSet.h"

namespace kx {

InstructionSet widestInstructionSet() {
#if defined(KX_X86_KERNELS)
  const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
  if (hasAvx2 && __builtin_cpu_supports("avx512f") != 0 &&
      __builtin_cpu_supports("avx512vl") != 0 && __builtin_cpu_supports("avx512dq") != 0) {
    return InstructionSet::avx512;
  }
  if (hasAvx2) {
    return InstructionSet::avx2;
  }
#endif
  return InstructionSet::baseline;
}

}  // namespace kx
