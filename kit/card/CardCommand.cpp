// SPDX-License-Identifier: BSD-3-Clause
#include "card/CardCommand.h"

#include <algorithm>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "card/CardFormats.h"
#include "command/Options.h"
#include "findings/JsonFindings.h"
#include "findings/TextFindings.h"
#include "folder/MaterialFolder.h"
#include "verdict/Verdict.h"

namespace lamkit {

namespace {

/// What the command line asks for.
struct CardRequest {
  std::string folder;
  std::string format;
  std::string moisture;  ///< empty: the folder's only one
  std::string units = kSi.name;
  std::string output;  ///< empty: the standard output
  bool force = false;
};

const CardFormat& formatOf(const std::string& name) {
  return *std::find_if(kCardFormats.begin(), kCardFormats.end(), [&name](const CardFormat& format) {
    return name == format.name;
  });
}

void writeCard(const std::string& text, const std::string& path, Context& context) {
  if (path.empty()) {
    context.out << text;
    return;
  }
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) {
    throw Failure(path, "cannot be written");
  }
}

/// Findings go where they do not disturb a card on the standard output.
void say(const FileFindings& file, Context& context) {
  if (context.format == Format::json) {
    context.err << textOf(jsonOf(std::vector<FileFindings>{file}));
  } else {
    writeText(context.err, file.findings, context.color);
  }
  context.raise(exitCodeOf(file.findings));
}

Finding ambiguity(const std::string& folder, const AmbiguousCard& reason) {
  Finding finding;
  finding.file = folder;
  finding.rule = "ambiguous";
  finding.severity = Severity::error;
  finding.message = reason.what();
  return finding;
}

/// The folder; nothing where it holds no data, which is the verdict's to say. Throws Failure.
std::optional<MaterialFolder> folderAt(const std::string& path) {
  try {
    return readFolder(path);
  } catch (const FolderError& error) {
    if (error.fault() == FolderFault::noData) {
      return std::nullopt;
    }
    throw Failure(path, error.what());
  }
}

void writeCardOf(const CardRequest& request, Context& context) {
  const std::optional<MaterialFolder> folder = folderAt(request.folder);
  FileFindings verdict = judgeFolder(request.folder);
  if (!folder) {
    say(verdict, context);
    return;
  }
  if (worst(verdict.findings) == Severity::error && !request.force) {
    say(verdict, context);
    context.err << "lamkit: " << request.folder
                << ": no card of a bad material; --force writes it\n";
    return;
  }
  const CardUnits& units = request.units == kMillimetreTonne.name ? kMillimetreTonne : kSi;
  const auto moisture =
      request.moisture.empty() ? std::nullopt : std::optional<std::string>(request.moisture);
  try {
    CardMaterial card = cardOf(*folder, moisture, units);
    card.findings = verdict.findings;
    say(verdict, context);
    writeCard(formatOf(request.format).write(card), request.output, context);
  } catch (const AmbiguousCard& reason) {
    verdict.findings.push_back(ambiguity(request.folder, reason));
    say(verdict, context);
  }
}

std::vector<std::string> formatNames() {
  std::vector<std::string> names;
  for (const CardFormat& format : kCardFormats) {
    names.emplace_back(format.name);
  }
  return names;
}

}  // namespace

void addCard(CLI::App& program, Context& context) {
  CLI::App& command = *program.add_subcommand("card", "The material as input for a solver");
  const auto request = std::make_shared<CardRequest>();
  command.add_option("FOLDER", request->folder, "Material folder")->required();
  command.add_option("--for", request->format, "Solver")
      ->required()
      ->check(CLI::IsMember(formatNames()));
  command
      .add_option("--moisture", request->moisture, "Which environments, where there are several")
      ->check(CLI::IsMember({"ambient", "dry", "wet"}));
  command.add_option("--units", request->units, "N, m, kg, s; or N, mm, tonne, s")
      ->check(CLI::IsMember({kSi.name, kMillimetreTonne.name}))
      ->capture_default_str();
  command.add_option("-o", request->output, "File to write, in place of the standard output");
  command.add_flag("--force", request->force, "Write the card of a bad material, too");
  addFindingOptions(command, context);
  command.callback([request, &context] { writeCardOf(*request, context); });
}

}  // namespace lamkit
