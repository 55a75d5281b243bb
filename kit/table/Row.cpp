// SPDX-License-Identifier: BSD-3-Clause
#include "table/Row.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>

#include "folder/MaterialFolder.h"
#include "record/RunRecord.h"
#include "verdict/Verdict.h"

namespace lamkit {

namespace {

/// Where a row comes from.
struct Source {
  const std::string& name;
  std::size_t number;                  ///< of the environment, from 1; 0 without data
  const EnvironmentData* environment;  ///< null without data
  const EnvironmentData* fatigue;      ///< the same with the results of a fatigue fit, or null
  const std::optional<RunRecord>& run;
  const std::vector<Finding>& findings;  ///< about this environment, or all of them

  /// The heaviest finding, the first of them; null without any.
  [[nodiscard]] const Finding* worstFinding() const {
    const Finding* result = nullptr;
    for (const Finding& finding : findings) {
      if (result == nullptr || finding.severity > result->severity) {
        result = &finding;
      }
    }
    return result;
  }
};

using CellOf = Cell (*)(const Source& source);

struct Column {
  const char* name;
  CellOf cell;
};

constexpr std::array<Column, 11> kHead{{
    {"name", [](const Source& s) { return Cell(s.name); }},
    {"environment", [](const Source& s) { return Cell(static_cast<double>(s.number)); }},
    {"temperature [K]",
     [](const Source& s) { return s.environment ? Cell(s.environment->temperature) : Cell(); }},
    {"moisture",
     [](const Source& s) { return s.environment ? Cell(s.environment->moisture) : Cell(); }},
    {"verdict", [](const Source& s) { return Cell(std::string(verdictOf(s.findings))); }},
    {"rule",
     [](const Source& s) { return s.worstFinding() ? Cell(s.worstFinding()->rule) : Cell(); }},
    {"message",
     [](const Source& s) { return s.worstFinding() ? Cell(s.worstFinding()->message) : Cell(); }},
    {"mechanical error",
     [](const Source& s) {
       return s.environment ? Cell(s.environment->errors.finalMechanical) : Cell();
     }},
    {"thermal error",
     [](const Source& s) {
       return s.environment ? Cell(s.environment->errors.finalThermal) : Cell();
     }},
    {"fatigue error",
     [](const Source& s) {
       // A library that reports no fit of its own leaves zeros.
       return s.fatigue && s.fatigue->iterations.fatigue > 0 ? Cell(s.fatigue->errors.finalFatigue)
                                                             : Cell();
     }},
    {"iterations",
     [](const Source& s) {
       return s.environment ? Cell(static_cast<double>(s.environment->iterations.mechanical))
                            : Cell();
     }},
}};

/// The sets whose constants follow the head.
struct Set {
  const char* name;
  const PropertyValues& (*values)(const EnvironmentData& environment);
};
constexpr std::array<Set, 3> kSets{{
    {"lamina", [](const EnvironmentData& e) -> const PropertyValues& { return e.lamina(); }},
    {"fiber", [](const EnvironmentData& e) -> const PropertyValues& { return e.fiber(); }},
    {"matrix", [](const EnvironmentData& e) -> const PropertyValues& { return e.matrix(); }},
}};

std::string unitOf(const lamcraft::Dimension dimension) {
  switch (dimension) {
    case lamcraft::Dimension::stress:
      return " [Pa]";
    case lamcraft::Dimension::inverseTemperature:
      return " [1/K]";
    default:
      return "";
  }
}

std::vector<Cell> rowFrom(const Source& source) {
  std::vector<Cell> row;
  row.reserve(columnNames().size());
  for (const Column& column : kHead) {
    row.push_back(column.cell(source));
  }
  for (const Set& set : kSets) {
    for (std::size_t i = 0; i < kPropertyCount; ++i) {
      row.emplace_back();
      if (source.environment != nullptr) {
        row.back() = set.values(*source.environment)[i].value();
      }
    }
  }
  row.emplace_back();
  if (source.run) {
    row.back() = source.run->seconds;
  }
  return row;
}

/// The findings about each of the environments, those about the whole material among them.
std::vector<std::vector<Finding>> byEnvironment(const std::vector<Finding>& findings,
                                                const std::size_t count) {
  std::vector<std::vector<Finding>> result(count);
  for (const Finding& finding : findings) {
    if (finding.environment > 0 && finding.environment <= count) {
      result[finding.environment - 1].push_back(finding);
    } else {
      for (std::vector<Finding>& each : result) {
        each.push_back(finding);
      }
    }
  }
  return result;
}

std::string nameOf(const std::string& folder) {
  const std::filesystem::path path = std::filesystem::absolute(folder).lexically_normal();
  return (path.has_filename() ? path : path.parent_path()).filename().string();
}

std::optional<MaterialFolder> dataOf(const std::string& folder) {
  try {
    return readFolder(folder);
  } catch (const FolderError&) {
    return std::nullopt;  // verdict says why
  }
}

/// What solve found, as long as the folder is as it left it: with data or, of a bad deck, without.
std::vector<Finding> findingsOf(const std::string& folder,
                                const std::optional<RunRecord>& run,
                                const bool hasData) {
  if (run && (hasData || worst(run->result.findings) == Severity::error)) {
    return run->result.findings;
  }
  return judgeFolder(folder).findings;
}

}  // namespace

const std::vector<std::string>& columnNames() {
  static const std::vector<std::string> kNames = [] {
    std::vector<std::string> names;
    for (const Column& column : kHead) {
      names.emplace_back(column.name);
    }
    for (const Set& set : kSets) {
      for (const auto& row : lamcraft::kPropertyRows) {
        names.push_back(std::string(set.name) + " " + row.label + unitOf(row.dimension));
      }
    }
    names.emplace_back("seconds");
    return names;
  }();
  return kNames;
}

FolderRows rowsOf(const std::string& folder) {
  const std::string name = nameOf(folder);
  const std::optional<RunRecord> run = readRunRecord(folder);
  const std::optional<MaterialFolder> material = dataOf(folder);
  FolderRows result;
  result.findings = findingsOf(folder, run, material.has_value());
  const std::size_t count = material ? material->data.environments.size() : 0;
  if (count == 0) {
    result.rows.push_back(rowFrom({name, 0, nullptr, nullptr, run, result.findings}));
  }
  const auto findings = byEnvironment(result.findings, count);
  for (std::size_t i = 0; i < count; ++i) {
    const EnvironmentData& environment = material->data.environments[i];
    const EnvironmentData& fatigue = material->withFatigue(i);
    result.rows.push_back(rowFrom(
        {name, i + 1, &environment, fatigue.hasFatigueFit ? &fatigue : nullptr, run, findings[i]}));
  }
  return result;
}

}  // namespace lamkit
