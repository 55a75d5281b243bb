// SPDX-License-Identifier: BSD-3-Clause
#include "fft/PassBodies.h"

namespace kx::fft {

RunPass avx512Pass() {
  return runPass;
}

}  // namespace kx::fft
