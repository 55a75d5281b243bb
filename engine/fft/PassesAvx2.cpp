#include "fft/PassBodies.h"

namespace kx::fft {

RunPass avx2Pass() {
  return runPass;
}

}  // namespace kx::fft
