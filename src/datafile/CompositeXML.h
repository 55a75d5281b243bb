// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DATAFILE_COMPOSITEXML_H
#define LAMCRAFT_DATAFILE_COMPOSITEXML_H

#include <vector>

#include <tinyxml.h>

#include "model/EnvironmentRecord.h"

/// Blocks about an environment's composite that unidirectional and woven data files share.
namespace lamcraft::xml {

/// Appends the fatigue tests; an empty element when there are none.
void appendSnRecords(TiXmlNode& parent, const std::vector<SnRecord>& records);

/// Appends the nonlinear shear law and the curve it was fitted to, or that there is none.
void appendPrefail(TiXmlNode& parent, bool wanted, const EnvironmentRecord& environment);

}  // namespace lamcraft::xml

#endif
