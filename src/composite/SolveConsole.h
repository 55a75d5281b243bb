// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_COMPOSITE_SOLVECONSOLE_H
#define LAMCRAFT_COMPOSITE_SOLVECONSOLE_H

#include <cstddef>
#include <string>

#include "composite/MicromechanicsCalls.h"
#include "model/EnvironmentRecord.h"

/// What a solve says on the console.
namespace lamcraft {

/// The twelve properties in one line, which ends with a newline:
/// "E11 =  1.500e+05, E22 =  ...", numbers and separator after the user's locale.
[[nodiscard]] std::string propertyLine(const PropertySet& set);

/// "Solving environment 1 of 2"; number counts from 1.
void printEnvironmentHeader(std::size_t number, std::size_t count);

/// Target lamina and start values of fiber and matrix.
void printStartValues(const EnvironmentRecord& environment);

/// Lamina, fiber and matrix after the fit, with errors and iteration counts.
void printConvergedValues(const EnvironmentRecord& environment);

/// Errors and iteration count of the fatigue fit, zeros where none ran.
void printFatigueSummary(const EnvironmentRecord& environment);

/// The prefail constants, or why there are none.
void printPrefailOutcome(const micromechanics::PrefailOutcome& outcome,
                         const PrefailConstants& constants);

}  // namespace lamcraft

#endif
