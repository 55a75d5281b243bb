// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_CONTRACT_FITEXCHANGE_H
#define KX_CONTRACT_FITEXCHANGE_H

#include <cstdint>

#include "contract/EngineState.h"
#include "fit/FitResult.h"

namespace kx {

/// What the calls before a fit have set for composites of this kind; progress goes to the status.
FitOptions fitOptions(CompositeKind kind);

/// Writes the initial and the final error and the iterations of a fit.
void writeSummary(const FitSummary& summary, double* errors, std::int32_t* iterations);

}  // namespace kx

#endif
