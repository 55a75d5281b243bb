// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_MATERIALRULES_H
#define LAMKIT_CHECK_MATERIALRULES_H

#include "check/Reading.h"
#include "check/Report.h"

namespace lamkit {

/// What belongs to the material as a whole: name, density, thickness, fractions, degradation
/// factors: "out-of-range", "unit-slip", "implausible", "odd-character", "reference-temperature".
/// Answers whether the fractions make a ply.
bool checkMaterial(const Reading& reading, Report& report);

/// The temperature of one environment.
void checkTemperature(const Reading& reading,
                      const EnvironmentKeywords& environment,
                      Report& report);

/// What is missing: "missing-keyword", "no-environment" and, unless the folders are left out,
/// "missing-solve".
void checkMissingKeywords(const Reading& reading, bool withFolders, Report& report);

/// The material system that the deck names; empty when it names none.
[[nodiscard]] std::string systemName(const Reading& reading);

}  // namespace lamkit

#endif
