// SPDX-License-Identifier: BSD-3-Clause
#include "verdict/Verdict.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "check/Check.h"
#include "command/Context.h"
#include "verdict/Rule.h"

namespace lamkit {

namespace {

constexpr const char* kNoEnvironment = "no-environment";

using RuleGroup = Findings (*)(const Subject& subject);

/// In the order in which an engineer asks.
constexpr std::array<RuleGroup, 6> kRuleGroups{
    staleRules, setRules, fitRules, constituentRules, shearRules, fatigueRules};

void append(Findings& findings, Findings more) {
  std::move(more.begin(), more.end(), std::back_inserter(findings));
}

/// Text has no other place for the environment.
void nameEnvironments(Findings& findings) {
  for (Finding& finding : findings) {
    if (finding.environment > 0) {
      finding.message.insert(0, "environment " + std::to_string(finding.environment) + ": ");
    }
  }
}

Findings judge(const Subject& subject) {
  if (subject.folder.data.environments.empty()) {
    return {findingAbout(kNoEnvironment,
                         Severity::error,
                         "the data hold no environment, hence no material: give the deck an "
                         "ENVIRONMENT, and look at its line ends")};
  }
  Findings findings;
  for (const RuleGroup rules : kRuleGroups) {
    append(findings, rules(subject));
  }
  if (subject.folder.data.environments.size() > 1) {
    nameEnvironments(findings);
  }
  return findings;
}

Finding unreadable(const FolderError& error) {
  if (error.fault() == FolderFault::noData) {
    return findingAbout("no-data",
                        Severity::error,
                        "there is no mdata.xml in this folder: the run was refused or did not come "
                        "to its end; solve again and look at the console");
  }
  return findingAbout("unreadable", Severity::error, std::string(error.what()) + ": solve again");
}

/// Whether check has found in the deck copy already that there is no environment.
bool isSaid(const Findings& findings, const std::string& rule) {
  return rule == kNoEnvironment &&
         std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
           return finding.rule == kNoEnvironment;
         });
}

FileFindings judge(const std::string& path, const bool withDeckRules) {
  FileFindings result{path, {}};
  try {
    const Subject subject = subjectIn(path);
    if (withDeckRules && subject.folder.deckCopy) {
      append(result.findings, checkDeck(*subject.folder.deckCopy, {false}).findings);
    }
    for (Finding& finding : judge(subject)) {
      if (!isSaid(result.findings, finding.rule)) {
        result.findings.push_back(std::move(finding));
      }
    }
  } catch (const FolderError& error) {
    if (error.fault() == FolderFault::missing) {
      throw Failure(path, "there is no such folder");
    }
    result.findings.push_back(unreadable(error));
  }
  for (Finding& finding : result.findings) {
    finding.file = path;
  }
  return result;
}

}  // namespace

FileFindings judgeFolder(const std::string& path) {
  return judge(path, true);
}

FileFindings judgeMaterial(const std::string& path) {
  return judge(path, false);
}

}  // namespace lamkit
