// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_VERDICT_SUBJECT_H
#define LAMKIT_VERDICT_SUBJECT_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fit/Assessment.h"
#include "folder/MaterialFolder.h"
#include "material/Material.h"

namespace lamkit {

/// What a verdict looks at: the data of a folder, and what its deck copy asked for.
struct Subject {
  MaterialFolder folder;
  /// The deck copy as the program reads it, in base units and not solved; null without a copy that
  /// the program reads.
  std::unique_ptr<lamcraft::Material> material;
  std::string deckFault;  ///< why there is a copy and no deck; else empty
  /// What the engine knows about each environment's fit, in the order of the data; none where the
  /// deck has no such environment or the engine no model.
  std::vector<std::optional<kx::Assessment>> assessments;

  /// What the deck copy builds; null where there is no material.
  [[nodiscard]] const lamcraft::Composite* deck() const;
  /// The environment of the deck that an environment of the data was solved from; null when the
  /// deck has none of this number (counted from 0).
  [[nodiscard]] const lamcraft::EnvironmentRecord* deckEnvironment(std::size_t index) const;
};

/// Reads a folder and has the engine assess its fits. Throws FolderError.
[[nodiscard]] Subject subjectIn(const std::string& path);

}  // namespace lamkit

#endif
