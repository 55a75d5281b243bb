// SPDX-License-Identifier: BSD-3-Clause
#include "weave/cell/CellFields.h"

#include <algorithm>

#include "elastic/Voigt.h"

namespace kx {

namespace {

constexpr CasePair kOriginals{k11, k13};
constexpr CasePair kImages{k22, k23};

int wrapped(const int index, const int count) {
  return ((index % count) + count) % count;
}

// The exchange of fill and warp in voxels: the point (x1, x2, x3) goes to
// (x2 + shift, mirror x1 + shift, -x3), and so do displacements.
struct Exchange {
  explicit Exchange(const UnitCell& cell) : shape(cell.shape()) {
    const int perTow = cell.resolution().perTow;
    const InterlacingPattern::Exchange pattern = cell.geometry().pattern().exchange();
    mirror = pattern.mirror;
    shift1 = pattern.warpShift * perTow;
    shift2 = (pattern.fillShift + (mirror < 0 ? 1 : 0)) * perTow;
  }

  void map(const CellFields::Place& from,
           const double factor,
           PairField& image,
           const std::size_t lane) const {
    for (int i = 0; i < shape.n1; ++i) {
      for (int j = 0; j < shape.n2; ++j) {
        const int i2 = wrapped(j + shift1, shape.n1);
        const int repeats = (j + shift1 - i2) / shape.n1;
        const int j2 = wrapped(mirror * i + shift2 - repeats * shape.shift2, shape.n2);
        mapRow(from.field->row(i, j, 0) + from.lane, mirror * factor, image.row(i2, j2, 1) + lane);
        mapRow(from.field->row(i, j, 1) + from.lane, factor, image.row(i2, j2, 0) + lane);
        mapRow(from.field->row(i, j, 2) + from.lane, -factor, image.row(i2, j2, 2) + lane);
      }
    }
  }

  void mapRow(const double* const from, const double factor, double* const to) const {
    const auto n3 = static_cast<std::ptrdiff_t>(shape.n3);
    for (std::ptrdiff_t k = 0; k < n3; ++k) {
      to[2 * (k == 0 ? 0 : n3 - k)] = factor * from[2 * k];
    }
  }

  GridShape shape;
  int mirror = 1;
  int shift1 = 0;
  int shift2 = 0;
};

}  // namespace

CellFields::Place CellFields::find(const std::size_t loadCase) const {
  for (std::size_t pair = 0; pair < cases.size(); ++pair) {
    for (std::size_t lane = 0; lane < 2; ++lane) {
      if (cases[pair][lane] == loadCase) {
        return {&pairs[pair], lane};
      }
    }
  }
  return {nullptr, 0};
}

bool CellFields::holds(const std::size_t loadCase) const {
  return find(loadCase).field != nullptr;
}

void planeStrains(const CellFields& fields,
                  const std::size_t loadCase,
                  const int i,
                  double* const strains) {
  const CellFields::Place place = fields.find(loadCase);
  planeGradients(*place.field, static_cast<std::ptrdiff_t>(place.lane), i, strains);
  const GridShape& shape = place.field->shape();
  const std::size_t count = static_cast<std::size_t>(shape.n2) * static_cast<std::size_t>(shape.n3);
  if (loadCase == kThermalCase) {
    const double scale = 1.0 / kSolvedTemperature;
    std::for_each(strains, strains + kernels::kStrainRows * count, [scale](double& value) {
      value *= scale;
    });
  } else {
    double* const own = strains + loadCase * count;
    std::for_each(own, own + count, [](double& value) { value += 1.0; });
  }
}

void addExchangedCases(const UnitCell& cell, CellFields& fields) {
  const Exchange exchange(cell);
  // A unit shear 13 becomes -mirror times a unit shear 23.
  const std::array<double, 2> factor{1.0, -1.0 * exchange.mirror};
  PairField image(cell.shape());
  for (std::size_t lane = 0; lane < 2; ++lane) {
    exchange.map(fields.find(kOriginals[lane]), factor[lane], image, lane);
  }
  fields.cases.push_back(kImages);
  fields.pairs.push_back(std::move(image));
}

}  // namespace kx
