#include "fft/PassBodies.h"

namespace kx::fft {

RunPass avx512Pass() {
  return runPass;
}

}  // namespace kx::fft
