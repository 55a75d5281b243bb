// SPDX-License-Identifier: BSD-3-Clause
#include "lamina/Concentration.h"

#include <cmath>

#include <gtest/gtest.h>

#include "support/RandomMaterials.h"
#include "support/ReferenceData.h"

namespace kx {
namespace {

constexpr double kExact = 1e-10;  // exact identities, with rounding amplified by phase contrast

struct Lamina {
  TransverselyIsotropic fiber, matrix, effective;
  Concentration inFiber, inMatrix;
};

Lamina laminaOf(const TransverselyIsotropic& fiber,
                const TransverselyIsotropic& matrix,
                const double c) {
  const auto lamina = homogenise(fiber, matrix, c);
  return {fiber,
          matrix,
          lamina.effective,
          concentration(fiber, lamina.fiber, lamina.effective),
          concentration(matrix, lamina.matrix, lamina.effective)};
}

double largestDeviation(const Eigen::Ref<const Eigen::MatrixXd>& actual,
                        const Eigen::Ref<const Eigen::MatrixXd>& expected) {
  return (actual - expected).cwiseAbs().maxCoeff() / expected.cwiseAbs().maxCoeff();
}

TEST(Concentration, AgreesWithTheClosedFormEvaluatedElsewhere) {
  for (const auto& item : test::referenceCases("computed.json", "ud")) {
    const auto lamina = laminaOf(transverselyIsotropic(test::propertiesFrom(item.at("fibre"))),
                                 transverselyIsotropic(test::propertiesFrom(item.at("matrix"))),
                                 item.at("vf").get<double>());
    const auto matrix = [&](const char* key) { return test::matrix6From(item.at(key)); };
    const auto vector = [&](const char* key) { return test::vector6From(item.at(key)); };
    EXPECT_LT(largestDeviation(lamina.inFiber.strain, matrix("analytic_A_fibre")), 1e-9);
    EXPECT_LT(largestDeviation(lamina.inFiber.thermalStrain, vector("analytic_a_fibre")), 1e-9);
    EXPECT_LT(largestDeviation(lamina.inMatrix.stress, matrix("analytic_B_matrix")), 1e-9);
    EXPECT_LT(largestDeviation(lamina.inMatrix.thermalStress, vector("analytic_b_matrix")), 1e-9);
  }
}

// Means over the phases of a periodic array: 2 % of the largest entry is what 150 random carbon and
// glass laminae stay within, 4 % with a degraded matrix.
TEST(Concentration, StaysCloseToTheHexagonalArray) {
  for (const auto& item : test::referenceCases("computed.json", "ud")) {
    const auto name = item.at("name").get<std::string>();
    const double bar = name.find("degraded") == std::string::npos ? 0.02 : 0.04;
    const auto lamina = laminaOf(transverselyIsotropic(test::propertiesFrom(item.at("fibre"))),
                                 transverselyIsotropic(test::propertiesFrom(item.at("matrix"))),
                                 item.at("vf").get<double>());
    const auto matrix = [&](const char* key) { return test::matrix6From(item.at(key)); };
    EXPECT_LT(largestDeviation(lamina.inFiber.strain, matrix("hexagonal_A_fibre")), bar) << name;
    EXPECT_LT(largestDeviation(lamina.inMatrix.strain, matrix("hexagonal_A_matrix")), bar) << name;
  }
}

TEST(Concentration, VolumeMeansAreTheOverallFields) {
  test::RandomMaterials random(31);
  for (int i = 0; i < 1000; ++i) {
    const double c = random.uniform(0.0, 1.0);
    const double m = 1.0 - c;
    const auto lamina = laminaOf(random.anyFiber(), random.anyMatrix(), c);
    const Matrix6 identity = Matrix6::Identity();
    const auto& f = lamina.inFiber;
    const auto& r = lamina.inMatrix;
    EXPECT_LT((c * f.strain + m * r.strain - identity).cwiseAbs().maxCoeff(), kExact);
    EXPECT_LT((c * f.stress + m * r.stress - identity).cwiseAbs().maxCoeff(), kExact);
    EXPECT_LT((c * f.thermalStrain + m * r.thermalStrain).norm(), kExact * 1e-6);
    const double thermalScale = thermalStress(properties(lamina.fiber)).norm();
    EXPECT_LT((c * f.thermalStress + m * r.thermalStress).norm(), kExact * thermalScale);
  }
}

// hill1963: two phases and their overall stiffness leave no freedom in the mean strains,
// (C_f - C_m) c A_f = C* - C_m.
TEST(Concentration, StrainFollowsFromTheOverallStiffness) {
  test::RandomMaterials random(32);
  for (int i = 0; i < 1000; ++i) {
    const double c = random.uniform(0.01, 0.99);
    const auto lamina = laminaOf(random.anyFiber(), random.anyMatrix(), c);
    const Matrix6 left =
        c * (stiffness(lamina.fiber) - stiffness(lamina.matrix)) * lamina.inFiber.strain;
    const Matrix6 right = stiffness(lamina.effective) - stiffness(lamina.matrix);
    const double scale = stiffness(lamina.fiber).norm() + stiffness(lamina.matrix).norm();
    EXPECT_LT((left - right).cwiseAbs().maxCoeff(), kExact * scale);
  }
}

// benveniste1990: (C_f - C_m) a_f = -(I - A_f)^T (beta_m - beta_f) for two phases.
TEST(Concentration, ThermalStrainFollowsFromTheMechanicalOne) {
  test::RandomMaterials random(33);
  for (int i = 0; i < 1000; ++i) {
    const auto lamina = laminaOf(random.carbonFiber(), random.isotropicMatrix(), 0.6);
    const Vector6 mismatch =
        thermalStress(properties(lamina.fiber)) - thermalStress(properties(lamina.matrix));
    const Matrix6 difference = stiffness(lamina.fiber) - stiffness(lamina.matrix);
    const Vector6 expected =
        (Matrix6::Identity() - lamina.inFiber.strain) * difference.partialPivLu().solve(mismatch);
    EXPECT_LT((lamina.inFiber.thermalStrain - expected).norm(), kExact * 1e-5);
  }
}

TEST(Concentration, PhaseStressIsPhaseStiffnessTimesElasticStrain) {
  test::RandomMaterials random(34);
  for (int i = 0; i < 200; ++i) {
    const auto lamina = laminaOf(random.carbonFiber(), random.isotropicMatrix(), 0.6);
    Vector6 overallStress;
    for (Eigen::Index k = 0; k < 6; ++k) {
      overallStress(k) = random.uniform(-1e8, 1e8);
    }
    const double rise = random.uniform(-150.0, 50.0);
    const Vector6 overallStrain = compliance(properties(lamina.effective)) * overallStress +
                                  rise * expansion(properties(lamina.effective));
    const Vector6 strain =
        lamina.inMatrix.strain * overallStrain + rise * lamina.inMatrix.thermalStrain;
    const Vector6 stress =
        lamina.inMatrix.stress * overallStress + rise * lamina.inMatrix.thermalStress;
    const Vector6 expected =
        stiffness(lamina.matrix) * (strain - rise * expansion(properties(lamina.matrix)));
    EXPECT_LT((stress - expected).norm(), kExact * expected.norm());
  }
}

}  // namespace
}  // namespace kx
