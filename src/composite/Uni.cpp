// SPDX-License-Identifier: BSD-3-Clause
#include "composite/Uni.h"

#include <algorithm>
#include <memory>
#include <ostream>

#include "composite/MicromechanicsCalls.h"
#include "console/Messages.h"
#include "console/Output.h"
#include "datafile/UniXML.h"

namespace lamcraft {

Uni::Uni(const std::string& fiberType, const std::string& matrixType) {
  add(std::make_unique<Constituent>(1, constituents::kMatrix, matrixType));
  add(std::make_unique<Constituent>(2, constituents::kFiber, fiberType));
}

bool Uni::validate(std::ostream& messages) const {
  const auto isSolvable = [](const EnvironmentRecord& environment) {
    return environment.strengths[static_cast<std::size_t>(UniStrength::s23)].value() > 0.0;
  };
  if (std::all_of(environments.begin(), environments.end(), isSolvable)) {
    return true;
  }
  messages << "Ultimate strengths must be greater than 0";
  return false;
}

bool Uni::write(const std::string& path, const DataFile file) const {
  UniXML document(path);
  return document.writeDocument(*this, file == DataFile::fatigue);
}

void Uni::printTitle() const {
  console::Output().message(console::kSolvingUnidirectional).text(materialName).endLine();
}

void Uni::fit(const std::string& /*folder*/, EnvironmentRecord& environment) const {
  micromechanics::setIsotropyFlag(environment);
  micromechanics::fitUnidirectional(fiberVolumeFraction(), environment);
}

micromechanics::PrefailOutcome Uni::reduceShear(const std::string& /*folder*/,
                                                EnvironmentRecord& environment) const {
  return micromechanics::reduceUnidirectionalShear(fiberVolumeFraction(), environment);
}

double Uni::fiberVolumeFraction() const {
  return get(constituents::kFiber).volumeFraction.value();
}

}  // namespace lamcraft
