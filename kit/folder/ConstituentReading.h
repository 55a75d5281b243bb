// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_FOLDER_CONSTITUENTREADING_H
#define LAMKIT_FOLDER_CONSTITUENTREADING_H

#include <vector>

#include <tinyxml.h>

#include "folder/MaterialData.h"

namespace lamkit::xml {

/// Reads a "constituent" of the material, with its own ones. Throws Fault.
[[nodiscard]] ConstituentData readConstituent(const TiXmlElement& element);

/// Reads a "constituent" of an environment, with its own ones. Throws Fault.
[[nodiscard]] FittedConstituent readFittedConstituent(const TiXmlElement& element);

/// Reads the property sets below an element, in order. Throws Fault.
[[nodiscard]] std::vector<StateProperties> readStates(const TiXmlElement& element);

}  // namespace lamkit::xml

#endif
