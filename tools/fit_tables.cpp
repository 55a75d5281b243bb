// SPDX-License-Identifier: BSD-3-Clause
// Prints what the fits make of published plies, as the tables of docs/engine.md hold it:
//   fit_tables tools/published_plies.json
//
// The input has for each ply: "lamina", E11 E22 v12 v23 G12 A11 A22 of a unidirectional one, the
// nine mechanical constants of a woven one; "fiber", E11 E22 v12 v23 G12 A11 A22; "matrix", E v A;
// all in GPa and 1e-6/K, 0 not given. "before" has fiber E11 E22 v12 v23 G12 and matrix E v as the
// fit gave them that measured a move by ln E and dv/0.3.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "fit/UnidirectionalFit.h"
#include "weave/fit/WeaveFit.h"

namespace {

using nlohmann::json;

constexpr double kGigapascal = 1e9;
constexpr double kPerMegakelvin = 1e-6;

struct Ply {
  std::string name;
  kx::FittedMaterials given;
  kx::FittedMaterials before;
  kx::FittedMaterials fitted;
  kx::Assessment now;
  kx::Assessment then;
};

kx::Properties solid(const std::vector<double>& v) {
  return kx::properties(kx::TransverselyIsotropic{v.at(0) * kGigapascal,
                                                  v.at(1) * kGigapascal,
                                                  v.at(2),
                                                  v.at(3),
                                                  v.at(4) * kGigapascal,
                                                  v.at(5) * kPerMegakelvin,
                                                  v.at(6) * kPerMegakelvin});
}

kx::Properties wovenPly(const std::vector<double>& v) {
  constexpr double g = kGigapascal;
  return {v.at(0) * g,
          v.at(1) * g,
          v.at(2) * g,
          v.at(3),
          v.at(4),
          v.at(5),
          v.at(6) * g,
          v.at(7) * g,
          v.at(8) * g};
}

Ply plyFrom(const json& row, const kx::Properties& lamina) {
  Ply ply;
  ply.name = row.at("name").get<std::string>() + " [" + row.at("source").get<std::string>() + "]";
  const auto matrix = row.at("matrix").get<std::vector<double>>();
  ply.given = {lamina,
               solid(row.at("fiber")),
               kx::properties(kx::isotropic(
                   matrix.at(0) * kGigapascal, matrix.at(1), matrix.at(2) * kPerMegakelvin))};
  auto before = row.at("before").get<std::vector<double>>();
  ply.before.matrix = kx::properties(kx::isotropic(before.at(5) * kGigapascal, before.at(6), 0.0));
  before[5] = before[6] = 0.0;  // expansions are not compared
  ply.before.fiber = solid(before);
  ply.before.lamina = lamina;
  return ply;
}

kx::FitOptions isotropicMatrix() {
  kx::FitOptions options;
  options.isotropicMatrix = true;
  return options;
}

std::vector<Ply> laminae(const json& rows) {
  std::vector<Ply> plies;
  for (const json& row : rows) {
    Ply ply = plyFrom(row, solid(row.at("lamina")));
    const double c = row.at("fraction");
    ply.fitted = kx::fitUnidirectional(c, ply.given, isotropicMatrix()).materials;
    ply.now = kx::assess(c, ply.given, ply.fitted, isotropicMatrix()).value();
    ply.then = kx::assess(c, ply.given, ply.before, isotropicMatrix()).value();
    plies.push_back(ply);
  }
  return plies;
}

std::vector<Ply> weaves(const json& rows) {
  std::vector<Ply> plies;
  kx::WeaveModel model(1);
  for (const json& row : rows) {
    Ply ply = plyFrom(row, wovenPly(row.at("lamina")));
    kx::WeaveDescription weave;
    weave.harness = row.at("harness");
    weave.fillFraction = row.at("tows").at(0);
    weave.warpFraction = row.at("tows").at(1);
    weave.fiberFraction = row.at("fraction");
    ply.fitted = kx::fitWeave(model, weave, ply.given, isotropicMatrix()).materials;
    ply.now = kx::assess(model, weave, ply.given, ply.fitted, isotropicMatrix()).value();
    ply.then = kx::assess(model, weave, ply.given, ply.before, isotropicMatrix()).value();
    plies.push_back(ply);
  }
  return plies;
}

std::string number(const double value, const int decimals) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
  return text.data();
}

double largest(const std::vector<kx::AssessedConstant>& constants) {
  double z = 0.0;
  for (const auto& constant : constants) {
    z = std::max(z, std::abs(constant.z));
  }
  return z;
}

void printMoves(const std::vector<Ply>& plies, const bool withExpansions) {
  std::cout << "| z of | fiber E11 | E22 | v12 | v23 | G12 | matrix K | G |"
            << (withExpansions ? " A11 | A22 | A |" : "") << " largest, elastic | before |\n";
  std::cout << "|---|---|---|---|---|---|---|---|" << (withExpansions ? "---|---|---|" : "")
            << "---|---|\n";
  for (const Ply& ply : plies) {
    std::cout << "| " << ply.name << " |";
    for (const auto& constant : ply.now.elastic) {
      std::cout << ' ' << number(constant.z, 1) << " |";
    }
    for (std::size_t i = 0; withExpansions && i < ply.now.expansions.size(); ++i) {
      std::cout << ' ' << number(ply.now.expansions[i].z, 1) << " |";
    }
    std::cout << ' ' << number(largest(ply.now.elastic), 1) << " | "
              << number(largest(ply.then.elastic), 1) << " |\n";
  }
}

std::string transverseOverAxial(const kx::FittedMaterials& materials) {
  return number(materials.fiber.e22 / materials.fiber.e11, 2);
}

void printMaterials(const std::vector<Ply>& plies) {
  std::cout << "| start / fit / before | matrix K [GPa] | G [GPa] | v | fiber E22/E11 |\n"
               "|---|---|---|---|---|\n";
  for (const Ply& ply : plies) {
    const auto three = [](const std::string& a, const std::string& b, const std::string& c) {
      std::string text = " ";
      text.append(a).append(" / ").append(b).append(" / ").append(c).append(" |");
      return text;
    };
    const auto moduli = [&](double kx::MatrixModuli::*modulus, const int decimals) {
      const auto inGigapascal = [&](const kx::MatrixModuli& m) {
        return number(m.*modulus / kGigapascal, decimals);
      };
      return three(inGigapascal(ply.now.startMatrix),
                   inGigapascal(ply.now.fittedMatrix),
                   inGigapascal(ply.then.fittedMatrix));
    };
    std::cout << "| " << ply.name << " |" << moduli(&kx::MatrixModuli::bulk, 1)
              << moduli(&kx::MatrixModuli::shear, 2)
              << three(number(ply.given.matrix.v12, 2),
                       number(ply.fitted.matrix.v12, 2),
                       number(ply.before.matrix.v12, 2))
              << three(transverseOverAxial(ply.given),
                       transverseOverAxial(ply.fitted),
                       transverseOverAxial(ply.before))
              << '\n';
  }
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc != 2) {
    std::cerr << "usage: fit_tables published_plies.json\n";
    return 2;
  }
  try {
    std::ifstream file(argv[1]);
    const json rows = json::parse(file);
    for (const bool woven : {false, true}) {
      const auto plies = woven ? weaves(rows.at("weaves")) : laminae(rows.at("laminae"));
      printMoves(plies, !woven);
      std::cout << '\n';
      printMaterials(plies);
      std::cout << (woven ? "" : "\n");
    }
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
