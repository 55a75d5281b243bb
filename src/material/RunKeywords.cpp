// SPDX-License-Identifier: BSD-3-Clause
#include "material/RunKeywords.h"

#include <cstddef>

#include "composite/MicromechanicsCalls.h"

namespace lamcraft::keywords {

void onSolve(Interpretation& interpretation) {
  const abqinp::Keyword& keyword = interpretation.keyword();
  interpretation.materialsDirectory = keyword.parameterText("MATDIR");
  auto& maximumErrors = interpretation.composite().maximumErrors;
  for (std::size_t i = 0; i < maximumErrors.size(); ++i) {
    maximumErrors[i] = keyword.doubleValue(0, i, maximumErrors[i]);
  }
  micromechanics::setMaximumErrors(interpretation.composite());
}

void onFatigue(Interpretation& /*interpretation*/) {}

}  // namespace lamcraft::keywords
