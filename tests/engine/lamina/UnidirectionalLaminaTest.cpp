// SPDX-License-Identifier: BSD-3-Clause
#include "lamina/UnidirectionalLamina.h"

#include <algorithm>
#include <array>
#include <string>

#include <ceres/jet.h>
#include <gtest/gtest.h>

#include "lamina/Concentration.h"
#include "support/RandomMaterials.h"
#include "support/ReferenceData.h"

namespace kx {
namespace {

constexpr double kExact = 1e-10;  // exact identities, with rounding amplified by phase contrast

double relative(const double value, const double expected) {
  return std::abs(value - expected) / std::abs(expected);
}

TEST(UnidirectionalLamina, AgreesWithTheClosedFormEvaluatedElsewhere) {
  for (const auto& item : test::referenceCases("computed.json", "ud")) {
    const auto fiber = transverselyIsotropic(test::propertiesFrom(item.at("fibre")));
    const auto matrix = transverselyIsotropic(test::propertiesFrom(item.at("matrix")));
    const Properties expected = test::propertiesFrom(item.at("analytic"));
    const Properties actual =
        properties(homogenise(fiber, matrix, item.at("vf").get<double>()).effective);
    for (const auto member : kPropertyOrder<double>) {
      EXPECT_LT(relative(actual.*member, expected.*member), 1e-9) << item.at("name");
    }
  }
}

// The composite cylinder assemblage and the self-consistent scheme against a periodic hexagonal
// array. E11 and v12 hardly depend on the arrangement; G12 and above all E22 and G23 feel the
// neighbours when fibers are dense and stiff. Soft phases exaggerate it, hence the wider bars.
struct ArrayBar {
  double e11, v12, g12, e22;
};
ArrayBar hexagonalBar(const std::string& name) {
  if (name.find("degraded") != std::string::npos) {
    return {0.002, 0.005, 0.04, 0.06};
  }
  return {0.001, 0.001, 0.025, 0.05};
}

TEST(UnidirectionalLamina, StaysCloseToTheHexagonalArray) {
  for (const auto& item : test::referenceCases("computed.json", "ud")) {
    const auto name = item.at("name").get<std::string>();
    const auto fiber = transverselyIsotropic(test::propertiesFrom(item.at("fibre")));
    const auto matrix = transverselyIsotropic(test::propertiesFrom(item.at("matrix")));
    const Properties array = test::propertiesFrom(item.at("hexagonal"));
    const Properties p =
        properties(homogenise(fiber, matrix, item.at("vf").get<double>()).effective);
    const ArrayBar bar = hexagonalBar(name);
    EXPECT_LT(relative(p.e11, array.e11), bar.e11) << name;
    EXPECT_LT(relative(p.v12, array.v12), bar.v12) << name;
    EXPECT_LT(relative(p.g12, array.g12), bar.g12) << name;
    EXPECT_LT(relative(p.e22, array.e22), bar.e22) << name;
    EXPECT_LT(relative(p.g23, array.g23), bar.e22) << name;
  }
}

TEST(UnidirectionalLamina, NoFiberGivesTheMatrixAndNoMatrixTheFiber) {
  test::RandomMaterials random(21);
  for (int i = 0; i < 500; ++i) {
    const auto fiber = random.anyFiber();
    const auto matrix = random.anyMatrix();
    for (const double c : {0.0, 1.0}) {
      const Properties expected = properties(c == 0.0 ? matrix : fiber);
      const Properties p = properties(homogenise(fiber, matrix, c).effective);
      for (const auto member : kPropertyOrder<double>) {
        const double scale = std::max(std::abs(expected.*member), 1e-6);
        EXPECT_NEAR(p.*member, expected.*member, kExact * scale);
      }
    }
  }
}

TEST(UnidirectionalLamina, FractionsOutsideZeroToOneAreClamped) {
  const auto fiber = isotropic(7.3e10, 0.22, 5e-6);
  const auto matrix = isotropic(3.5e9, 0.35, 5.7e-5);
  EXPECT_EQ(homogenise(fiber, matrix, -0.5).effective.e22,
            homogenise(fiber, matrix, 0.0).effective.e22);
  EXPECT_EQ(homogenise(fiber, matrix, 3.0).effective.e22,
            homogenise(fiber, matrix, 1.0).effective.e22);
}

TEST(UnidirectionalLamina, EqualPhasesGiveThemselves) {
  test::RandomMaterials random(22);
  for (int i = 0; i < 500; ++i) {
    const auto solid = random.anyFiber();
    const auto lamina = homogenise(solid, solid, random.uniform(0.0, 1.0));
    const Properties p = properties(lamina.effective);
    const Properties expected = properties(solid);
    for (const auto member : kPropertyOrder<double>) {
      const double scale = std::max(std::abs(expected.*member), 1e-6);
      EXPECT_NEAR(p.*member, expected.*member, kExact * scale);
    }
    EXPECT_NEAR(lamina.fiber.transverseShear, 1.0, kExact);
    EXPECT_NEAR(lamina.matrix.transverseShear, 1.0, kExact);
  }
}

// hill1964: the axisymmetric moduli of any two-phase fibrous solid lie on a line,
// (k - k_f)/(l - l_f) = (k - k_m)/(l - l_m) = (k_f - k_m)/(l_f - l_m)
//                     = (l - c l_f - m l_m)/(n - c n_f - m n_m).
TEST(UnidirectionalLamina, HillsUniversalRelationsHold) {
  test::RandomMaterials random(23);
  for (int i = 0; i < 1000; ++i) {
    const auto fiber = random.anyFiber();
    const auto matrix = random.anyMatrix();
    const double c = random.uniform(0.05, 0.9);
    const HillModuli f = hillModuli(fiber);
    const HillModuli m = hillModuli(matrix);
    const HillModuli h = hillModuli(homogenise(fiber, matrix, c).effective);
    const double dk = f.k - m.k;
    const double dl = f.l - m.l;
    const double kl = std::max(f.k, m.k) * std::max(std::abs(f.l), std::abs(m.l));
    EXPECT_NEAR((h.k - f.k) * dl, (h.l - f.l) * dk, kExact * kl);
    EXPECT_NEAR((h.k - m.k) * dl, (h.l - m.l) * dk, kExact * kl);
    EXPECT_NEAR((h.l - c * f.l - (1 - c) * m.l) * dl,
                (h.n - c * f.n - (1 - c) * m.n) * dk,
                kExact * std::max(f.k, m.k) * std::max(f.n, m.n));
  }
}

// levin1967 for two phases in closed form (rosen1970):
// alpha* = <alpha> + (alpha_f - alpha_m) (S_f - S_m)^-1 (S* - <S>).
TEST(UnidirectionalLamina, ExpansionFollowsFromTheComplianceAlone) {
  test::RandomMaterials random(24);
  for (int i = 0; i < 500; ++i) {
    const auto fiber = random.carbonFiber();
    const auto matrix = random.isotropicMatrix();
    const double c = random.uniform(0.05, 0.9);
    const auto effective = homogenise(fiber, matrix, c).effective;
    const Matrix6 sf = compliance(properties(fiber));
    const Matrix6 sm = compliance(properties(matrix));
    const Vector6 af = expansion(properties(fiber));
    const Vector6 am = expansion(properties(matrix));
    const Matrix6 excess = compliance(properties(effective)) - c * sf - (1.0 - c) * sm;
    const Matrix6 difference = sf - sm;
    const Vector6 expected =
        c * af + (1.0 - c) * am + excess * difference.partialPivLu().solve(af - am);
    EXPECT_NEAR(effective.a11, expected(k11), kExact * expected.norm());
    EXPECT_NEAR(effective.a22, expected(k22), kExact * expected.norm());
  }
}

double smallestEigenvalue(const Matrix6& matrix) {
  return Eigen::SelfAdjointEigenSolver<Matrix6>(matrix, Eigen::EigenvaluesOnly).eigenvalues()(0);
}

TEST(UnidirectionalLamina, EnergyLiesBetweenReussAndVoigt) {
  test::RandomMaterials random(25);
  for (int i = 0; i < 500; ++i) {
    const auto fiber = random.anyFiber();
    const auto matrix = random.anyMatrix();
    const double c = random.uniform(0.01, 0.99);
    const Properties p = properties(homogenise(fiber, matrix, c).effective);
    const Matrix6 voigt = c * stiffness(fiber) + (1.0 - c) * stiffness(matrix) - stiffness(p);
    const Matrix6 reuss = c * compliance(properties(fiber)) +
                          (1.0 - c) * compliance(properties(matrix)) - compliance(p);
    EXPECT_GT(smallestEigenvalue(voigt), -kExact * stiffness(fiber).norm());
    EXPECT_GT(smallestEigenvalue(reuss), -kExact * compliance(p).norm());
  }
}

// hill1964: the composite cylinder bulk modulus is itself one of the two bounds, the one
// of the geometry with the matrix outside; the other takes the fiber's shear modulus.
TEST(UnidirectionalLamina, BulkModulusRespectsHillsBounds) {
  test::RandomMaterials random(26);
  for (int i = 0; i < 1000; ++i) {
    const auto fiber = random.anyFiber();
    const auto matrix = random.anyMatrix();
    const double c = random.uniform(0.01, 0.99);
    const HillModuli f = hillModuli(fiber);
    const HillModuli m = hillModuli(matrix);
    const double k = hillModuli(homogenise(fiber, matrix, c).effective).k;
    const auto bound = [&](const double shear) {
      return 1.0 / (c / (f.k + shear) + (1.0 - c) / (m.k + shear)) - shear;
    };
    EXPECT_GE(k, bound(std::min(f.m, m.m)) * (1.0 - kExact));
    EXPECT_LE(k, bound(std::max(f.m, m.m)) * (1.0 + kExact));
  }
}

// The transverse shear modulus before our rearrangement: the root of A x^2 + 2 B x + C with the
// published coefficients, evaluated where they are well conditioned.
double publishedTransverseShear(const HillModuli& f, const HillModuli& r, const double c) {
  const double g = f.m / r.m;
  const double hf = 1.0 + 2.0 * f.m / f.k;
  const double hm = 1.0 + 2.0 * r.m / r.k;
  const double t = 3.0 * c * (1.0 - c) * (1.0 - c) * (g - 1.0) * (g + hf);
  const double u = g * hm - hf;
  const double c3 = c * c * c;
  const double a = t + (g * hm + hf * hm - u * c3) * (c * hm * (g - 1.0) - (g * hm + 1.0));
  const double b = -t +
                   0.5 * (hm * g + (g - 1.0) * c + 1.0) * ((hm - 1.0) * (g + hf) - 2.0 * u * c3) +
                   0.5 * c * (hm + 1.0) * (g - 1.0) * (g + hf + u * c3);
  const double d = t + (hm * g + (g - 1.0) * c + 1.0) * (g + hf + u * c3);
  const double root = std::sqrt(b * b - a * d);
  return r.m * std::max((-b + root) / a, (-b - root) / a);
}

TEST(UnidirectionalLamina, TransverseShearIsTheRootOfThePublishedQuadratic) {
  test::RandomMaterials random(27);
  for (int i = 0; i < 2000; ++i) {
    const auto fiber = random.anyFiber();
    const auto matrix = random.anyMatrix();
    const double c = random.uniform(0.02, 0.95);
    const HillModuli f = hillModuli(fiber);
    const HillModuli r = hillModuli(matrix);
    const double expected = publishedTransverseShear(f, r, c);
    EXPECT_LT(relative(hillModuli(homogenise(fiber, matrix, c).effective).m, expected), 1e-9);
  }
}

using Jet = ceres::Jet<double, 1>;

TEST(UnidirectionalLamina, DerivativesAgreeWithDifferences) {
  test::RandomMaterials random(28);
  const auto constants = std::array{&TransverselyIsotropic::e11,
                                    &TransverselyIsotropic::e22,
                                    &TransverselyIsotropic::v12,
                                    &TransverselyIsotropic::v23,
                                    &TransverselyIsotropic::g12,
                                    &TransverselyIsotropic::a22};
  const auto jetOf = [](const TransverselyIsotropic& s) {
    return TransverselyIsotropicOf<Jet>{
        Jet(s.e11), Jet(s.e22), Jet(s.v12), Jet(s.v23), Jet(s.g12), Jet(s.a11), Jet(s.a22)};
  };
  const auto jets = std::array{&TransverselyIsotropicOf<Jet>::e11,
                               &TransverselyIsotropicOf<Jet>::e22,
                               &TransverselyIsotropicOf<Jet>::v12,
                               &TransverselyIsotropicOf<Jet>::v23,
                               &TransverselyIsotropicOf<Jet>::g12,
                               &TransverselyIsotropicOf<Jet>::a22};
  for (int i = 0; i < 50; ++i) {
    const auto fiber = random.carbonFiber();
    const auto matrix = random.isotropicMatrix();
    for (std::size_t parameter = 0; parameter < constants.size(); ++parameter) {
      const double scale = fiber.*constants[parameter];
      auto jet = jetOf(fiber);
      (jet.*jets[parameter]).v(0) = scale;
      const auto derivative = homogenise(jet, jetOf(matrix), 0.6).effective;
      auto low = fiber;
      auto high = fiber;
      const double step = 1e-5;
      low.*constants[parameter] *= 1.0 - step;
      high.*constants[parameter] *= 1.0 + step;
      const auto below = homogenise(low, matrix, 0.6).effective;
      const auto above = homogenise(high, matrix, 0.6).effective;
      for (std::size_t k = 0; k < constants.size(); ++k) {
        const double value = (derivative.*jets[k]).a;
        const double difference = (above.*constants[k] - below.*constants[k]) / (2.0 * step);
        EXPECT_NEAR((derivative.*jets[k]).v(0) / value, difference / value, 1e-8);
      }
    }
  }
}

}  // namespace
}  // namespace kx
