// SPDX-License-Identifier: BSD-3-Clause
#include "material/Interpretation.h"

#include <algorithm>

#include "abqinp/InputFileException.h"
#include "material/KeywordTable.h"

namespace lamcraft {

namespace {

KeywordPresence presenceIn(const abqinp::InputFile& deck) {
  const auto has = [&](const char* const name) { return deck.countKeywords(name) > 0; };
  return {has(kVariationKeyword), has("FRACTURE"), has("DELAM"), has("SNDATA"), has("NLSHEAR")};
}

const KeywordRow& rowOf(const std::string& name) {
  const auto* const row = std::find_if(kKeywordRows.begin(),
                                       kKeywordRows.end(),
                                       [&](const KeywordRow& r) { return r.name == name; });
  if (row == kKeywordRows.end()) {
    throw abqinp::InputFileException::invalidKeyword(name);
  }
  return *row;
}

}  // namespace

Interpretation::Interpretation(const abqinp::InputFile& deck) : presence_(presenceIn(deck)) {}

void Interpretation::interpret(const abqinp::Keyword& keyword) {
  if (keyword.isComment()) {
    return;
  }
  const std::string& name = keyword.name();
  if (!hasComposite() && name != kMaterialKeyword) {
    throw abqinp::InputFileException::missingParent(name, kMaterialKeyword);
  }
  const KeywordHandler handler = name == kVariationKeyword ? variationReader_ : rowOf(name).handler;
  if (handler == nullptr) {
    throw abqinp::InputFileException::misplacedKeyword(name);
  }
  keyword_ = &keyword;
  handler(*this);
}

void Interpretation::setComposite(std::unique_ptr<Composite> composite) {
  composite_ = std::move(composite);
  composite_->presence = presence_;
}

EnvironmentRecord& Interpretation::lastEnvironment() {
  if (composite_->environments.empty()) {
    throw abqinp::InputFileException::missingParent(keyword_->name(), "ENVIRONMENT");
  }
  return composite_->environments.back();
}

}  // namespace lamcraft
