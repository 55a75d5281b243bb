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

void planeGradients(const PairField& field,
                    const std::size_t lane,
                    const int i,
                    double* const strains) {
  const GridShape& shape = field.shape();
  const int next = i + 1 < shape.n1 ? i + 1 : 0;
  const std::size_t count = static_cast<std::size_t>(shape.n2) * static_cast<std::size_t>(shape.n3);
  const double s1 = 0.25 / shape.h1;
  const double s2 = 0.25 / shape.h2;
  const double s3 = 0.25 / shape.h3;
  for (int j = 0; j < shape.n2; ++j) {
    const int beside = j + 1 < shape.n2 ? j + 1 : 0;
    std::array<const double*, 3> u00{};
    std::array<const double*, 3> u01{};
    std::array<const double*, 3> u10{};
    std::array<const double*, 3> u11{};
    for (std::size_t c = 0; c < 3; ++c) {
      u00[c] = field.row(i, j, static_cast<int>(c)) + lane;
      u01[c] = field.row(i, beside, static_cast<int>(c)) + lane;
      u10[c] = field.row(next, j, static_cast<int>(c)) + lane;
      u11[c] = field.row(next, beside, static_cast<int>(c)) + lane;
    }
    double* out = strains + static_cast<std::size_t>(j) * static_cast<std::size_t>(shape.n3);
    for (int k = 0; k < shape.n3; ++k, ++out) {
      const int a = 2 * k;
      const int b = k + 1 < shape.n3 ? a + 2 : 0;
      std::array<std::array<double, 3>, 3> g{};
      for (std::size_t c = 0; c < 3; ++c) {
        const double near0 = u00[c][a] + u00[c][b];
        const double near1 = u01[c][a] + u01[c][b];
        const double far0 = u10[c][a] + u10[c][b];
        const double far1 = u11[c][a] + u11[c][b];
        const double low = u00[c][a] + u01[c][a] + u10[c][a] + u11[c][a];
        const double high = u00[c][b] + u01[c][b] + u10[c][b] + u11[c][b];
        g[c] = {s1 * ((far0 + far1) - (near0 + near1)),
                s2 * ((near1 + far1) - (near0 + far0)),
                s3 * (high - low)};
      }
      out[0] = g[0][0];
      out[count] = g[1][1];
      out[2 * count] = g[2][2];
      out[3 * count] = g[0][1] + g[1][0];
      out[4 * count] = g[0][2] + g[2][0];
      out[5 * count] = g[1][2] + g[2][1];
    }
  }
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
        const int j2 = wrapped(exchange.mirror * i + shift2, shape.n2);
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
