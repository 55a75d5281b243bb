// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DATAFILE_DECOMPOSITIONXML_H
#define LAMCRAFT_DATAFILE_DECOMPOSITIONXML_H

#include <cstdint>

#include <tinyxml.h>

#include "model/DamageStateRecord.h"

namespace lamcraft::xml {

/// Appends <decomp set="..."> with a constituent's stress and strain decomposition: the matrices as
/// D11 to D66 row by row, the thermal vectors as D11 to D16.
void appendDecomposition(TiXmlNode& parent, std::int32_t set, const DecompositionSlot& slot);

}  // namespace lamcraft::xml

#endif
