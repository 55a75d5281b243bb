// SPDX-License-Identifier: BSD-3-Clause
#include "fft/PassBodies.h"

namespace kx::fft {

RunPass baselinePass() {
  return runPass;
}

}  // namespace kx::fft
