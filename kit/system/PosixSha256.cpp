// SPDX-License-Identifier: BSD-3-Clause
#include <nettle/sha2.h>

#include "system/Hexadecimal.h"
#include "system/Sha256.h"

namespace lamkit {

std::string sha256(const std::string_view bytes) {
  sha256_ctx context{};
  sha256_init(&context);
  sha256_update(&context, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
  std::uint8_t digest[SHA256_DIGEST_SIZE];
  sha256_digest(&context, sizeof digest, digest);
  return hexadecimal(digest);
}

}  // namespace lamkit
