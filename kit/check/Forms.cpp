// SPDX-License-Identifier: BSD-3-Clause
#include "check/Forms.h"

#include <algorithm>
#include <array>
#include <map>

#include "material/KeywordTable.h"
#include "material/MaterialSystems.h"
#include "model/EnvironmentRecord.h"
#include "model/SymmetryRule.h"
#include "variation/VariableProperty.h"

namespace lamkit {

using abqinp::Keyword;
using lamcraft::Property;
using lamcraft::Symmetry;

namespace {

template <class Rows, class NameOf>
std::vector<std::string> namesOf(const Rows& rows, const NameOf nameOf) {
  std::vector<std::string> names;
  names.reserve(rows.size());
  for (const auto& row : rows) {
    names.emplace_back(nameOf(row));
  }
  return names;
}

std::vector<std::string> labelsOf(const Symmetry symmetry) {
  std::vector<std::string> labels;
  for (const Property property : givenProperties(symmetry)) {
    labels.emplace_back(lamcraft::kPropertyRows[indexOf(property)].label);
  }
  return labels;
}

template <std::size_t Count>
std::vector<std::string> tagsOf(const std::array<lamcraft::GroupRow, Count>& rows) {
  return namesOf(rows, [](const lamcraft::GroupRow& row) { return row.tag; });
}

/// Strengths by the names of VARIATION, which are those of the deck; of a weave the knees have
/// none.
std::vector<std::string> strengthNames(const bool isWoven) {
  std::vector<std::string> names;
  for (const lamcraft::GroupRow& row :
       isWoven ? lamcraft::kWeaveStrengthRows : lamcraft::kUniStrengthRows) {
    names.emplace_back(row.deckName != nullptr ? row.deckName : row.tag);
  }
  return names;
}

std::vector<std::vector<std::string>> cohesiveLines() {
  constexpr std::ptrdiff_t kFirstLine = 8;
  const std::vector<std::string> tags = tagsOf(lamcraft::kCohesiveRows);
  return {{tags.begin(), tags.begin() + kFirstLine}, {tags.begin() + kFirstLine, tags.end()}};
}

/// The range, then the distributions.
std::vector<std::vector<std::string>> scatterLines() {
  std::vector<std::vector<std::string>> lines{{"min", "max"}};
  const lamcraft::VariableProperty layout;
  for (const lamcraft::Distribution* const distribution : layout.distributions()) {
    lines.emplace_back();
    for (std::size_t i = 0; i < distribution->parameterCount(); ++i) {
      lines.back().emplace_back(distribution->parameterName(i));
    }
  }
  return lines;
}

KeywordForm constituentForm(const Keyword& keyword, const Symmetry symmetry) {
  KeywordForm form{{{"DEFAULT"}}, {}, true};
  if (!keyword.hasParameter("DEFAULT")) {
    form.lines = {labelsOf(symmetry)};
  }
  return form;
}

KeywordForm matrixForm(const Keyword& keyword) {
  KeywordForm form = constituentForm(keyword, matrixSymmetry(keyword));
  form.parameters.push_back({"LAW"});
  return form;
}

KeywordForm required(std::vector<std::string> names) {
  return {{}, {std::move(names)}, true};
}

KeywordForm tableOf(std::vector<std::string> names) {
  KeywordForm form{{}, {std::move(names)}};
  form.isTable = true;
  return form;
}

KeywordForm zerosWhereMissing(std::vector<std::vector<std::string>> lines) {
  KeywordForm form{{}, std::move(lines)};
  form.leavesZeros = true;
  return form;
}

using MakeForm = KeywordForm (*)(const Keyword&, bool isWoven);

/// The rest of the deck's language: what the program's handlers read, by keyword.
const std::map<std::string, MakeForm>& forms() {
  static const std::map<std::string, MakeForm> kForms{
      {"MATERIAL",
       [](const Keyword&, bool) {
         return KeywordForm{{{"TYPE", true}, {"SYSTEM", true}, {"NAME", true}, {"OVERWRITE"}},
                            {{"unit system", "density", "ply thickness", "reference temperature"}}};
       }},
      {"FVF", [](const Keyword&, bool) { return required({"fiber volume fraction"}); }},
      {"BVF",
       [](const Keyword&, bool) {
         return required({"fill", "warp"});
       }},
      {"DEGRADATION",
       [](const Keyword&, bool) {
         return KeywordForm{{}, {{"matrix", "fiber"}}};
       }},
      {"ENVIRONMENT",
       [](const Keyword&, bool) {
         return KeywordForm{{{"MOISTURE", true}, {"TEMPERATURE", true}}, {}};
       }},
      {"STRENGTHS",
       [](const Keyword&, const bool isWoven) { return required(strengthNames(isWoven)); }},
      {"CRITICALINVARIANTS",
       [](const Keyword&, bool) { return required(tagsOf(lamcraft::kInvariantRows)); }},
      {"LAMINA",
       [](const Keyword&, const bool isWoven) {
         return required(labelsOf(isWoven ? Symmetry::orthotropic : Symmetry::transverse23));
       }},
      {"FIBER",
       [](const Keyword& keyword, bool) {
         return constituentForm(keyword, Symmetry::transverse23);
       }},
      {"MATRIX", [](const Keyword& keyword, bool) { return matrixForm(keyword); }},
      {"FRACTURE",
       [](const Keyword&, bool) { return zerosWhereMissing({tagsOf(lamcraft::kFractureRows)}); }},
      {"DELAM", [](const Keyword&, bool) { return zerosWhereMissing(cohesiveLines()); }},
      {"LAMINATE",
       [](const Keyword&, bool) {
         return KeywordForm{{{"NAME", true}}, {{"c1", "c2", "c3", "c4", "c5"}}};
       }},
      {"FATIGUE", [](const Keyword&, bool) { return KeywordForm{}; }},
      {"SNDATA",
       [](const Keyword&, bool) {
         return tableOf({"stress", "life", "frequency", "angle", "R"});
       }},
      {"NLSHEAR",
       [](const Keyword&, bool) {
         return tableOf({"stress", "strain"});
       }},
      {"SOLVE",
       [](const Keyword&, bool) {
         return KeywordForm{{{"MATDIR", true}}, {{"mechanical error", "thermal error"}}};
       }},
      {"VARIATION",
       [](const Keyword&, bool) {
         return KeywordForm{{{"PROP", true}}, scatterLines()};
       }},
  };
  return kForms;
}

}  // namespace

const std::vector<std::string>& keywordNames() {
  static const std::vector<std::string> kNames =
      namesOf(lamcraft::kKeywordRows, [](const auto& row) { return row.name; });
  return kNames;
}

KeywordForm formOf(const Keyword& keyword, const bool isWoven) {
  const auto form = forms().find(keyword.name());
  return form == forms().end() ? KeywordForm{} : form->second(keyword, isWoven);
}

std::vector<std::string> laws() {
  return namesOf(lamcraft::keywords::kLaws, [](const auto& row) { return row.name; });
}

Symmetry matrixSymmetry(const Keyword& keyword) {
  if (!keyword.hasParameter("LAW")) {
    return Symmetry::transverse23;
  }
  const auto& rows = lamcraft::keywords::kLaws;
  const std::string name = keyword.parameterText("LAW");
  const auto* const row =
      std::find_if(rows.begin(), rows.end(), [&](const auto& r) { return r.name == name; });
  return row == rows.end() ? Symmetry::orthotropic : row->symmetry;
}

std::vector<std::string> materialTypes() {
  return namesOf(lamcraft::keywords::kTypes, [](const auto& row) { return row.name; });
}

std::vector<std::string> materialSystems() {
  return namesOf(lamcraft::kMaterialSystems, [](const auto& name) { return name; });
}

std::vector<std::string> moistures() {
  return namesOf(lamcraft::kMoistureConditions, [](const auto& row) { return row.deckText; });
}

std::vector<Property> givenProperties(const Symmetry symmetry) {
  std::vector<Property> properties;
  const lamcraft::SymmetryRule& rule = lamcraft::symmetryRule(symmetry);
  for (std::size_t i = 0; i < lamcraft::kPropertyCount; ++i) {
    if (rule.sources[i].kind == lamcraft::PropertySource::Kind::given) {
      properties.push_back(static_cast<Property>(i));
    }
  }
  return properties;
}

}  // namespace lamkit
