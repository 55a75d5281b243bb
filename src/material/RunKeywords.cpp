#include "material/RunKeywords.h"

#include <cstddef>

#include "composite/MicromechanicsCalls.h"

namespace lamcraft::keywords {

void onSolve(Material& material) {
  const abqinp::Keyword& keyword = material.keyword();
  material.materialsDirectory = keyword.parameterText("MATDIR");
  auto& maximumErrors = material.composite().maximumErrors;
  for (std::size_t i = 0; i < maximumErrors.size(); ++i) {
    maximumErrors[i] = keyword.doubleValue(0, i, maximumErrors[i]);
  }
  micromechanics::setMaximumErrors(material.composite());
}

void onFatigue(Material& /*material*/) {}

}  // namespace lamcraft::keywords
