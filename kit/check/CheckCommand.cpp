// SPDX-License-Identifier: BSD-3-Clause
#include "check/CheckCommand.h"

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "check/Check.h"
#include "command/Options.h"

namespace lamkit {

namespace {

void checkAll(const std::vector<std::string>& decks, Context& context) {
  std::vector<FileFindings> files;
  for (const std::string& deck : decks) {
    try {
      files.push_back(checkDeck(deck));
    } catch (const Failure& failure) {
      context.fail(failure);
    } catch (const std::exception& error) {
      context.fail(Failure(deck, error.what()));
    }
  }
  context.report(files);
}

}  // namespace

void addCheck(CLI::App& program, Context& context) {
  CLI::App& command = *program.add_subcommand("check", "What is wrong or doubtful in a deck");
  const auto decks = std::make_shared<std::vector<std::string>>();
  command.add_option("DECK", *decks, "Decks to check")->required();
  addFindingOptions(command, context);
  command.callback([decks, &context] { checkAll(*decks, context); });
}

}  // namespace lamkit
