// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>
#include <string>

#include "check/Wording.h"
#include "model/Constituent.h"
#include "verdict/Amount.h"
#include "verdict/Rule.h"

namespace lamkit {

namespace {

namespace constituents = lamcraft::constituents;

/// Numbers go through 15 digits and a conversion of units.
constexpr double kRounding = 1e-9;

bool isSame(const double a, const double b) {
  return std::abs(a - b) <= kRounding * std::abs(b);
}

/// A deck copy and data that do not belong together.
void disagree(const std::string& what,
              const std::string& inData,
              const std::string& inDeck,
              Findings& findings) {
  Finding finding = findingAbout("stale",
                                 Severity::error,
                                 "the data have " + what + " " + inData + ", the deck copy " +
                                     inDeck + ": they are not of one run; solve again");
  finding.value = inData;
  finding.expected = inDeck;
  findings.push_back(std::move(finding));
}

void compareFractions(const MaterialData& data,
                      const lamcraft::Composite& deck,
                      Findings& findings) {
  for (const char* const name :
       {constituents::kFiber, constituents::kFillFiber, constituents::kFill, constituents::kWarp}) {
    const ConstituentData* const found = data.find(name);
    const lamcraft::Constituent* const asked = deck.find(name);
    if (found == nullptr || asked == nullptr) {
      continue;
    }
    const double inData = found->volumeFraction.value();
    const double inDeck = asked->volumeFraction.value();
    if (!isSame(inData, inDeck)) {
      disagree(
          std::string("a fraction of ") + name + " of", shown(inData), shown(inDeck), findings);
    }
  }
}

void compareEnvironments(const Subject& subject, Findings& findings) {
  const auto& environments = subject.folder.data.environments;
  const auto& asked = subject.deck()->environments;
  if (environments.size() != asked.size()) {
    disagree("a number of environments of",
             std::to_string(environments.size()),
             std::to_string(asked.size()),
             findings);
    return;
  }
  for (std::size_t i = 0; i < environments.size(); ++i) {
    const EnvironmentData& data = environments[i];
    const std::string place = "in environment " + std::to_string(i + 1) + " the ";
    if (!isSame(data.temperature, asked[i].temperature)) {
      disagree(place + "temperature",
               shown(data.temperature) + " K",
               shown(asked[i].temperature) + " K",
               findings);
    }
    if (data.moisture != asked[i].moisture->name) {
      disagree(place + "moisture", data.moisture, asked[i].moisture->name, findings);
    }
  }
}

void compareWithDeck(const Subject& subject, Findings& findings) {
  const MaterialData& data = subject.folder.data;
  const lamcraft::Composite& deck = *subject.deck();
  if (data.name != deck.materialName) {
    disagree("the name", "\"" + data.name + "\"", "\"" + deck.materialName + "\"", findings);
  }
  if (data.harness.value_or(0) != deck.harness()) {
    disagree("the harness number",
             std::to_string(data.harness.value_or(0)),
             std::to_string(deck.harness()),
             findings);
    return;
  }
  compareFractions(data, deck, findings);
  compareEnvironments(subject, findings);
}

/// A run without S-N data leaves an old fdata.xml where it is.
void lookForOldFatigueData(const Subject& subject, Findings& findings) {
  const auto& fatigue = subject.folder.fatigueData;
  if (!fatigue) {
    return;
  }
  const lamcraft::Composite* const deck = subject.deck();
  const bool isWanted = deck == nullptr || deck->presence.snData;
  const MaterialData& data = subject.folder.data;
  if (!isWanted || fatigue->name != data.name ||
      fatigue->environments.size() != data.environments.size()) {
    findings.push_back(findingAbout("stale",
                                    Severity::warning,
                                    "fdata.xml is not of the run that wrote mdata.xml: an older "
                                    "run left it; remove it or solve again"));
  }
}

}  // namespace

Findings staleRules(const Subject& subject) {
  Findings findings;
  if (subject.deck() != nullptr) {
    compareWithDeck(subject, findings);
  } else if (subject.folder.deckCopy) {
    findings.push_back(findingAbout("stale",
                                    Severity::error,
                                    "the program does not read the deck copy (" +
                                        subject.deckFault +
                                        "), so it is not what the data were made of: solve again"));
  } else {
    findings.push_back(findingAbout("stale",
                                    Severity::note,
                                    "there is no deck copy (input.qdk): fits cannot be compared "
                                    "with what was asked for"));
  }
  lookForOldFatigueData(subject, findings);
  return findings;
}

}  // namespace lamkit
