// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_TESTS_FOLDER_ALLNUMBERS_H
#define LAMKIT_TESTS_FOLDER_ALLNUMBERS_H

#include <cstddef>
#include <initializer_list>
#include <vector>

#include "folder/MaterialData.h"

namespace lamkit {

/// Every number in the data, in no particular order.
class AllNumbers {
 public:
  explicit AllNumbers(const MaterialData& data) {
    add({data.density, static_cast<double>(data.count)});
    if (data.harness) {
      add({static_cast<double>(*data.harness)});
    }
    add(data.referenceTemperature);
    add(data.plyThickness);
    addEach(data.constituents);
    addEach(data.environments);
  }

  [[nodiscard]] const std::vector<double>& numbers() const { return numbers_; }

 private:
  template <typename Numbers>
  void addPlain(const Numbers& numbers) {
    numbers_.insert(numbers_.end(), numbers.begin(), numbers.end());
  }
  void add(const std::initializer_list<double> numbers) { addPlain(numbers); }

  template <typename Items>
  void addEach(const Items& items) {
    for (const auto& item : items) {
      add(item);
    }
  }

  template <typename Group>
  void addGroup(const Group& group) {
    if (group) {
      addEach(*group);
    }
  }

  void add(const VariableProperty& property) {
    add({property.value()});
    if (!property.isVaried()) {
      return;
    }
    add({property.min(), property.max()});
    for (const lamcraft::Distribution* const distribution : property.distributions()) {
      for (std::size_t i = 0; i < distribution->parameterCount(); ++i) {
        add({distribution->parameter(i)});
      }
    }
  }

  void add(const ConstituentData& data) {
    add({static_cast<double>(data.number), static_cast<double>(data.count)});
    add(data.volumeFraction);
    if (data.degradation) {
      add({*data.degradation});
    }
    addEach(data.children);
  }

  void add(const StateProperties& state) {
    add({static_cast<double>(state.state)});
    addEach(state.properties);
  }

  void add(const StateDecomposition& state) {
    add({static_cast<double>(state.state)});
    addPlain(state.slot.stress);
    addPlain(state.slot.strain);
    addPlain(state.slot.thermalStress);
    addPlain(state.slot.thermalStrain);
  }

  void add(const ResultRow& row) { addPlain(row); }

  void add(const FittedConstituent& data) {
    add({static_cast<double>(data.number)});
    addEach(data.states);
    addEach(data.decompositions);
    addGroup(data.fatigue);
    addEach(data.children);
  }

  void add(const SnRecord& record) {
    add({record.stress, record.life, record.frequency, record.angle, record.ratio});
  }

  void add(const LaminateEntry& entry) { addPlain(entry.coefficients); }

  void addFits(const EnvironmentData& data) {
    const SolveErrors& e = data.errors;
    const SolveIterations& n = data.iterations;
    add({e.initialMechanical, e.finalMechanical, static_cast<double>(n.mechanical)});
    add({e.initialThermal, e.finalThermal, static_cast<double>(n.thermal)});
    if (data.hasFatigueFit) {
      add({e.initialFatigue, e.finalFatigue, static_cast<double>(n.fatigue)});
    }
  }

  void add(const EnvironmentData& data) {
    add({data.temperature});
    addFits(data);
    addEach(data.laminates);
    addEach(data.composite);
    addEach(data.strengths);
    addEach(data.snRecords);
    addGroup(data.invariants);
    addGroup(data.fracture);
    addGroup(data.cohesive);
    if (data.shearLaw) {
      const PrefailConstants& c = data.shearLaw->constants;
      add({c.m, c.b, c.thr});
      addPlain(c.c2mdeg);
      addPlain(data.shearLaw->stress);
      addPlain(data.shearLaw->strain);
    }
    addEach(data.constituents);
  }

  std::vector<double> numbers_;
};

}  // namespace lamkit

#endif
