// SPDX-License-Identifier: BSD-3-Clause
#include "weave/damage/ShearSoftening.h"

#include <array>

#include "weave/model/WeaveCell.h"

namespace kx {

namespace {

constexpr std::array<double, 7> kMatrixFactors{1.0, 0.8, 0.6, 0.45, 0.3, 0.2, 0.12};

}  // namespace

std::vector<DegradationPair> shearSoftening(ThreadPool& team,
                                            const WeaveDescription& weave,
                                            const TransverselyIsotropic& fiber,
                                            const TransverselyIsotropic& matrix) {
  WeaveCell cell(weave, team);
  // The energy form squares the residual: 1e-6 of the modulus is left.
  SolveSettings settings;
  settings.tolerance = 1e-3;
  std::vector<DegradationPair> pairs;
  double intact = 0.0;
  for (const double factor : kMatrixFactors) {
    TransverselyIsotropic soft = matrix;
    soft.g12 *= factor;
    cell.solveCase(WeaveConstituents::uniform(fiber, soft), k12, settings);
    const double modulus = cell.strainEnergy(k12);
    if (pairs.empty()) {
      intact = modulus;
    }
    pairs.push_back({modulus / intact, factor});
  }
  return pairs;
}

}  // namespace kx
