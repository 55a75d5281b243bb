// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_FOLDER_ENVIRONMENTREADING_H
#define LAMKIT_FOLDER_ENVIRONMENTREADING_H

#include <tinyxml.h>

#include "folder/MaterialData.h"

namespace lamkit::xml {

/// Reads an "environment" element of a unidirectional or a woven material. Throws Fault.
[[nodiscard]] EnvironmentData readEnvironment(const TiXmlElement& element, bool isWoven);

}  // namespace lamkit::xml

#endif
