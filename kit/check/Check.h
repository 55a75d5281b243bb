#ifndef LAMKIT_CHECK_CHECK_H
#define LAMKIT_CHECK_CHECK_H

#include <string>

#include "findings/Finding.h"

namespace lamkit {

/// All that is wrong or doubtful in the deck at `path`, in the order of its lines. Throws Failure
/// when the deck cannot be read.
[[nodiscard]] FileFindings checkDeck(const std::string& path);

}  // namespace lamkit

#endif
