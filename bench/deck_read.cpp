// SPDX-License-Identifier: BSD-3-Clause
// Reading decks: bytes per second, time and memory against size. 100 MB/s and four times the deck's
// size in memory are enough.

#include <benchmark/benchmark.h>

#include "MemoryPeak.h"
#include "SampleDeck.h"
#include "abqinp/InputFile.h"

namespace {

void readDeck(benchmark::State& state, const DeckKind kind) {
  const SampleDeck sample(kind, static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    abqinp::InputFile deck;
    deck.read(sample.path());
    benchmark::DoNotOptimize(deck.countKeywords());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sample.size()));
  state.SetComplexityN(state.range(0));
}

void readNumbers(benchmark::State& state) {
  const SampleDeck sample(DeckKind::data, static_cast<std::size_t>(state.range(0)));
  abqinp::InputFile deck;
  deck.read(sample.path());
  while (deck.nextKeyword() && deck.currentKeyword()->name() != "SNDATA") {
  }
  const abqinp::Keyword& keyword = *deck.currentKeyword();
  for (auto _ : state) {
    double sum = 0.0;
    for (std::size_t line = 0; line < keyword.lineCount(); ++line) {
      const abqinp::DataRow row = keyword.row(line);
      for (std::size_t column = 0; column < 5; ++column) {
        sum += row.doubleValue(column, 0.0);
      }
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sample.size()));
  state.SetComplexityN(state.range(0));
}

void sizes(benchmark::internal::Benchmark* const benchmark) {
  benchmark->ArgName("bytes")->Arg(1 << 17)->Arg(1 << 20)->Arg(1 << 23)->Arg(1 << 26);
  benchmark->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
}

/// Of decks that exceed by far what the process holds already, so that its peak is theirs.
void readLargeDeck(benchmark::State& state, const DeckKind kind) {
  const MemoryPeak peak;
  readDeck(state, kind);
  state.counters["memory/size"] =
      static_cast<double>(peak.bytes()) / static_cast<double>(state.range(0));
}

void largeSizes(benchmark::internal::Benchmark* const benchmark) {
  benchmark->ArgName("bytes")->Arg(1 << 28);
  benchmark->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();
}

BENCHMARK_CAPTURE(readDeck, data, DeckKind::data)->Apply(sizes);
BENCHMARK_CAPTURE(readDeck, comments, DeckKind::comments)->Apply(sizes);
BENCHMARK_CAPTURE(readDeck, mixed, DeckKind::mixed)->Apply(sizes);
BENCHMARK_CAPTURE(readDeck, keywords, DeckKind::keywords)->Apply(sizes);
BENCHMARK(readNumbers)->Apply(sizes);
BENCHMARK_CAPTURE(readLargeDeck, data, DeckKind::data)->Apply(largeSizes);
BENCHMARK_CAPTURE(readLargeDeck, comments, DeckKind::comments)->Apply(largeSizes);

}  // namespace
