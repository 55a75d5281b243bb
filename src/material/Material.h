// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_MATERIAL_H
#define LAMCRAFT_MATERIAL_MATERIAL_H

#include <optional>
#include <string>

#include "abqinp/InputFile.h"
#include "material/Interpretation.h"
#include "material/TargetFolder.h"

namespace lamcraft {

/// What one run of the program is about: the deck, what its keywords mean, and where the material
/// folder goes.
class Material : public abqinp::InputFile {
 public:
  /// Makes directory the target folder, instead of one named after the material in MATDIR. An
  /// empty directory counts as given.
  void setResultsDirectory(std::string directory);

  /// Interprets all keywords of the deck in order, anew. Throws what the interpretation of one
  /// does.
  void interpret();

  /// What the keywords mean, as far as they are interpreted.
  [[nodiscard]] const Interpretation& interpretation() const noexcept { return interpretation_; }
  [[nodiscard]] Composite& composite() { return interpretation_.composite(); }
  [[nodiscard]] const Composite& composite() const { return interpretation_.composite(); }

  /// Turns the deck that was read into a material folder: interprets the keywords, solves, writes.
  /// Refusals are printed and end the run normally. Throws what the interpretation of a keyword
  /// throws, LamcraftException for a material that cannot be derived, and std::runtime_error for a
  /// deck copy that cannot be written.
  void create();

 private:
  [[nodiscard]] TargetFolder targetFolder() const;

  Interpretation interpretation_;
  std::optional<std::string> resultsDirectory_;
};

}  // namespace lamcraft

#endif
