// SPDX-License-Identifier: BSD-3-Clause
#include "check/FormRules.h"

#include <algorithm>
#include <string>
#include <vector>

#include "check/Forms.h"
#include "check/NumberText.h"
#include "check/Wording.h"

namespace lamkit {

using abqinp::Keyword;
using abqinp::Value;

namespace {

/// One keyword under test.
struct Subject {
  const Keyword& keyword;
  const KeywordForm& form;
  std::size_t environment;
  Report& report;

  void add(const char* rule, Severity severity, const Spot& spot, std::string message) const {
    report.add(rule, severity, spot, std::move(message));
  }
  [[nodiscard]] Spot at(const std::size_t line, const std::size_t position) const {
    return valueSpot(keyword, line, position, environment);
  }
};

bool isKeywordName(const std::string& text) {
  const std::vector<std::string>& names = keywordNames();
  return std::find(names.begin(), names.end(), text) != names.end();
}

const std::vector<std::string>* namesOf(const KeywordForm& form, const std::size_t line) {
  if (form.isTable) {
    return &form.lines.front();
  }
  return line < form.lines.size() ? &form.lines[line] : nullptr;
}

std::string placeText(const std::size_t position) {
  return "place " + std::to_string(position + 1);
}

/// How many commas between the values could be decimal commas: between a whole number and digits.
std::size_t possibleDecimalCommas(const std::vector<Value>& values) {
  std::size_t count = 0;
  for (std::size_t i = 0; i + 1 < values.size(); ++i) {
    if (isWhole(values[i].text) && isFraction(values[i + 1].text)) {
      ++count;
      ++i;  // the digits are used up
    }
  }
  return count;
}

/// More values on a line than it has quantities. True when a decimal comma explains that.
bool checkSurplus(const Subject& subject,
                  const std::size_t line,
                  const std::vector<std::string>& names,
                  std::vector<Value> values) {
  while (values.size() > names.size() && values.back().text.empty()) {
    values.pop_back();
  }
  if (values.size() <= names.size()) {
    return false;
  }
  const std::size_t surplus = values.size() - names.size();
  const std::string read = subject.keyword.name() + " reads " + std::to_string(names.size()) +
                           (names.size() == 1 ? " value" : " values") + " from this line (" +
                           joined(names) + "), and there are " + std::to_string(values.size());
  if (possibleDecimalCommas(values) >= surplus) {
    subject.add("decimal-comma",
                Severity::error,
                subject.at(line, 0),
                read + ": write decimals with a point");
    return true;
  }
  subject.add("extra-values",
              Severity::warning,
              subject.at(line, names.size()),
              read + ": what follows the last is ignored, remove it or add the missing point");
  return false;
}

void checkMissing(const Subject& subject,
                  const std::size_t line,
                  const std::vector<std::string>& names,
                  const std::size_t count) {
  if (count >= names.size() || !(subject.form.areRequired || subject.form.leavesZeros)) {
    return;
  }
  const std::string& keyword = subject.keyword.name();
  Spot spot = subject.at(line, count);
  if (subject.form.areRequired) {
    std::string message = keyword + " needs " + names[count] + " in " + placeText(count);
    if (line >= subject.keyword.lineCount()) {
      message += ", and has no data line";
    } else {
      message += ": write all " + std::to_string(names.size()) + " values (" + joined(names) + ")";
    }
    if (keyword == "MATRIX" && count == 3 && !subject.keyword.hasParameter("LAW")) {
      message += "; three values are of an isotropic matrix, LAW=ISO";
    }
    subject.add("missing-value", Severity::error, spot, message);
    return;
  }
  subject.add("missing-value",
              Severity::warning,
              spot,
              keyword + " has no " + names[count] + " in " + placeText(count) + " of its line " +
                  std::to_string(line + 1) + ", which stays 0: write it");
}

/// True when the value is what its author meant.
bool checkNumber(const Subject& subject,
                 const std::size_t line,
                 const std::size_t position,
                 const std::string& text,
                 const std::string& name) {
  const NumberText number = readNumber(text);
  if (number.isEmpty || (number.isNumber && number.ignored.empty())) {
    return true;
  }
  const std::string subjectText = subject.keyword.name() + " " + name + " is \"" + text + "\"";
  if (!number.isNumber) {
    subject.add("not-a-number",
                Severity::error,
                subject.at(line, position),
                subjectText + ", which is no number: write one such as 1.5e3");
    return false;
  }
  const bool changes = changesNumber(number.ignored);
  subject.add("not-a-number",
              changes ? Severity::error : Severity::warning,
              subject.at(line, position),
              subjectText + ", which is read as " + shown(number.number) + ": remove \"" +
                  number.ignored + "\"" + (changes ? " or write the number as 1.5e3" : ""));
  return !changes;
}

/// A line that the keyword does not read.
void checkUnread(const Subject& subject, const std::size_t line, const std::vector<Value>& values) {
  const std::string& first = values.front().text;
  if (isKeywordName(first)) {
    subject.add(
        "unknown-keyword",
        Severity::error,
        subject.at(line, 0),
        first + " without its \"*\" is data of " + subject.keyword.name() + ": write *" + first);
    return;
  }
  const std::size_t lines = subject.form.lines.size();
  subject.add("extra-values",
              Severity::warning,
              subject.at(line, 0),
              subject.keyword.name() + " reads " +
                  (lines == 0 ? "no data line"
                              : std::to_string(lines) + " data line" + (lines == 1 ? "" : "s")) +
                  ", this one is ignored: is a keyword missing above it?");
}

bool checkLine(const Subject& subject, const std::size_t line) {
  const std::vector<Value> values = subject.keyword.row(line).values();
  const std::vector<std::string>* const names = namesOf(subject.form, line);
  if (names == nullptr) {
    if (!values.empty()) {
      checkUnread(subject, line, values);
    }
    return true;
  }
  if (checkSurplus(subject, line, *names, values)) {
    return false;
  }
  bool isMeant = true;
  for (std::size_t i = 0; i < std::min(values.size(), names->size()); ++i) {
    if (isKeywordName(values[i].text)) {
      checkUnread(subject, line, values);
      isMeant = false;
      break;
    }
    isMeant = checkNumber(subject, line, i, values[i].text, (*names)[i]) && isMeant;
  }
  if (!subject.form.isTable) {
    checkMissing(subject, line, *names, values.size());
  }
  return isMeant;
}

bool checkData(const Subject& subject) {
  bool isMeant = true;
  for (std::size_t line = 0; line < subject.keyword.lineCount(); ++line) {
    isMeant = checkLine(subject, line) && isMeant;
  }
  if (!subject.form.isTable) {
    for (std::size_t line = subject.keyword.lineCount(); line < subject.form.lines.size(); ++line) {
      checkMissing(subject, line, subject.form.lines[line], 0);
    }
  }
  return isMeant;
}

void checkUnknownParameter(const Subject& subject,
                           const std::string& name,
                           const std::vector<std::string>& known) {
  const Spot spot = parameterSpot(subject.keyword, name, subject.environment);
  const std::string& keyword = subject.keyword.name();
  if (readNumber(name).isNumber) {
    const bool isContinued = spot.place.line != subject.keyword.line();
    subject.add(isContinued ? "unknown-parameter" : "decimal-comma",
                Severity::error,
                spot,
                isContinued ? "the line of " + keyword +
                                  " ends with a comma, so that this one is read as "
                                  "parameters: remove that comma"
                            : "the number before \"" + name +
                                  "\" has a decimal comma, which ends it: write "
                                  "a point");
    return;
  }
  const std::string near = nearest(name, known);
  subject.add("unknown-parameter",
              Severity::warning,
              spot,
              keyword + " has no parameter " + name + ", and the program ignores it: " +
                  (near.empty() ? "remove it" : "was " + near + " meant?"));
}

void checkParameters(const Subject& subject) {
  std::vector<std::string> known;
  for (const ParameterForm& parameter : subject.form.parameters) {
    known.push_back(parameter.name);
    if (parameter.isRequired && !subject.keyword.hasParameter(parameter.name)) {
      subject.add("missing-parameter",
                  Severity::error,
                  spotOf(subject.keyword, subject.environment),
                  subject.keyword.name() + " needs the parameter " + parameter.name);
    }
  }
  std::vector<std::string> seen;
  for (const std::string& name : subject.keyword.parameterNames()) {
    if (std::find(seen.begin(), seen.end(), name) != seen.end()) {
      subject.add("duplicate-parameter",
                  Severity::warning,
                  parameterSpot(subject.keyword, name, subject.environment),
                  subject.keyword.name() + " has " + name +
                      " twice, and one of the two values is "
                      "lost: remove one");
    } else if (std::find(known.begin(), known.end(), name) == known.end()) {
      checkUnknownParameter(subject, name, known);
    }
    seen.push_back(name);
  }
}

/// A parameter whose text the program compares with words of its own.
void checkWord(const Subject& subject,
               const std::string& parameter,
               const std::vector<std::string>& words,
               const Severity severity,
               const std::string& consequence) {
  if (!subject.keyword.hasParameter(parameter)) {
    return;
  }
  const std::string text = subject.keyword.parameterText(parameter);
  if (std::find(words.begin(), words.end(), text) != words.end()) {
    return;
  }
  const std::string near = nearest(text, words);
  const bool isCase = !near.empty() && near.size() == text.size() && near != text &&
                      subject.keyword.parameter(parameter).second.find('"') != std::string::npos;
  subject.add(
      "unknown-text",
      severity,
      parameterSpot(subject.keyword, parameter, subject.environment),
      parameter + " is \"" + text + "\", " + consequence + ": " +
          (near.empty() ? "write " + (words.size() > 6 ? std::string("one of them") : listed(words))
                        : "was " + near + " meant?" + (isCase ? " Write it without quotes" : "")));
}

/// A system of one's own is allowed; one that begins as a known name and is near it is misspelt.
Severity severityOfSystem(const Keyword& material) {
  const std::string text =
      material.hasParameter("SYSTEM") ? material.parameterText("SYSTEM") : std::string();
  const std::string near = nearest(text, materialSystems());
  return near.empty() || near.front() != text.front() ? Severity::note : Severity::warning;
}

void checkWords(const Subject& subject) {
  const std::string& name = subject.keyword.name();
  if (name == "MATERIAL") {
    checkWord(subject, "TYPE", materialTypes(), Severity::error, "which is no type of composite");
    checkWord(
        subject,
        "SYSTEM",
        materialSystems(),
        severityOfSystem(subject.keyword),
        "which is no material system: there are no defaults, and fiber and matrix have no type");
  } else if (name == "ENVIRONMENT") {
    checkWord(subject, "MOISTURE", moistures(), Severity::warning, "which counts as AMBIENT");
  } else if (name == "MATRIX") {
    checkWord(
        subject, "LAW", laws(), Severity::warning, "which counts as ORTHO, with twelve values");
  }
}

void checkUnitSystem(const Subject& subject) {
  constexpr double kSystems = 4.0;
  if (subject.keyword.name() != "MATERIAL" || !subject.keyword.hasValue(0, 0)) {
    return;
  }
  const NumberText code = readNumber(subject.keyword.row(0).values().front().text);
  if (!code.isNumber) {
    return;
  }
  const bool isWhole =
      code.number == static_cast<double>(static_cast<int>(std::clamp(code.number, -1.0e9, 1.0e9)));
  if (!isWhole || code.number < 1.0 || code.number > kSystems) {
    subject.add("unknown-text",
                Severity::warning,
                subject.at(0, 0),
                "there is no unit system " + shown(code.number) +
                    ", and values are taken in newton and metre: write 1 to 4");
  }
}

}  // namespace

bool checkForm(const Keyword& keyword,
               const bool isWoven,
               const std::size_t environment,
               Report& report) {
  const KeywordForm form = formOf(keyword, isWoven);
  const Subject subject{keyword, form, environment, report};
  checkParameters(subject);
  checkWords(subject);
  checkUnitSystem(subject);
  return checkData(subject);
}

}  // namespace lamkit
