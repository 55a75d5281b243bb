// SPDX-License-Identifier: BSD-3-Clause
#include "verdict/Subject.h"

#include <exception>
#include <utility>

#include "composite/UnitConversion.h"
#include "fit/UnidirectionalFit.h"
#include "model/Constituent.h"
#include "parallel/ThreadPool.h"
#include "weave/fit/WeaveFit.h"

namespace lamkit {

namespace {

namespace constituents = lamcraft::constituents;

void readDeck(Subject& subject) {
  try {
    auto material = std::make_unique<lamcraft::Material>();
    material->read(*subject.folder.deckCopy);
    material->interpret();
    if (!material->interpretation().hasComposite()) {
      subject.deckFault = "there is no keyword in it";
      return;
    }
    lamcraft::convertToBaseUnits(material->composite());
    subject.material = std::move(material);
  } catch (const std::exception& error) {
    subject.deckFault = error.what();
  }
}

double fractionOf(const lamcraft::Composite& deck, const char* const name) {
  return deck.get(name).volumeFraction.value();
}

kx::Properties propertiesOf(const PropertyValues& set) {
  return kx::propertiesFrom(valuesOf(set).data());
}

kx::WeaveDescription weaveOf(const lamcraft::Composite& deck) {
  kx::WeaveDescription weave;
  weave.harness = deck.harness();
  weave.fillFraction = fractionOf(deck, constituents::kFill);
  weave.warpFraction = fractionOf(deck, constituents::kWarp);
  weave.fiberFraction = fractionOf(deck, constituents::kFillFiber);
  return weave;
}

/// Assesses the environments of one material; a weave's cells are kept from one to the next.
class Assessor {
 public:
  explicit Assessor(const lamcraft::Composite& deck) : deck_(deck) {}

  std::optional<kx::Assessment> assess(const lamcraft::EnvironmentRecord& asked,
                                       const EnvironmentData& answered) {
    const kx::FittedMaterials given{kx::propertiesFrom(asked.lamina.working()),
                                    kx::propertiesFrom(asked.fiber.working()),
                                    kx::propertiesFrom(asked.matrix.working())};
    const kx::FittedMaterials fitted{propertiesOf(answered.lamina()),
                                     propertiesOf(answered.fiber()),
                                     propertiesOf(answered.matrix())};
    kx::FitOptions options;
    options.isotropicMatrix = asked.matrix.symmetry == lamcraft::Symmetry::isotropic;
    if (deck_.harness() == 0) {
      return kx::assess(fractionOf(deck_, constituents::kFiber), given, fitted, options);
    }
    if (!weaves_) {
      weaves_.emplace(kx::ThreadPool::defaultThreads());
    }
    return kx::assess(*weaves_, weaveOf(deck_), given, fitted, options);
  }

 private:
  const lamcraft::Composite& deck_;
  std::optional<kx::WeaveModel> weaves_;
};

bool isSameKind(const Subject& subject) {
  return subject.deck() != nullptr &&
         (subject.deck()->harness() > 0) == subject.folder.data.isWoven();
}

void assessFits(Subject& subject) {
  const auto& environments = subject.folder.data.environments;
  subject.assessments.resize(environments.size());
  if (!isSameKind(subject)) {
    return;
  }
  Assessor assessor(*subject.deck());
  for (std::size_t i = 0; i < environments.size(); ++i) {
    const lamcraft::EnvironmentRecord* const asked = subject.deckEnvironment(i);
    if (asked != nullptr) {
      subject.assessments[i] = assessor.assess(*asked, environments[i]);
    }
  }
}

}  // namespace

const lamcraft::Composite* Subject::deck() const {
  return material == nullptr ? nullptr : &material->composite();
}

const lamcraft::EnvironmentRecord* Subject::deckEnvironment(const std::size_t index) const {
  const lamcraft::Composite* const composite = deck();
  return composite != nullptr && index < composite->environments.size()
             ? &composite->environments[index]
             : nullptr;
}

Subject subjectIn(const std::string& path) {
  Subject subject;
  subject.folder = readFolder(path);
  if (subject.folder.deckCopy) {
    readDeck(subject);
  }
  assessFits(subject);
  return subject;
}

}  // namespace lamkit
