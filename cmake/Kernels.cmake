# SPDX-License-Identifier: BSD-3-Clause
# On 64-bit Windows GCC keeps stacks aligned to 16 bytes only and would spill the wider registers to
# misaligned places: plain x86-64 there.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64)$" AND NOT MINGW)
  set(KX_X86_KERNELS TRUE)
endif()

# Compiles three sources of a room, which hold the same inner loops, for plain x86-64, AVX2 and
# AVX-512; which of them runs is decided at run time. Elsewhere all three are plain.
# Vectors never cross the boundary of a source file, so their calling convention does not matter.
function(lamcraft_kernels baseline avx2 avx512)
  set_source_files_properties(${baseline} ${avx2} ${avx512} PROPERTIES
    COMPILE_OPTIONS "-O3;-ffp-contract=fast;-Wno-psabi")
  if(KX_X86_KERNELS)
    set_property(SOURCE ${avx2} ${avx512} APPEND PROPERTY COMPILE_OPTIONS -mavx2 -mfma)
    set_property(SOURCE ${avx512} APPEND PROPERTY
      COMPILE_OPTIONS -mavx512f -mavx512vl -mavx512dq -mprefer-vector-width=256)
  endif()
endfunction()
