// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DATAFILE_CONSTITUENTXML_H
#define LAMCRAFT_DATAFILE_CONSTITUENTXML_H

#include <vector>

#include <tinyxml.h>

#include "model/Constituent.h"
#include "model/EnvironmentRecord.h"

/// Blocks about constituents that unidirectional and woven data files share.
namespace lamcraft::xml {

/// Appends a constituent's element with its number, type and name, nothing else in it yet.
TiXmlElement& appendConstituent(TiXmlNode& parent, const Constituent& constituent);

/// Appends a constituent with its volume fraction, degradation and sub-constituents.
void appendConstituentTree(TiXmlNode& parent, const Constituent& constituent);

/// Whether the fit left constituent fatigue constants: two rows, the first constant positive.
[[nodiscard]] bool hasFatigueConstants(const std::vector<ResultRow>& rows) noexcept;

/// Appends the constituent fatigue constants, the first row along, the second across the fibers.
void appendFatigueConstants(TiXmlNode& parent, const std::vector<ResultRow>& rows);

}  // namespace lamcraft::xml

#endif
