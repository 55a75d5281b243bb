// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CARD_CARDFORMATS_H
#define LAMKIT_CARD_CARDFORMATS_H

#include <array>
#include <string>

#include "card/CardMaterial.h"

namespace lamkit {

/// CalculiX: engineering constants, expansion and density over temperature.
[[nodiscard]] std::string calculixCard(const CardMaterial& card);

/// Abaqus: the same; of a ply with all that it takes Hashin's damage, and a cohesive material.
[[nodiscard]] std::string abaqusCard(const CardMaterial& card);

/// Nastran: MAT8 (material 1, shells) and MAT9 (material 2, solids) in wide fields; over several
/// temperatures MATT8 and MATT9 with TABLEM1.
[[nodiscard]] std::string nastranCard(const CardMaterial& card);

/// Code_Aster: ELAS_ORTH, over several temperatures ELAS_ORTH_FO.
[[nodiscard]] std::string asterCard(const CardMaterial& card);

/// JSON: everything that the folder holds of this moisture; docs/card.schema.json.
[[nodiscard]] std::string jsonCard(const CardMaterial& card);

/// A solver that cards are for.
struct CardFormat {
  const char* name;  ///< as --for has it
  std::string (*write)(const CardMaterial& card);
};

inline constexpr std::array<CardFormat, 5> kCardFormats{{
    {"calculix", calculixCard},
    {"abaqus", abaqusCard},
    {"nastran", nastranCard},
    {"aster", asterCard},
    {"json", jsonCard},
}};

}  // namespace lamkit

#endif
