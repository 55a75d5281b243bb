// SPDX-License-Identifier: BSD-3-Clause
#include "check/DeckReader.h"

#include <algorithm>
#include <array>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>

#include "abqinp/InputFileException.h"
#include "abqinp/Number.h"
#include "check/FormRules.h"
#include "check/Forms.h"
#include "check/NumberText.h"
#include "check/ScatterRules.h"
#include "check/Wording.h"
#include "model/LamcraftException.h"

namespace lamkit {

using abqinp::Keyword;

namespace {

/// Stands in for an ENVIRONMENT that the program refused.
constexpr std::string_view kAnyEnvironment = "*ENVIRONMENT,MOISTURE=AMBIENT,TEMPERATURE=296";

constexpr std::array<std::string_view, 8> kVariedKeywords{
    "MATERIAL", "FVF", "FIBER", "MATRIX", "STRENGTHS", "CRITICALINVARIANTS", "FRACTURE", "DELAM"};
constexpr std::array<std::string_view, 6> kGeneralKeywords{
    "MATERIAL", "FVF", "BVF", "DEGRADATION", "SOLVE", "FATIGUE"};
/// Keywords of an environment that add to what is there.
constexpr std::array<std::string_view, 4> kAddingKeywords{
    "SNDATA", "NLSHEAR", "LAMINATE", "VARIATION"};

template <std::size_t Count>
bool isOneOf(const std::array<std::string_view, Count>& names, const std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

class DeckWalk {
 public:
  DeckWalk(const std::vector<Keyword>& keywords, Report& report)
      : keywords_(keywords), report_(report) {}

  Reading run() {
    for (const Keyword& keyword : keywords_) {
      if (!keyword.isComment()) {
        read(keyword);
      }
    }
    if (!reading_.interpretation.hasComposite()) {
      report_.add("missing-parent",
                  Severity::error,
                  {},
                  "the deck has no *MATERIAL, with which it must begin: add it");
      standInMaterial(nullptr);
    }
    return std::move(reading_);
  }

 private:
  void read(const Keyword& keyword) {
    const std::vector<std::string>& names = keywordNames();
    if (std::find(names.begin(), names.end(), keyword.name()) == names.end()) {
      addUnknown(keyword, names);
      return;
    }
    requireParents(keyword);
    if (isMisplaced(keyword)) {
      return;
    }
    noteBefore(keyword);
    const bool isMeant =
        checkForm(keyword, isWoven(keyword), isGeneral(keyword) ? 0 : environmentCount(), report_);
    if (!isMeant) {
      reading_.doubtful.insert(&keyword);
    }
    interpret(keyword);
    noteAfter(keyword);
  }

  [[nodiscard]] std::size_t environmentCount() const { return reading_.environments.size(); }

  [[nodiscard]] bool isWoven(const Keyword& keyword) const {
    return keyword.name() != "MATERIAL" && reading_.composite().isWoven();
  }

  static bool isGeneral(const Keyword& keyword) {
    return isOneOf(kGeneralKeywords, keyword.name());
  }

  void addUnknown(const Keyword& keyword, const std::vector<std::string>& names) {
    const std::size_t stars = keyword.name().find("**");
    const std::string near = nearest(keyword.name().substr(0, stars), names);
    std::string message = keyword.name() + " is no keyword";
    if (stars != std::string::npos) {
      message += ": put the comment behind it on a line of its own";
    } else {
      message += near.empty() ? ": correct or remove it" : ": was " + near + " meant?";
    }
    report_.add("unknown-keyword", Severity::error, spotOf(keyword), message);
  }

  /// The material or the environment that a keyword belongs to; without one it gets a stand-in.
  void requireParents(const Keyword& keyword) {
    const std::string& name = keyword.name();
    if (name != "MATERIAL" && !reading_.interpretation.hasComposite()) {
      report_.add("missing-parent",
                  Severity::error,
                  spotOf(keyword),
                  name + " stands before any *MATERIAL, with which a deck begins: put that first");
      standInMaterial(nullptr);
    }
    const bool needsEnvironment =
        !isGeneral(keyword) && name != "ENVIRONMENT" && name != "VARIATION";
    if (needsEnvironment && reading_.environments.empty()) {
      report_.add("missing-parent",
                  Severity::error,
                  spotOf(keyword),
                  name + " stands before any *ENVIRONMENT, to which it belongs: add one above");
      standIn(kAnyEnvironment);
      reading_.environments.push_back({1, {}});
    }
  }

  [[nodiscard]] bool hasWeaveKeyword() const {
    return std::any_of(keywords_.begin(), keywords_.end(), [](const Keyword& keyword) {
      return keyword.name() == "BVF";
    });
  }

  void standIn(const std::string_view line) {
    reading_.interpretation.interpret(Keyword::fromLine(line));
  }

  /// A material of the likeliest type, with what can be read of `refused`.
  void standInMaterial(const Keyword* const refused) {
    std::string type = hasWeaveKeyword() ? "PLAINWEAVE" : "UNI";
    std::string system = "NONE";
    std::string values;
    if (refused != nullptr) {
      const auto textOf = [&](const char* const name) {
        return refused->hasParameter(name) ? refused->parameterText(name) : std::string();
      };
      const std::string near = nearest(textOf("TYPE"), materialTypes());
      type = near.empty() ? type : near;
      const auto systems = materialSystems();
      const auto known = std::find(systems.begin(), systems.end(), textOf("SYSTEM"));
      system = known == systems.end() ? system : *known;
      const abqinp::DataRow row = refused->row(0);
      for (const abqinp::Value& value : row.values()) {
        const bool isReadable =
            values.empty() ? isInteger(value.text) : readNumber(value.text).isNumber;
        values += (isReadable ? value.text : std::string()) + ",";
      }
    }
    Keyword keyword =
        Keyword::fromLine("*MATERIAL,TYPE=" + type + ",SYSTEM=" + system + ",NAME=NONE");
    keyword.addDataLine(values);
    reading_.interpretation.interpret(keyword);
  }

  /// The unit system is read as an integer, and ".7" is none.
  static bool isInteger(const std::string& text) {
    try {
      static_cast<void>(abqinp::toInt(text));
      return true;
    } catch (const std::invalid_argument&) {
      return false;
    }
  }

  bool isMisplaced(const Keyword& keyword) {
    const std::string& name = keyword.name();
    const bool isWoven = reading_.interpretation.hasComposite() && reading_.composite().isWoven();
    const bool isForOther =
        (name == "FRACTURE" && isWoven) || ((name == "BVF" || name == "DEGRADATION") && !isWoven);
    if (isForOther) {
      report_.add("misplaced-keyword",
                  Severity::error,
                  spotOf(keyword, environmentCount()),
                  name + " is not for a " + (isWoven ? "woven" : "unidirectional") +
                      " composite: remove it, or correct TYPE of *MATERIAL");
    }
    return isForOther;
  }

  /// What a keyword replaces.
  void noteBefore(const Keyword& keyword) {
    const std::string& name = keyword.name();
    if (name == "MATERIAL" && reading_.interpretation.hasComposite()) {
      report_.add("second-material",
                  Severity::warning,
                  spotOf(keyword),
                  "a second MATERIAL drops all that stands before it: a deck has one");
      reading_ = Reading();
      owner_ = nullptr;
    }
    if (name == "MATERIAL" || name == "ENVIRONMENT" || isOneOf(kAddingKeywords, name)) {
      return;
    }
    const Keyword* const former =
        isGeneral(keyword) ? reading_.last(name) : reading_.environments.back().last(name);
    if (former != nullptr && name != "FATIGUE") {
      report_.add("misplaced-keyword",
                  Severity::warning,
                  spotOf(keyword, isGeneral(keyword) ? 0 : environmentCount()),
                  "this " + name + " replaces that of line " + std::to_string(former->line()) +
                      (isGeneral(keyword) ? ": remove one"
                                          : ": remove one, or add the *ENVIRONMENT of this one"));
    }
  }

  void interpret(const Keyword& keyword) {
    try {
      reading_.interpretation.interpret(keyword);
      return;
    } catch (const abqinp::InputFileException& error) {
      addRefusal(keyword, "misplaced-keyword", error.what());
    } catch (const lamcraft::LamcraftException& error) {
      addRefusal(keyword, "unknown-text", error.what());
    } catch (const std::out_of_range& error) {
      addRefusal(keyword, "missing-value", error.what());
    } catch (const std::exception& error) {
      addRefusal(keyword, "not-a-number", error.what());
    }
    reading_.doubtful.insert(&keyword);
    if (keyword.name() == "MATERIAL") {
      standInMaterial(&keyword);
    } else if (keyword.name() == "ENVIRONMENT") {
      standIn(kAnyEnvironment);
    }
  }

  /// In the program's own words, where no rule has found the reason.
  void addRefusal(const Keyword& keyword, const char* const rule, const std::string& why) {
    if (keyword.name() != "VARIATION" && !report_.hasErrorAt(keyword)) {
      report_.add(rule,
                  Severity::error,
                  spotOf(keyword),
                  "the program refuses " + keyword.name() + " with \"" + why + "\": correct it");
    }
    refusal_ = why;
  }

  void noteAfter(const Keyword& keyword) {
    const std::string& name = keyword.name();
    if (name == "VARIATION") {
      noteVariation(keyword);
      return;
    }
    if (name == "ENVIRONMENT") {
      addEnvironment(keyword);
    } else if (isGeneral(keyword)) {
      reading_.general.push_back(&keyword);
    } else {
      reading_.environments.back().keywords.push_back(&keyword);
    }
    if (isOneOf(kVariedKeywords, name)) {
      owner_ = &keyword;
    }
    previous_ = &keyword;
  }

  void addEnvironment(const Keyword& keyword) {
    const auto& records = reading_.composite().environments;
    reading_.environments.push_back({records.size(), {&keyword}});
    const bool isEqual =
        std::any_of(records.begin(), records.end() - 1, [&](const lamcraft::EnvironmentRecord& r) {
          return r.moisture == records.back().moisture &&
                 r.temperature == records.back().temperature;
        });
    if (isEqual && reading_.isSound(&keyword)) {
      report_.add("misplaced-keyword",
                  Severity::warning,
                  spotOf(keyword, records.size()),
                  "there is an environment of this moisture and temperature already, and they are "
                  "not merged: correct one of them");
    }
  }

  void noteVariation(const Keyword& keyword) {
    if (owner_ == nullptr) {
      if (!report_.hasErrorAt(keyword)) {
        report_.add("misplaced-keyword",
                    Severity::error,
                    spotOf(keyword),
                    "VARIATION has no keyword above whose property it could vary: move it");
      }
      return;
    }
    if (previous_ != owner_) {
      report_.add("misplaced-keyword",
                  Severity::warning,
                  spotOf(keyword, environmentCount()),
                  "this VARIATION belongs to " + owner_->name() + " of line " +
                      std::to_string(owner_->line()) + ", not to " + previous_->name() +
                      " above it: move it");
    }
    checkScatter(reading_, keyword, *owner_, report_);
    if (reading_.doubtful.count(&keyword) > 0 && !report_.hasErrorAt(keyword)) {
      report_.add("not-a-number",
                  Severity::error,
                  spotOf(keyword, environmentCount()),
                  "the program refuses VARIATION with \"" + refusal_ + "\": correct it");
    }
  }

  const std::vector<Keyword>& keywords_;
  Report& report_;
  Reading reading_;
  const Keyword* owner_ = nullptr;     ///< of the next VARIATION
  const Keyword* previous_ = nullptr;  ///< that is no VARIATION
  std::string refusal_;
};

}  // namespace

Reading readDeck(const std::vector<Keyword>& keywords, Report& report) {
  return DeckWalk(keywords, report).run();
}

}  // namespace lamkit
