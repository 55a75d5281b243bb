#include "material/EnvironmentKeywords.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "abqinp/InputFileException.h"
#include "composite/Uni.h"
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

/// The symmetries that LAW names.
struct LawRow {
  std::string_view name;
  Symmetry symmetry;
};
constexpr std::array<LawRow, 4> kLaws{{
    {"ISO", Symmetry::isotropic},
    {"TRANS12", Symmetry::transverse12},
    {"TRANS23", Symmetry::transverse23},
    {"ORTHO", Symmetry::orthotropic},
}};

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

void onEnvironment(Material& material) {
  const abqinp::Keyword& keyword = material.keyword();
  const std::string moisture = keyword.parameterText("MOISTURE");
  material.composite().addEnvironment(moisture, keyword.parameterNumber("TEMPERATURE"));
}

void onStrengths(Material& material) {
  material.installVariationReader(readStrengthVariation);
  readRequired(material.keyword(), material.lastEnvironment().strengths);
}

void onCriticalInvariants(Material& material) {
  material.installVariationReader(readInvariantVariation);
  readRequired(material.keyword(), material.lastEnvironment().invariants);
}

void onLamina(Material& material) {
  material.lastEnvironment().lamina.read(material.keyword(), material.composite().laminaSymmetry());
}

void onFiber(Material& material) {
  material.installVariationReader(readFiberVariation);
  PropertySet& fiber = material.lastEnvironment().fiber;
  if (wantsDefaults(material.keyword())) {
    copyDefaults(material.composite().system.fiber, fiber);
  } else {
    fiber.read(material.keyword(), Symmetry::transverse23);
  }
}

void onMatrix(Material& material) {
  material.installVariationReader(readMatrixVariation);
  PropertySet& matrix = material.lastEnvironment().matrix;
  const Symmetry law = matrixLaw(material.keyword());
  if (!wantsDefaults(material.keyword())) {
    matrix.read(material.keyword(), law);
    return;
  }
  copyDefaults(material.composite().system.matrix, matrix);
  if (law == Symmetry::isotropic) {
    matrix.symmetry = law;
  }
}

void onFracture(Material& material) {
  if (dynamic_cast<const Uni*>(&material.composite()) == nullptr) {
    throw abqinp::InputFileException::misplacedKeyword(material.keyword().name());
  }
  material.installVariationReader(readFractureVariation);
  readOptional(material.keyword(), 0, 0, kFractureCount, material.lastEnvironment().fracture);
}

void onDelam(Material& material) {
  constexpr std::size_t kFirstLine = 8;
  material.installVariationReader(readCohesiveVariation);
  auto& cohesive = material.lastEnvironment().cohesive;
  readOptional(material.keyword(), 0, 0, kFirstLine, cohesive);
  readOptional(material.keyword(), 1, kFirstLine, kCohesiveCount - kFirstLine, cohesive);
}

void onLaminate(Material& material) {
  constexpr std::array<double, 5> kDefaults{1.0, 1.0, 0.0, 0.0, 0.0};
  const abqinp::Keyword& keyword = material.keyword();
  LaminateEntry entry{keyword.parameterText("NAME"), {}};
  for (std::size_t i = 0; i < kDefaults.size(); ++i) {
    entry.coefficients[i] = keyword.doubleValue(0, i, kDefaults[i]);
  }
  material.lastEnvironment().laminates.push_back(std::move(entry));
}

void onSnData(Material& material) {
  const abqinp::Keyword& keyword = material.keyword();
  auto& records = material.lastEnvironment().snRecords;
  for (std::size_t line = 0; line < keyword.lineCount(); ++line) {
    abqinp::DataRow row = keyword.row(line);
    const auto value = [&row](const std::size_t column) { return row.doubleValue(column, 0.0); };
    if (std::abs(value(1)) < 1.0) {
      continue;
    }
    records.push_back({value(0), value(1), value(2), value(3), value(4)});
  }
}

void onNonlinearShear(Material& material) {
  const abqinp::Keyword& keyword = material.keyword();
  EnvironmentRecord& environment = material.lastEnvironment();
  for (std::size_t line = 0; line < keyword.lineCount(); ++line) {
    abqinp::DataRow row = keyword.row(line);
    environment.shearStress.push_back(row.doubleValue(0, 0.0));
    environment.shearStrain.push_back(row.doubleValue(1, 0.0));
  }
}

}  // namespace lamcraft::keywords
