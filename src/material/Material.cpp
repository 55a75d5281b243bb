#include "material/Material.h"

#include <utility>

#include "abqinp/InputFileException.h"

namespace lamcraft {

void Material::setResultsDirectory(std::string directory) {
  resultsDirectory_ = std::move(directory);
  hasResultsDirectory_ = true;
}

EnvironmentRecord& Material::lastEnvironment() const {
  if (composite_->environments.empty()) {
    throw abqinp::InputFileException::missingParent(keyword().name(), "ENVIRONMENT");
  }
  return composite_->environments.back();
}

}  // namespace lamcraft
