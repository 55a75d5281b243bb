// SPDX-License-Identifier: BSD-3-Clause
// Writing decks back: bytes per second, and time against size.

#include <benchmark/benchmark.h>

#include "SampleDeck.h"
#include "abqinp/InputFile.h"

namespace {

void writeDeck(benchmark::State& state, const DeckKind kind) {
  const SampleDeck sample(kind, static_cast<std::size_t>(state.range(0)));
  abqinp::InputFile deck;
  deck.read(sample.path());
  for (auto _ : state) {
    deck.write(sample.copy(), true);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sample.size()));
  state.SetComplexityN(state.range(0));
}

void sizes(benchmark::internal::Benchmark* const benchmark) {
  benchmark->ArgName("bytes")->Arg(1 << 17)->Arg(1 << 20)->Arg(1 << 23)->Arg(1 << 26);
  benchmark->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
}

BENCHMARK_CAPTURE(writeDeck, data, DeckKind::data)->Apply(sizes);
BENCHMARK_CAPTURE(writeDeck, comments, DeckKind::comments)->Apply(sizes);
BENCHMARK_CAPTURE(writeDeck, mixed, DeckKind::mixed)->Apply(sizes);
BENCHMARK_CAPTURE(writeDeck, keywords, DeckKind::keywords)->Apply(sizes);

}  // namespace
