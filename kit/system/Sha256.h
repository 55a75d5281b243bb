// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_SYSTEM_SHA256_H
#define LAMKIT_SYSTEM_SHA256_H

#include <string>
#include <string_view>

namespace lamkit {

/// The SHA-256 digest (FIPS 180-4) of the bytes, as 64 lower-case hexadecimal digits.
[[nodiscard]] std::string sha256(std::string_view bytes);

}  // namespace lamkit

#endif
