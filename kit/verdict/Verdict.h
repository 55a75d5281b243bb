// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_VERDICT_VERDICT_H
#define LAMKIT_VERDICT_VERDICT_H

#include <string>

#include "findings/Finding.h"

namespace lamkit {

/// Whether the material in a folder can be used: all that is wrong or doubtful about its data, and
/// what check finds in its deck copy. Throws Failure when there is no such folder.
[[nodiscard]] FileFindings judgeFolder(const std::string& path);

/// The same without what check finds, for whom has checked the deck.
[[nodiscard]] FileFindings judgeMaterial(const std::string& path);

}  // namespace lamkit

#endif
