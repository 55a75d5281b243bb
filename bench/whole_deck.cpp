// SPDX-License-Identifier: BSD-3-Clause
// Whole runs in this process, from the deck to the written material folder, with the engine:
// examples, and a unidirectional deck of many environments.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include <benchmark/benchmark.h>

#include "material/Material.h"
#include "support/TemporaryFolder.h"

namespace {

using lamcraft::test::TemporaryFolder;

/// Sends the program's console output into a text that nobody reads.
class QuietConsole {
 public:
  QuietConsole() : former_(std::wcout.rdbuf(text_.rdbuf())) {}
  QuietConsole(const QuietConsole&) = delete;
  QuietConsole& operator=(const QuietConsole&) = delete;
  ~QuietConsole() { std::wcout.rdbuf(former_); }

 private:
  std::wostringstream text_;
  std::wstreambuf* former_;
};

void runDeck(benchmark::State& state, const std::string& deck) {
  const TemporaryFolder folder;
  const std::string results = folder.file("results");
  const QuietConsole quiet;
  for (auto _ : state) {
    lamcraft::Material material;
    material.setResultsDirectory(results);
    material.read(deck);
    material.create();
  }
  const std::filesystem::path written = folder.path() / "results" / "mdata.xml";
  state.counters["mdata bytes"] = static_cast<double>(std::filesystem::file_size(written));
}

void runExample(benchmark::State& state, const char* const name) {
  runDeck(state, std::string(LAMCRAFT_EXAMPLES) + '/' + name + ".qdk");
}

/// A carbon/epoxy ply in many environments, each a little softer than the one before: the ply, its
/// strengths, the fibre and the matrix to start from, and eight S-N tests.
std::string deckOf(const std::int64_t environments) {
  std::ostringstream deck;
  deck << "*MATERIAL, TYPE=UNI, SYSTEM=CFRP, NAME=Bench, OVERWRITE\n"
          "1, 1600, 0.1375e-3, 450.15\n*FVF\n0.60\n";
  for (std::int64_t i = 0; i < environments; ++i) {
    const double rest = 1.0 - 0.2 * static_cast<double>(i) / static_cast<double>(environments);
    deck << "*ENVIRONMENT, MOISTURE=DRY, TEMPERATURE=" << 200 + i
         << "\n*STRENGTHS\n1950e6, 1480e6, " << 48e6 * rest << ", 200e6, 79e6, 75.4e6\n"
         << "*LAMINA\n126e9, " << 11e9 * rest << ", 0.28, 0.40, " << 6.6e9 * rest
         << ", -1e-6, 26e-6\n*FIBER\n225e9, 15e9, 0.20, 0.0714, 15e9, -0.5e-6, 15e-6\n"
         << "*MATRIX, LAW=ISO\n"
         << 4.2e9 * rest << ", 0.34, 45e-6\n*SNDATA\n";
    for (const double angle : {0.0, 90.0}) {
      for (int decade = 2; decade < 6; ++decade) {
        const double strength = angle == 0.0 ? 1950e6 : 48e6 * rest;
        deck << strength * (1.0 - 0.1 * decade) << ", 3e" << decade << ", 5, " << angle
             << ", 0.1\n";
      }
    }
  }
  deck << "*SOLVE, MATDIR=\".\"\n";
  return deck.str();
}

void runEnvironments(benchmark::State& state) {
  const TemporaryFolder folder;
  runDeck(state, folder.write("deck.qdk", deckOf(state.range(0))));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(runEnvironments)
    ->ArgName("environments")
    ->Arg(1)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(runExample, unidirectional, "as4-3501-6")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(runExample, plain_weave, "plain-weave-glass-vinylester")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(runExample, five_harness, "agp370-5h-3501-6s")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(runExample, eight_harness, "m10e-3783")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
