#include "material/Material.h"

#include <utility>

namespace lamcraft {

void Material::setResultsDirectory(std::string directory) {
  resultsDirectory_ = std::move(directory);
}

void Material::interpret() {
  interpretation_ = Interpretation(*this);
  restart();
  while (nextKeyword()) {
    interpretation_.interpret(*currentKeyword());
  }
}

}  // namespace lamcraft
