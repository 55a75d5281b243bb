#ifndef LAMCRAFT_MATERIAL_MATERIAL_H
#define LAMCRAFT_MATERIAL_MATERIAL_H

#include <memory>
#include <string>
#include <utility>

#include "abqinp/InputFile.h"
#include "abqinp/Keyword.h"
#include "model/Composite.h"
#include "platform/StagedFile.h"

namespace lamcraft {

class Material;

/// What a keyword does: reads the material's current keyword into its composite.
using KeywordHandler = void (*)(Material&);

/// What one run of the program is about: the deck, the settings that steer the creation of the
/// material folder, and the composite that the keywords build.
class Material : public abqinp::InputFile {
 public:
  /// Makes directory the target folder, instead of one named after the material in MATDIR. An
  /// empty directory counts as given.
  void setResultsDirectory(std::string directory);

  /// Turns the deck that was read into a material folder: interprets the keywords, solves, writes.
  /// Refusals are printed and end the run normally. Throws abqinp::InputFileException for a
  /// misplaced or unknown keyword, LamcraftException for a material that cannot be derived, and
  /// other standard exceptions for values that cannot be read or files that cannot be opened.
  void create();

  /// Reads all keywords in deck order into the composite.
  void interpret();

  /// The keyword that the running handler reads.
  [[nodiscard]] const abqinp::Keyword& keyword() const { return *currentKeyword(); }

  /// The model that the keywords fill; there is one from MATERIAL on.
  [[nodiscard]] Composite& composite() const { return *composite_; }

  /// Replaces the composite, and all that was read into the former one.
  void setComposite(std::unique_ptr<Composite> composite) { composite_ = std::move(composite); }

  /// The environment that per-environment keywords fill. Throws the missing-parent exception of
  /// the current keyword when there is none yet.
  [[nodiscard]] EnvironmentRecord& lastEnvironment() const;

  /// Makes reader what the next VARIATION keywords run.
  void installVariationReader(KeywordHandler reader) { variationReader_ = reader; }

  bool overwrite = false;          ///< OVERWRITE of MATERIAL
  std::string materialsDirectory;  ///< MATDIR of SOLVE

 private:
  void requireComposite() const;
  [[nodiscard]] std::string targetFolder() const;
  [[nodiscard]] bool mayWrite(const std::string& folder) const;
  void stageDeck(platform::StagedFile& file) const;
  void stageData(platform::StagedFile& file, DataFile kind) const;
  void writeFiles(const std::string& folder) const;
  void dispatch();

  KeywordHandler variationReader_ = nullptr;
  std::unique_ptr<Composite> composite_;
  std::string resultsDirectory_;
  bool hasResultsDirectory_ = false;
};

}  // namespace lamcraft

#endif
