#include "driver/Run.h"

#include "console/Messages.h"
#include "console/Output.h"
#include "driver/Localization.h"
#include "driver/Phases.h"
#include "material/Material.h"
#include "platform/Process.h"

namespace lamcraft::driver {

namespace {

void printUsage(const char* program) {
  console::Output output;
  output.text("Lamcraft " LAMCRAFT_VERSION "\n").endLine();
  output.message(console::kUsage).endLine();
  output.text(program);  // as narrow text: its bytes reach the console as they are
  output.wide(L" [").message(console::kUsageInputFile).wide(L"] ");
  output.wide(L"[").message(console::kUsageResultsDirectory).wide(L"]").endLine();
}

}  // namespace

ExitCode run(int count, const char* const* arguments) {
  platform::weatherFaults();
  if (!runLocalization([] { setupLocalization(); })) {
    return ExitCode::success;
  }
  if (count < 2) {
    printUsage(count > 0 ? arguments[0] : "");
    return ExitCode::success;
  }
  Material material;
  if (count > 2) {
    material.setResultsDirectory(arguments[2]);
  }
  const ExitCode parsed = runParse([&] { material.read(arguments[1]); });
  if (parsed != ExitCode::success) {
    return parsed;
  }
  return runCreate([&] { material.create(); });
}

}  // namespace lamcraft::driver
