// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_VERDICT_LIFESCATTER_H
#define LAMKIT_VERDICT_LIFESCATTER_H

#include <cstddef>

#include "verdict/Subject.h"

namespace lamkit {

/// The root mean square of log10(predicted/tested cycles) over the S-N tests of an environment
/// (counted from 0) of a unidirectional material, predicted by the engine's law with the constants
/// of the data. 0 where these hold no constants or no tests.
[[nodiscard]] double lawScatter(const Subject& subject, std::size_t environment);

}  // namespace lamkit

#endif
