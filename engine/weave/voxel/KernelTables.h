// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_VOXEL_KERNELTABLES_H
#define KX_WEAVE_VOXEL_KERNELTABLES_H

#include "weave/voxel/Kernels.h"

/// The tables that the sources compiled per instruction set provide.
namespace kx::kernels {

const Table& baselineTable();
const Table& avx2Table();    ///< needs AVX2 and FMA
const Table& avx512Table();  ///< needs AVX-512 F, VL and DQ

}  // namespace kx::kernels

#endif
