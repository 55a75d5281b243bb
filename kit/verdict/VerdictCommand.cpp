// SPDX-License-Identifier: BSD-3-Clause
#include "verdict/VerdictCommand.h"

#include <memory>
#include <string>
#include <vector>

#include "command/Options.h"
#include "verdict/Verdict.h"

namespace lamkit {

namespace {

void judgeAll(const std::vector<std::string>& folders, Context& context) {
  std::vector<FileFindings> results;
  for (const std::string& folder : folders) {
    try {
      results.push_back(judgeFolder(folder));
    } catch (const Failure& failure) {
      context.fail(failure);
    }
  }
  context.report(results);
}

}  // namespace

void addVerdict(CLI::App& program, Context& context) {
  CLI::App& command =
      *program.add_subcommand("verdict", "Whether the material in a folder can be used");
  const auto folders = std::make_shared<std::vector<std::string>>();
  command.add_option("FOLDER", *folders, "Material folders to judge")->required();
  addFindingOptions(command, context);
  command.callback([folders, &context] { judgeAll(*folders, context); });
}

}  // namespace lamkit
