// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_CHECK_H
#define LAMKIT_CHECK_CHECK_H

#include <string>
#include <string_view>
#include <vector>

#include "findings/Finding.h"

namespace lamkit {

/// What is looked at.
struct CheckOptions {
  bool withFolders = true;  ///< SOLVE and the folders of a run: not where these are known otherwise
  bool withWeaves = true;   ///< the start of woven plies, which takes a solution of their unit cell
};

/// All that is wrong or doubtful in the deck at `path`, in the order of its lines. Throws Failure
/// when the deck cannot be read.
[[nodiscard]] FileFindings checkDeck(const std::string& path, const CheckOptions& options = {});

/// The same for the bytes of a deck; members `file` are left empty. Does not throw for any bytes.
[[nodiscard]] std::vector<Finding> checkDeckText(std::string_view deck,
                                                 const CheckOptions& options = {});

}  // namespace lamkit

#endif
