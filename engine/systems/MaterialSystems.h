// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_SYSTEMS_MATERIALSYSTEMS_H
#define KX_SYSTEMS_MATERIALSYSTEMS_H

#include <cstdint>

#include "elastic/Properties.h"

namespace kx {

/// Default constituents of a material system, in Pa and 1/K, at room temperature and dry.
struct SystemDefaults {
  Properties fiber;   ///< transversely isotropic about 1
  Properties matrix;  ///< isotropic
};

/// The defaults of the system with this number, 1 to 18: a fiber family paired with a matrix
/// family. Any other number: twelve zeros for both, which no fit accepts as a start.
SystemDefaults systemDefaults(std::int32_t number) noexcept;

}  // namespace kx

#endif
