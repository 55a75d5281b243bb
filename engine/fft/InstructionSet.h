// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FFT_INSTRUCTIONSET_H
#define KX_FFT_INSTRUCTIONSET_H

namespace kx {

/// What inner loops are compiled for; each set includes those before it.
enum class InstructionSet {
  baseline,  ///< plain x86-64, or another processor
  avx2,      ///< AVX2 and FMA
  avx512     ///< AVX-512 F, VL and DQ
};

/// The widest that this processor has.
InstructionSet widestInstructionSet();

}  // namespace kx

#endif
