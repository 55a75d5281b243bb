// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_CONSOLE_MESSAGES_H
#define LAMCRAFT_CONSOLE_MESSAGES_H

/// Every text that is shown in the user's language, each a key of the catalogues in locale/. The
/// wording is the key: spelling and blanks at the ends are kept as they are, or the catalogues no
/// longer match. A text added here needs a row in each catalogue; a test compares them.
namespace lamcraft::console {

// Usage
inline constexpr const wchar_t* kUsage = L"usage:";
inline constexpr const wchar_t* kUsageInputFile = L"INPUT FILE";
inline constexpr const wchar_t* kUsageResultsDirectory = L"RESULTSDIR-OPTIONAL";

// Failures that end the run
inline constexpr const wchar_t* kUnknownParseError =
    L"FATAL ERROR: An unknown error occurred in Parse";
inline constexpr const wchar_t* kMalformedInputFile = L"FATAL ERROR: Malformed input file: ";
inline constexpr const wchar_t* kErrorDuringSolve = L"FATAL ERROR: An error occured during solve: ";
inline constexpr const wchar_t* kUnknownCreateError =
    L"FATAL ERROR: An unknown error occurred in Create";

// Refusals of the creation run
inline constexpr const wchar_t* kMaterialsDirectoryMissing =
    L"FATAL ERROR: Materials directory does not exist: ";
inline constexpr const wchar_t* kMaterialDirectoryNotCreated =
    L"FATAL ERROR: Unable to create material directory:";
inline constexpr const wchar_t* kTargetExists = L"FATAL ERROR: The target mdata already exists: ";
inline constexpr const wchar_t* kUseOverwrite =
    L"Use the OVERWRITE parameter with *MATERIAL to overwrite this file";
inline constexpr const wchar_t* kInputsInvalid = L"FATAL ERROR: Material inputs are invalid: ";

// Titles of the solves
inline constexpr const wchar_t* kSolvingUnidirectional = L"Solving unidirectional composite:";
inline constexpr const wchar_t* kSolvingPlainWeave = L"Solving plain weave composite: ";
inline constexpr const wchar_t* kSolving = L"Solving ";
inline constexpr const wchar_t* kHarnessSatinWeave = L" harness satin weave composite";
inline constexpr const wchar_t* kSolvingEnvironment = L"Solving environment";
inline constexpr const wchar_t* kOf = L"of";

// Start values
inline constexpr const wchar_t* kTargetLamina = L"Target lamina properties:";
inline constexpr const wchar_t* kStartingFiber = L"Starting fiber properties:";
inline constexpr const wchar_t* kStartingMatrix = L"Starting matrix properties:";

// Iterations
inline constexpr const wchar_t* kIteration = L"Iteration:";
inline constexpr const wchar_t* kError = L"Error:";

// Mechanical and thermal results
inline constexpr const wchar_t* kSolveFinished = L"Mechanical and Thermal Solve finished";
inline constexpr const wchar_t* kConvergedLamina = L"Converged lamina properties:";
inline constexpr const wchar_t* kFinalFiber = L"Final fiber properties:";
inline constexpr const wchar_t* kFinalMatrix = L"Final matrix properties:";
inline constexpr const wchar_t* kInitialMechanicalError = L"Initial mechanical error:";
inline constexpr const wchar_t* kInitialThermalError = L"Initial thermal error:";
inline constexpr const wchar_t* kFinalMechanicalError = L"Final mechanical error:";
inline constexpr const wchar_t* kFinalThermalError = L"Final thermal error:";
inline constexpr const wchar_t* kMechanicalIterations = L"Mechanical iterations:";
inline constexpr const wchar_t* kThermalIterations = L"Thermal iterations:";

// Prefail
inline constexpr const wchar_t* kPrefailConstants = L"Prefail Material Constants:";
inline constexpr const wchar_t* kCurveBelowFailureStress =
    L"FATAL ERROR: Stress Strain data does not reach failure stress for prefail nonlinearity. ";
inline constexpr const wchar_t* kCurveLinear =
    L"FATAL ERROR: Stress Strain data is linear for prefail nonlinearity. ";
inline constexpr const wchar_t* kPrefailNotWritten =
    L"Prefail material data will not be written to the material data file for this environment.";

// Damage states and fatigue
inline constexpr const wchar_t* kDamageState = L"Calculating weave damage state";
inline constexpr const wchar_t* kFatigueDamageStates =
    L"Calculating weave damage states for fatigue";
inline constexpr const wchar_t* kFatigueFinished = L"Fatigue Solve finished";
inline constexpr const wchar_t* kInitialFatigueError = L"Initial Fatigue error:";
inline constexpr const wchar_t* kFinalFatigueError = L"Final Fatigue error:";
inline constexpr const wchar_t* kFatigueIterations = L"Fatigue iterations:";

}  // namespace lamcraft::console

#endif
