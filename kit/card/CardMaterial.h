// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CARD_CARDMATERIAL_H
#define LAMKIT_CARD_CARDMATERIAL_H

#include <array>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "card/CardUnits.h"
#include "findings/Finding.h"
#include "folder/MaterialFolder.h"
#include "model/PropertyTables.h"

namespace lamkit {

/// A material at one temperature, in the units of the card.
struct CardEnvironment {
  std::size_t number = 1;    ///< of the environment in the folder, from 1
  double temperature = 0.0;  ///< [K]
  std::array<double, lamcraft::kPropertyCount> properties{};  ///< in the order of kPropertyRows
  /// In the order of kUniStrengthRows or kWeaveStrengthRows.
  std::array<double, lamcraft::kStrengthCount> strengths{};
  std::optional<std::array<double, lamcraft::kFractureCount>> fracture;  ///< as kFractureRows
  std::optional<std::array<double, lamcraft::kCohesiveCount>> cohesive;  ///< as kCohesiveRows

  [[nodiscard]] double operator[](const lamcraft::Property property) const noexcept {
    return properties[lamcraft::indexOf(property)];
  }
  [[nodiscard]] double operator[](const lamcraft::UniStrength strength) const noexcept {
    return strengths[static_cast<std::size_t>(strength)];
  }
};

/// What a card says: a material at one moisture, by rising temperature.
struct CardMaterial {
  const MaterialFolder* folder;       ///< where it comes from; not owned
  std::vector<Finding> findings;      ///< of the folder
  std::string name;                   ///< as solvers take it: at most 79 of A-Z, a-z, 0-9, _, -
  std::string moisture;               ///< "ambient", "dry" or "wet"
  CardUnits units;                    ///< of all numbers here
  double density = 0.0;               ///< 0 where the deck gives none
  double referenceTemperature = 0.0;  ///< [K], at which there are no thermal strains
  std::vector<CardEnvironment> temperatures;  ///< sorted, at least one

  [[nodiscard]] bool isWoven() const noexcept { return folder->data.isWoven(); }
};

/// Why there is no card: two environments of one temperature and moisture.
class AmbiguousCard : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Takes a card's data from a folder, which must outlive it. Without `moisture` the environments
/// must have one in common. Throws Failure when they have several, or not the one that is asked
/// for; AmbiguousCard.
[[nodiscard]] CardMaterial cardOf(const MaterialFolder& folder,
                                  const std::optional<std::string>& moisture,
                                  const CardUnits& units);

/// A name that every solver takes: a letter first, what is no letter, digit or minus a "_", 79
/// characters at most. "material" when nothing is left.
[[nodiscard]] std::string solverName(const std::string& name);

}  // namespace lamkit

#endif
