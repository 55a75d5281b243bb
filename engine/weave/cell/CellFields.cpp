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

}  // namespace

CellFields::Place CellFields::find(const std::size_t loadCase) const {
  for (std::size_t pair = 0; pair < cases.size(); ++pair) {
    for (std::size_t lane = 0; lane < 2; ++lane) {
      if (cases[pair][lane] == loadCase) return {&pairs[pair], lane};
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
  planeGradients(*place.field, place.lane, i, strains);
  const GridShape& shape = place.field->shape();
  const std::size_t count = static_cast<std::size_t>(shape.n2) * static_cast<std::size_t>(shape.n3);
  if (loadCase == kThermalCase) {
    const double scale = 1.0 / kSolvedTemperature;
    std::for_each(strains, strains + 6 * count, [scale](double& value) { value *= scale; });
  } else {
    double* const own = strains + loadCase * count;
    std::for_each(own, own + count, [](double& value) { value += 1.0; });
  }
}

void addExchangedCases(const UnitCell& cell, CellFields& fields) {
  const GridShape& shape = cell.shape();
  const int perTow = cell.resolution().perTow;
  const InterlacingPattern::Exchange exchange = cell.geometry().pattern().exchange();
  const int shift1 = exchange.warpShift * perTow;
  const int shift2 = (exchange.fillShift + (exchange.mirror < 0 ? 1 : 0)) * perTow;
  // The point (x1, x2, x3) goes to (x2 + shift, mirror x1 + shift, -x3), and so do displacements;
  // a unit shear 13 becomes -mirror times a unit shear 23.
  const std::array<double, 2> factor{1.0, -1.0 * exchange.mirror};
  PairField image(shape);
  for (std::size_t lane = 0; lane < 2; ++lane) {
    const CellFields::Place original = fields.find(kOriginals[lane]);
    const std::array<double, 3> sign{factor[lane], factor[lane] * exchange.mirror, -factor[lane]};
    constexpr std::array<int, 3> kTarget{1, 0, 2};  // component c of the original becomes this one
    for (int i = 0; i < shape.n1; ++i) {
      for (int j = 0; j < shape.n2; ++j) {
        const int i2 = wrapped(j + shift1, shape.n1);
        const int repeats = (j + shift1 - i2) / shape.n1;
        const int j2 = wrapped(exchange.mirror * i + shift2 - repeats * shape.shift2, shape.n2);
        for (std::size_t c = 0; c < 3; ++c) {
          const double s = c == 0 ? sign[1] : (c == 1 ? sign[0] : sign[2]);
          const double* const from = original.field->row(i, j, static_cast<int>(c)) + original.lane;
          double* const to = image.row(i2, j2, kTarget[c]) + lane;
          for (int k = 0; k < shape.n3; ++k) {
            to[2 * (k == 0 ? 0 : shape.n3 - k)] = s * from[2 * k];
          }
        }
      }
    }
  }
  fields.cases.push_back(kImages);
  fields.pairs.push_back(std::move(image));
}

}  // namespace kx
