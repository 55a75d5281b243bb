// SPDX-License-Identifier: BSD-3-Clause
#include <windows.h>

#include <bcrypt.h>

#include <stdexcept>

#include "system/Hexadecimal.h"
#include "system/Sha256.h"

namespace lamkit {

std::string sha256(const std::string_view bytes) {
  constexpr std::size_t kSize = 32;
  std::uint8_t digest[kSize];
  BCRYPT_ALG_HANDLE algorithm = nullptr;
  BCRYPT_HASH_HANDLE hash = nullptr;
  // The functions take bytes that are not const, and leave them alone.
  auto* const data = reinterpret_cast<PUCHAR>(const_cast<char*>(bytes.data()));
  const bool isDone =
      BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0) == 0 &&
      BCryptCreateHash(algorithm, &hash, nullptr, 0, nullptr, 0, 0) == 0 &&
      BCryptHashData(hash, data, static_cast<ULONG>(bytes.size()), 0) == 0 &&
      BCryptFinishHash(hash, digest, kSize, 0) == 0;
  if (hash != nullptr) {
    BCryptDestroyHash(hash);
  }
  if (algorithm != nullptr) {
    BCryptCloseAlgorithmProvider(algorithm, 0);
  }
  if (!isDone) {
    throw std::runtime_error("Windows gives no SHA-256");
  }
  return hexadecimal(digest);
}

}  // namespace lamkit
