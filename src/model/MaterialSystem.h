// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_MATERIALSYSTEM_H
#define LAMCRAFT_MODEL_MATERIALSYSTEM_H

#include <cstdint>
#include <string>

#include "model/PropertySet.h"

namespace lamcraft {

/// A named pairing of fiber and matrix family with its default properties, in base units. Without
/// a known system in the deck the properties are zeros.
struct MaterialSystem {
  std::int32_t code = 1;
  std::string name = "CFRP";
  PropertySet fiber;
  PropertySet matrix;
};

}  // namespace lamcraft

#endif
