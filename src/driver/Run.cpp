// SPDX-License-Identifier: BSD-3-Clause
#include "driver/Run.h"

#include "console/Messages.h"
#include "console/Output.h"
#include "driver/FailureReports.h"
#include "driver/Localization.h"
#include "material/Material.h"
#include "platform/Process.h"

namespace lamcraft::driver {

namespace {

void printUsage(const std::string& program) {
  console::Output output;
  output.text("Lamcraft " LAMCRAFT_VERSION "\n").endLine();
  output.message(console::kUsage).endLine();
  output.widened(program).wide(L" [").message(console::kUsageInputFile).wide(L"] ");
  output.wide(L"[").message(console::kUsageResultsDirectory).wide(L"]").endLine();
}

}  // namespace

ExitCode run(const std::vector<std::string>& arguments) {
  platform::turnWriteFaultsIntoErrors();
  if (!runLocalization([] { setupLocalization(); })) {
    return ExitCode::success;
  }
  if (arguments.size() < 2) {
    printUsage(arguments.empty() ? "" : arguments[0]);
    return ExitCode::success;
  }
  Material material;
  if (arguments.size() > 2) {
    material.setResultsDirectory(arguments[2]);
  }
  const ExitCode parsed = runParse([&] { material.read(arguments[1]); });
  if (parsed != ExitCode::success) {
    return parsed;
  }
  return runCreate([&] { material.create(); });
}

}  // namespace lamcraft::driver
