// SPDX-License-Identifier: BSD-3-Clause
#include "material/EnvironmentKeywords.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>

#include "abqinp/InputFileException.h"
#include "material/VariationReaders.h"

namespace lamcraft::keywords {

namespace {

template <std::size_t Count>
void readRequired(const abqinp::Keyword& keyword, std::array<VariableProperty, Count>& group) {
  for (std::size_t i = 0; i < Count; ++i) {
    group[i].setValue(keyword.requiredValue(0, i));
  }
}

/// Reads `count` properties of a group from one data line; absent values leave theirs as it is.
template <std::size_t Count>
void readOptional(const abqinp::Keyword& keyword,
                  const std::size_t line,
                  const std::size_t first,
                  const std::size_t count,
                  std::array<VariableProperty, Count>& group) {
  for (std::size_t i = 0; i < count; ++i) {
    VariableProperty& property = group[first + i];
    property.setValue(keyword.doubleValue(line, i, property.value()));
  }
}

bool wantsDefaults(const abqinp::Keyword& keyword) {
  return keyword.hasParameter("DEFAULT");
}

void copyDefaults(const PropertySet& defaults, PropertySet& set) {
  set = defaults;
  set.kind = PropertySet::Kind::systemDefaults;
}

Symmetry matrixLaw(const abqinp::Keyword& keyword) {
  if (!keyword.hasParameter("LAW")) {
    return Symmetry::transverse23;
  }
  const std::string name = keyword.parameterText("LAW");
  const auto* const row =
      std::find_if(kLaws.begin(), kLaws.end(), [&](const LawRow& r) { return r.name == name; });
  return row == kLaws.end() ? Symmetry::unset : row->symmetry;
}

}  // namespace

void onEnvironment(Interpretation& interpretation) {
  const abqinp::Keyword& keyword = interpretation.keyword();
  const std::string moisture = keyword.parameterText("MOISTURE");
  interpretation.composite().addEnvironment(moisture, keyword.parameterNumber("TEMPERATURE"));
}

void onStrengths(Interpretation& interpretation) {
  interpretation.installVariationReader(readStrengthVariation);
  readRequired(interpretation.keyword(), interpretation.lastEnvironment().strengths);
}

void onCriticalInvariants(Interpretation& interpretation) {
  interpretation.installVariationReader(readInvariantVariation);
  readRequired(interpretation.keyword(), interpretation.lastEnvironment().invariants);
}

void onLamina(Interpretation& interpretation) {
  interpretation.lastEnvironment().lamina.read(interpretation.keyword(),
                                               interpretation.composite().laminaSymmetry());
}

void onFiber(Interpretation& interpretation) {
  interpretation.installVariationReader(readFiberVariation);
  PropertySet& fiber = interpretation.lastEnvironment().fiber;
  if (wantsDefaults(interpretation.keyword())) {
    copyDefaults(interpretation.composite().system.fiber, fiber);
  } else {
    fiber.read(interpretation.keyword(), Symmetry::transverse23);
  }
}

void onMatrix(Interpretation& interpretation) {
  interpretation.installVariationReader(readMatrixVariation);
  PropertySet& matrix = interpretation.lastEnvironment().matrix;
  const Symmetry law = matrixLaw(interpretation.keyword());
  if (!wantsDefaults(interpretation.keyword())) {
    matrix.read(interpretation.keyword(), law);
    return;
  }
  copyDefaults(interpretation.composite().system.matrix, matrix);
  if (law == Symmetry::isotropic) {
    matrix.symmetry = law;
  }
}

void onFracture(Interpretation& interpretation) {
  if (interpretation.composite().isWoven()) {
    throw abqinp::InputFileException::misplacedKeyword(interpretation.keyword().name());
  }
  interpretation.installVariationReader(readFractureVariation);
  readOptional(
      interpretation.keyword(), 0, 0, kFractureCount, interpretation.lastEnvironment().fracture);
}

void onDelam(Interpretation& interpretation) {
  constexpr std::size_t kFirstLine = 8;
  interpretation.installVariationReader(readCohesiveVariation);
  auto& cohesive = interpretation.lastEnvironment().cohesive;
  readOptional(interpretation.keyword(), 0, 0, kFirstLine, cohesive);
  readOptional(interpretation.keyword(), 1, kFirstLine, kCohesiveCount - kFirstLine, cohesive);
}

void onLaminate(Interpretation& interpretation) {
  constexpr std::array<double, 5> kDefaults{1.0, 1.0, 0.0, 0.0, 0.0};
  const abqinp::Keyword& keyword = interpretation.keyword();
  LaminateEntry entry{keyword.parameterText("NAME"), {}};
  for (std::size_t i = 0; i < kDefaults.size(); ++i) {
    entry.coefficients[i] = keyword.doubleValue(0, i, kDefaults[i]);
  }
  interpretation.lastEnvironment().laminates.push_back(std::move(entry));
}

void onSnData(Interpretation& interpretation) {
  const abqinp::Keyword& keyword = interpretation.keyword();
  auto& records = interpretation.lastEnvironment().snRecords;
  for (std::size_t line = 0; line < keyword.lineCount(); ++line) {
    const abqinp::DataRow row = keyword.row(line);
    const auto value = [&row](const std::size_t column) { return row.doubleValue(column, 0.0); };
    if (std::abs(value(1)) < 1.0) {
      continue;
    }
    records.push_back({value(0), value(1), value(2), value(3), value(4)});
  }
}

void onNonlinearShear(Interpretation& interpretation) {
  const abqinp::Keyword& keyword = interpretation.keyword();
  EnvironmentRecord& environment = interpretation.lastEnvironment();
  for (std::size_t line = 0; line < keyword.lineCount(); ++line) {
    const abqinp::DataRow row = keyword.row(line);
    environment.shearStress.push_back(row.doubleValue(0, 0.0));
    environment.shearStrain.push_back(row.doubleValue(1, 0.0));
  }
}

}  // namespace lamcraft::keywords
