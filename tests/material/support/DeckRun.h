// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_SUPPORT_DECKRUN_H
#define LAMCRAFT_MATERIAL_SUPPORT_DECKRUN_H

#include <string>

#include "material/Material.h"

namespace lamcraft {

/// The start of a deck: a unidirectional material, or a weave of another TYPE.
std::string materialKeyword(const std::string& type = "UNI", const std::string& system = "CFRP");

/// An environment keyword.
std::string environmentKeyword(const std::string& moisture = "DRY",
                               const std::string& temperature = "296");

/// A material that has read and interpreted a deck. Throws what the interpretation throws.
class InterpretedDeck {
 public:
  explicit InterpretedDeck(const std::string& deck);

  [[nodiscard]] Composite& composite() { return material_.composite(); }
  [[nodiscard]] EnvironmentRecord& environment() { return composite().environments.back(); }
  [[nodiscard]] Material& material() { return material_; }
  [[nodiscard]] const Interpretation& interpretation() { return material_.interpretation(); }

 private:
  Material material_;
};

/// The text of the exception of this kind that the interpretation of the deck ends with; a text
/// that says so when it ends otherwise.
template <typename Exception>
std::string failureOf(const std::string& deck) {
  try {
    InterpretedDeck interpreted(deck);
    return "no exception";
  } catch (const Exception& failure) {
    return failure.what();
  } catch (const std::exception& failure) {
    return std::string("another exception: ") + failure.what();
  }
}

}  // namespace lamcraft

#endif
