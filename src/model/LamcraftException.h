// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_LAMCRAFTEXCEPTION_H
#define LAMCRAFT_MODEL_LAMCRAFTEXCEPTION_H

#include <exception>
#include <string>
#include <utility>

namespace lamcraft {

/// A failure while the material is derived or solved.
struct LamcraftException : public std::exception {
  explicit LamcraftException(std::string text) : message(std::move(text)) {}

  [[nodiscard]] const char* what() const noexcept override { return message.c_str(); }

  std::string message;
};

}  // namespace lamcraft

#endif
