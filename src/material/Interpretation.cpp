#include <algorithm>
#include <string>

#include "abqinp/InputFileException.h"
#include "material/KeywordTable.h"
#include "material/Material.h"

namespace lamcraft {

void Material::interpret() {
  variationReader_ = nullptr;
  restart();
  bool isFirst = true;
  while (nextKeyword()) {
    if (keyword().isComment()) {
      continue;
    }
    if (isFirst && keyword().name() != kMaterialKeyword) {
      throw abqinp::InputFileException::missingParent(keyword().name(), kMaterialKeyword);
    }
    isFirst = false;
    dispatch();
  }
}

void Material::dispatch() {
  const std::string& name = keyword().name();
  const auto* const row = std::find_if(kKeywordRows.begin(),
                                       kKeywordRows.end(),
                                       [&](const KeywordRow& r) { return r.name == name; });
  if (row == kKeywordRows.end()) {
    throw abqinp::InputFileException::invalidKeyword(name);
  }
  const KeywordHandler handler = name == kVariationKeyword ? variationReader_ : row->handler;
  if (handler == nullptr) {
    throw abqinp::InputFileException::misplacedKeyword(name);
  }
  handler(*this);
}

}  // namespace lamcraft
