// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_REPORT_EMBEDDEDFILES_H
#define LAMKIT_REPORT_EMBEDDEDFILES_H

#include <string_view>

namespace lamkit {

/// The bytes of a file of charts/ or page/ by its name; empty for one that is not there.
[[nodiscard]] std::string_view embeddedFile(std::string_view name);

}  // namespace lamkit

#endif
