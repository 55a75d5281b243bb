// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_INTERPRETATION_H
#define LAMCRAFT_MATERIAL_INTERPRETATION_H

#include <memory>
#include <string>
#include <utility>

#include "abqinp/InputFile.h"
#include "abqinp/Keyword.h"
#include "model/Composite.h"

namespace lamcraft {

class Interpretation;

/// What a keyword does: reads the current keyword into the composite or the settings of the run.
using KeywordHandler = void (*)(Interpretation&);

/// What the keywords of a deck mean. It is fed with them one at a time, in deck order, and builds
/// the composite; no file is read or written. MATERIAL and SOLVE call the micromechanics library.
class Interpretation {
 public:
  /// Of no deck; none of the optional keywords is present.
  Interpretation() = default;
  /// Notes which optional keywords stand anywhere in the deck, which must have been read.
  explicit Interpretation(const abqinp::InputFile& deck);

  /// Interprets the next keyword; comments are passed over. The first one must be MATERIAL. Throws
  /// abqinp::InputFileException for a misplaced or unknown keyword, LamcraftException for a
  /// material that cannot be, and std::out_of_range or std::invalid_argument for parameters and
  /// values that are missing or cannot be read.
  void interpret(const abqinp::Keyword& keyword);

  /// Whether there has been a MATERIAL; the composite exists from then on.
  [[nodiscard]] bool hasComposite() const noexcept { return composite_ != nullptr; }
  [[nodiscard]] Composite& composite() { return *composite_; }
  [[nodiscard]] const Composite& composite() const { return *composite_; }

  bool overwrite = false;          ///< OVERWRITE of MATERIAL
  std::string materialsDirectory;  ///< MATDIR of SOLVE

  // For the handlers:

  /// The keyword that the running handler reads.
  [[nodiscard]] const abqinp::Keyword& keyword() const { return *keyword_; }

  /// Replaces the composite, and all that was read into the former one.
  void setComposite(std::unique_ptr<Composite> composite);

  /// The environment that per-environment keywords fill. Throws the missing-parent exception of
  /// the current keyword when there is none yet.
  [[nodiscard]] EnvironmentRecord& lastEnvironment();

  /// Makes reader what the next VARIATION keywords run.
  void installVariationReader(KeywordHandler reader) { variationReader_ = reader; }

 private:
  KeywordPresence presence_;
  const abqinp::Keyword* keyword_ = nullptr;  // while a handler runs
  KeywordHandler variationReader_ = nullptr;
  std::unique_ptr<Composite> composite_;
};

}  // namespace lamcraft

#endif
