// SPDX-License-Identifier: BSD-3-Clause
#include "table/TableCommand.h"

#include <memory>
#include <string>
#include <vector>

#include "command/Options.h"
#include "table/FolderSearch.h"
#include "table/Row.h"
#include "table/TableText.h"

namespace lamkit {

namespace {

struct TableOptions {
  std::vector<std::string> paths;
  bool json = false;
};

void writeAll(const TableOptions& options, Context& context) {
  if (!options.json) {
    writeCsvHead(context.out);
  }
  const auto write = options.json ? writeJson : writeCsv;
  for (const std::string& path : options.paths) {
    try {
      for (const std::string& folder : materialFolders(path)) {
        const FolderRows table = rowsOf(folder);
        context.raise(exitCodeOf(table.findings));
        for (const std::vector<Cell>& row : table.rows) {
          write(context.out, row);
        }
      }
    } catch (const Failure& failure) {
      context.fail(failure);
    }
  }
}

}  // namespace

void addTable(CLI::App& program, Context& context) {
  CLI::App& command = *program.add_subcommand("table", "One row for each material and environment");
  const auto options = std::make_shared<TableOptions>();
  command.add_option("DIR", options->paths, "Material folders, or folders of such")->required();
  CLI::Option* const csv = command.add_flag("--csv", "Comma-separated values (the default)");
  command.add_flag("--json", options->json, "JSON, an object a line")->excludes(csv);
  addQuietOption(command, context);
  command.callback([options, &context] { writeAll(*options, context); });
}

}  // namespace lamkit
