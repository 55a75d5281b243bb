// SPDX-License-Identifier: BSD-3-Clause
// Speed of writing data files: building the document, saving it, giving it back.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <string>

#include <benchmark/benchmark.h>

#include "datafile/NumberText.h"
#include "datafile/UniXML.h"
#include "datafile/WeaveXML.h"
#include "model/support/TestComposite.h"

namespace {

using namespace lamcraft;

std::string path() {
  return (std::filesystem::temp_directory_path() / "lamcraft_bench_data_file.xml").string();
}

/// Measured-looking numbers of either sign with all their digits.
class Numbers {
 public:
  double operator()() { return distribution_(engine_); }

 private:
  std::mt19937_64 engine_{1};
  std::normal_distribution<double> distribution_{0.0, 1e3};
};

void fill(PropertySet& set, Numbers& numbers) {
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    set.working()[i] = numbers();
  }
  set.publish();
}

void fill(DecompositionSlot& slot, Numbers& numbers) {
  for (double& number : slot.stress) {
    number = numbers();
  }
  for (double& number : slot.strain) {
    number = numbers();
  }
  for (double& number : slot.thermalStress) {
    number = numbers();
  }
  for (double& number : slot.thermalStrain) {
    number = numbers();
  }
}

void fillCommon(EnvironmentRecord& environment, Numbers& numbers) {
  fill(environment.lamina, numbers);
  fill(environment.fiber, numbers);
  fill(environment.matrix, numbers);
  for (VariableProperty& strength : environment.strengths) {
    strength.setValue(numbers());
  }
  for (int i = 0; i < 10; ++i) {
    environment.snRecords.push_back({numbers(), numbers(), numbers(), numbers(), numbers()});
  }
}

std::unique_ptr<TestComposite> uni(const std::int64_t environments) {
  Numbers numbers;
  auto composite = testUni();
  for (std::int64_t i = 0; i < environments; ++i) {
    fillCommon(composite->addEnvironment("DRY", 300.0), numbers);
  }
  return composite;
}

std::unique_ptr<TestComposite> weave(const std::int64_t environments) {
  Numbers numbers;
  auto composite = testWeave(1);
  for (std::int64_t i = 0; i < environments; ++i) {
    EnvironmentRecord& environment = composite->addEnvironment("DRY", 300.0);
    fillCommon(environment, numbers);
    environment.damageStates = allDamageStates();
    for (DamageStateRecord& state : environment.damageStates) {
      for (auto& set : state.sets) {
        for (double& number : set) {
          number = numbers();
        }
      }
      for (DecompositionSlot& slot : state.unitCell) {
        fill(slot, numbers);
      }
      for (DecompositionSlot& slot : state.fillTow) {
        fill(slot, numbers);
      }
      for (DecompositionSlot& slot : state.warpTow) {
        fill(slot, numbers);
      }
    }
  }
  return composite;
}

template <typename Writer>
void write(benchmark::State& state, const Composite& composite) {
  for (auto _ : state) {
    Writer(path()).writeDocument(composite, false);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(std::filesystem::file_size(path())) *
                          state.iterations());
  std::filesystem::remove(path());
}

void writeUni(benchmark::State& state) {
  write<UniXML>(state, *uni(state.range(0)));
}
BENCHMARK(writeUni)->ArgName("environments")->Arg(1)->Arg(1000)->Unit(benchmark::kMillisecond);

void writeWeave(benchmark::State& state) {
  write<WeaveXML>(state, *weave(state.range(0)));
}
BENCHMARK(writeWeave)->ArgName("environments")->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

void formatNumber(benchmark::State& state) {
  Numbers numbers;
  const double value = numbers();
  for (auto _ : state) {
    benchmark::DoNotOptimize(formatted(value));
  }
}
BENCHMARK(formatNumber);

void formatNumberWithPrintf(benchmark::State& state) {
  Numbers numbers;
  const double value = numbers();
  char text[128];
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%21.14E", value));
  }
}
BENCHMARK(formatNumberWithPrintf);

}  // namespace
