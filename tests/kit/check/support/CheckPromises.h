// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_TESTS_CHECK_SUPPORT_CHECKPROMISES_H
#define LAMKIT_TESTS_CHECK_SUPPORT_CHECKPROMISES_H

#include <string>

namespace lamkit::test {

/// Which promise the check breaks on a deck, in words; empty when it keeps all of them:
/// - a deck that the program refuses has an error. Of woven plies the program's fit, which takes
///   seconds, is not run, only what comes before it;
/// - every finding stands in the deck: its line and its column exist.
/// Folders are left out.
[[nodiscard]] std::string brokenPromise(const std::string& deck);

}  // namespace lamkit::test

#endif
