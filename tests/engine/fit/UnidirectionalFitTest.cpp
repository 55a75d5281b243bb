// SPDX-License-Identifier: BSD-3-Clause
#include "fit/UnidirectionalFit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <Eigen/Core>

#include "lamina/UnidirectionalLamina.h"
#include "support/RandomMaterials.h"
#include "support/ReferenceData.h"

namespace kx {
namespace {

struct FitCase {
  std::string name;
  double fiberFraction = 0.0;
  FittedMaterials given;
};

FitOptions isotropicMatrix() {
  FitOptions options;
  options.isotropicMatrix = true;
  return options;
}

/// The laminae of soden1998 and daniel2006 with constituents that do not reproduce them.
std::vector<FitCase> publishedLaminae() {
  std::vector<FitCase> cases;
  for (const auto& item : test::referenceCases("published.json")) {
    if (item.at("kind") != "ud_fit") {
      continue;
    }
    const auto& targets = item.at("targets");
    const auto& fiber = item.at("inputs").at("fibre");
    const auto& matrix = item.at("inputs").at("matrix");
    const auto solid = [](const nlohmann::json& set) {
      const auto value = [&](const char* name) { return set.value(name, 0.0); };
      return properties(TransverselyIsotropic{value("E11_GPa") * 1e9,
                                              value("E22_GPa") * 1e9,
                                              value("v12"),
                                              value("v23"),
                                              value("G12_GPa") * 1e9,
                                              value("CTE11_1e6_per_K") * 1e-6,
                                              value("CTE22_1e6_per_K") * 1e-6});
    };
    const auto epoxy = isotropic(matrix.at("E_GPa").get<double>() * 1e9,
                                 matrix.at("v").get<double>(),
                                 matrix.value("CTE_1e6_per_K", 50.0) * 1e-6);
    cases.push_back({item.at("material").get<std::string>(),
                     item.at("inputs").at("Vf").get<double>(),
                     {solid(targets), solid(fiber), properties(epoxy)}});
  }
  return cases;
}

double relativeRms(const Properties& lamina, const Properties& target) {
  double sum = 0.0;
  int count = 0;
  for (const auto member :
       {&Properties::e11, &Properties::e22, &Properties::v12, &Properties::v23, &Properties::g12}) {
    if (!(target.*member > 0.0)) {
      continue;
    }
    sum += std::pow(lamina.*member / (target.*member) - 1.0, 2);
    ++count;
  }
  return std::sqrt(sum / count);
}

/// Distance of two answers in widths of the start values.
double distance(const FitCase& item, const FittedMaterials& a, const FittedMaterials& b) {
  const auto z = [&](const FittedMaterials& fitted) {
    const auto assessment = assess(item.fiberFraction, item.given, fitted, isotropicMatrix());
    const auto& constants = assessment->elastic;
    Eigen::VectorXd all(constants.size());
    for (std::size_t i = 0; i < constants.size(); ++i) {
      all(static_cast<Eigen::Index>(i)) = constants[i].z;
    }
    return all;
  };
  return (z(a) - z(b)).norm();
}

bool identical(const Properties& a, const Properties& b) {
  return std::all_of(kPropertyOrder<double>.begin(),
                     kPropertyOrder<double>.end(),
                     [&](const auto member) { return a.*member == b.*member; });
}

bool identical(const FittedMaterials& a, const FittedMaterials& b) {
  return identical(a.lamina, b.lamina) && identical(a.fiber, b.fiber) &&
         identical(a.matrix, b.matrix);
}

void expectNear(const Properties& set, const Properties& expected, const double tolerance) {
  for (const auto member : kPropertyOrder<double>) {
    EXPECT_NEAR(set.*member / (expected.*member), 1.0, tolerance);
  }
}

/// The reference is exact to 1e-3; to 1 % in the last two cases, where glass and a laminate of IM7
/// leave flat directions.
double referenceTolerance(const std::string& name) {
  return name == "Eglass/MY750" || name == "IM7/8552" ? 1e-2 : 1e-3;
}

// The reference comes from an iteration that knows no continuation.
TEST(UnidirectionalFit, FindsTheNearestExactSolutionsFoundElsewhere) {
  for (const auto& item : test::referenceCases("computed.json", "ud_fit")) {
    SCOPED_TRACE(item.at("name"));
    const FittedMaterials given{test::propertiesFrom(item.at("target")),
                                test::propertiesFrom(item.at("start_fibre")),
                                test::propertiesFrom(item.at("start_matrix"))};
    const auto fraction = item.at("vf").get<double>();
    const auto result = fitUnidirectional(fraction, given, isotropicMatrix());
    EXPECT_NEAR(result.mechanical.initialError, item.at("start_error").get<double>(), 1e-9);
    EXPECT_LT(result.mechanical.finalError, 1e-9);
    EXPECT_LT(result.thermal.finalError, 1e-12);
    const double tolerance = referenceTolerance(item.at("name"));
    expectNear(result.materials.fiber, test::propertiesFrom(item.at("fitted_fibre")), tolerance);
    expectNear(result.materials.matrix, test::propertiesFrom(item.at("fitted_matrix")), tolerance);
  }
}

// Printed to four or six digits.
TEST(UnidirectionalFit, KnowsMovesResolutionAndDeviationsFoundElsewhere) {
  for (const auto& item : test::referenceCases("computed.json", "ud_fit")) {
    SCOPED_TRACE(item.at("name"));
    const FittedMaterials given{test::propertiesFrom(item.at("target")),
                                test::propertiesFrom(item.at("start_fibre")),
                                test::propertiesFrom(item.at("start_matrix"))};
    const auto fraction = item.at("vf").get<double>();
    const auto result = fitUnidirectional(fraction, given, isotropicMatrix());
    const auto assessment = assess(fraction, given, result.materials, isotropicMatrix());
    ASSERT_TRUE(assessment.has_value());
    EXPECT_TRUE(assessment->isExact);
    EXPECT_NEAR(assessment->distance(), item.at("norm_z").get<double>(), 1e-3);
    ASSERT_EQ(assessment->elastic.size(), item.at("z").size());
    for (std::size_t i = 0; i < assessment->elastic.size(); ++i) {
      const AssessedConstant& constant = assessment->elastic[i];
      SCOPED_TRACE(constant.name);
      EXPECT_NEAR(constant.z, item.at("z").at(i).get<double>(), 1e-3);
      EXPECT_NEAR(constant.resolution, item.at("resolution").at(i).get<double>(), 1e-3);
      const double deviation = item.at("std_in_widths").at(i);
      EXPECT_NEAR(constant.deviationInWidths, deviation, 1e-3 * deviation);
    }
    for (std::size_t i = 0; i < assessment->expansions.size(); ++i) {
      EXPECT_NEAR(assessment->expansions[i].z, item.at("z_expansion").at(i).get<double>(), 1e-3);
    }
  }
}

/// A lamina made from constituents, and start values off by up to half, still admissible.
FitCase consistentCase(test::RandomMaterials& random, const bool carbon) {
  const auto fiber = carbon ? random.carbonFiber() : random.glassFiber();
  const auto matrix = random.isotropicMatrix();
  const double c = random.uniform(0.3, 0.75);
  const auto off = [&] { return random.uniform(0.5, 1.5); };
  TransverselyIsotropic startFiber;
  do {
    startFiber = fiber;
    for (const auto member : kElasticMembers<double>) {
      startFiber.*member *= off();
    }
  } while (!isAdmissible(startFiber));
  startFiber.a11 *= off();
  startFiber.a22 *= off();
  TransverselyIsotropic startMatrix;
  do {
    startMatrix = isotropic(matrix.e11 * off(), matrix.v12 * off(), matrix.a11 * off());
  } while (!(startMatrix.v12 < 0.48));
  return {"random",
          c,
          {properties(homogenise(fiber, matrix, c).effective),
           properties(startFiber),
           properties(startMatrix)}};
}

void expectMetAndAdmissible(const FitCase& item, const FitResult& result) {
  EXPECT_LT(result.mechanical.finalError, 1e-6);
  EXPECT_LT(result.thermal.finalError, 1e-6);
  for (const auto member : kPropertyOrder<double>) {
    EXPECT_NEAR(result.materials.lamina.*member / (item.given.lamina.*member), 1.0, 1e-6);
  }
  EXPECT_TRUE(isAdmissible(result.materials.fiber));
  EXPECT_TRUE(isAdmissible(result.materials.matrix));
}

TEST(UnidirectionalFit, MeetsConsistentTargetsInEveryConstant) {
  test::RandomMaterials random(41);
  for (int i = 0; i < 600; ++i) {
    const FitCase item = consistentCase(random, i % 2 == 0);
    const auto result = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
    expectMetAndAdmissible(item, result);
    EXPECT_EQ(result.mechanical.termination, Termination::converged);
  }
}

TEST(UnidirectionalFit, MeetsConsistentTargetsWithAnAnisotropicMatrix) {
  test::RandomMaterials random(42);
  for (int i = 0; i < 300; ++i) {
    FitCase item = consistentCase(random, i % 2 == 0);
    auto matrix = transverselyIsotropic(item.given.matrix);
    matrix.e22 *= random.uniform(0.8, 1.2);
    matrix.g12 *= random.uniform(0.8, 1.2);
    item.given.matrix = properties(matrix);
    expectMetAndAdmissible(item, fitUnidirectional(item.fiberFraction, item.given, {}));
  }
}

TEST(UnidirectionalFit, PublishedLaminaeAreMetByConstituentsNearTheirData) {
  const auto cases = publishedLaminae();
  ASSERT_GE(cases.size(), 4U);
  for (const FitCase& item : cases) {
    const auto result = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
    EXPECT_LT(result.mechanical.finalError, 1e-6) << item.name;
    EXPECT_LT(result.thermal.finalError, 1e-6) << item.name;
    const auto assessment =
        assess(item.fiberFraction, item.given, result.materials, isotropicMatrix());
    for (const AssessedConstant& constant : assessment->elastic) {
      EXPECT_LT(std::abs(constant.z), 3.0) << item.name << " " << constant.name;
    }
    EXPECT_TRUE(isAdmissible(result.materials.fiber)) << item.name;
    EXPECT_TRUE(isAdmissible(result.materials.matrix)) << item.name;
  }
}

// The smallest singular value of the sensitivities in widths is 0.012 (glass), so that five targets
// each off by 1 % move the constituents by at most sqrt(5) 0.01 / 0.012 widths.
const double kMoveForOnePercent = std::sqrt(5.0) * 0.01 / 0.012;

TEST(UnidirectionalFit, OnePercentOfScatterMovesTheConstituentsLittle) {
  test::RandomMaterials random(43);
  for (const FitCase& item : publishedLaminae()) {
    const auto result = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
    for (int i = 0; i < 30; ++i) {
      FittedMaterials scattered = item.given;
      for (const auto member : kPropertyOrder<double>) {
        scattered.lamina.*member *= random.uniform(0.99, 1.01);
      }
      const auto moved = fitUnidirectional(item.fiberFraction, scattered, isotropicMatrix());
      EXPECT_LT(distance(item, moved.materials, result.materials), kMoveForOnePercent) << item.name;
    }
  }
}

/// An axial Poisson's ratio far above what any constituents give.
FitCase contradictoryCase() {
  FitCase item = publishedLaminae().front();
  item.given.lamina.v12 = item.given.lamina.v13 = 0.9;
  return item;
}

TEST(UnidirectionalFit, ContradictoryTargetsEndInAStableCompromise) {
  const FitCase item = contradictoryCase();
  const auto result = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
  EXPECT_EQ(result.mechanical.termination, Termination::bestCompromise);
  EXPECT_LT(result.mechanical.finalError, result.mechanical.initialError);
  EXPECT_GT(result.mechanical.finalError, 0.01);
  EXPECT_TRUE(isAdmissible(result.materials.fiber));
  EXPECT_TRUE(isAdmissible(result.materials.matrix));
  test::RandomMaterials random(44);
  for (int i = 0; i < 30; ++i) {
    FittedMaterials scattered = item.given;
    for (const auto member : kPropertyOrder<double>) {
      scattered.lamina.*member *= random.uniform(0.99, 1.01);
    }
    const auto moved = fitUnidirectional(item.fiberFraction, scattered, isotropicMatrix());
    // With the penalty lam the answer to dr is s/(s^2 + lam) dr <= dr / (2 sqrt(lam)).
    EXPECT_LT(distance(item, moved.materials, result.materials),
              std::sqrt(5.0) * 0.01 / (2.0 * 0.05));
  }
}

/// Boron/epoxy 5505 with a transverse Poisson's ratio that a stiff fiber in epoxy cannot give.
FitCase boronEpoxy() {
  return {"boron/epoxy",
          0.5,
          {properties(TransverselyIsotropic{204e9, 18.5e9, 0.23, 0.35, 5.59e9, 6.1e-6, 30.3e-6}),
           properties(isotropic(400e9, 0.2, 5e-6)),
           properties(isotropic(4.2e9, 0.35, 45e-6))}};
}

TEST(UnidirectionalFit, TargetOutOfReachDoesNotDragTheFiberAlong) {
  const FitCase item = boronEpoxy();
  const auto result = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
  const Properties& fiber = result.materials.fiber;
  // Boron filaments are isotropic, 385 to 400 GPa (daniel2006): a compromise may take a fifth more.
  EXPECT_NEAR(fiber.e11, 400e9, 80e9);
  EXPECT_NEAR(fiber.e22, 400e9, 80e9);
  // Moduli that such a fiber does explain are met to two standard deviations of a test, 5 %.
  const Properties& lamina = result.materials.lamina;
  const Properties& target = item.given.lamina;
  EXPECT_NEAR(lamina.e11 / target.e11, 1.0, 0.05);
  EXPECT_NEAR(lamina.e22 / target.e22, 1.0, 0.10);
  EXPECT_NEAR(lamina.g12 / target.g12, 1.0, 0.10);
}

TEST(UnidirectionalFit, ResultDoesNotDependOnEarlierFits) {
  const auto cases = publishedLaminae();
  std::vector<FittedMaterials> forward;
  forward.reserve(cases.size());
  for (const FitCase& item : cases) {
    forward.push_back(
        fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix()).materials);
  }
  for (std::size_t i = cases.size(); i-- > 0;) {
    const auto again = fitUnidirectional(cases[i].fiberFraction, cases[i].given, isotropicMatrix());
    EXPECT_TRUE(identical(again.materials, forward[i])) << cases[i].name;
  }
}

TEST(UnidirectionalFit, UnitOfStressDoesNotMatter) {
  for (const FitCase& item : publishedLaminae()) {
    FittedMaterials inGigapascal = item.given;
    for (Properties* set : {&inGigapascal.lamina, &inGigapascal.fiber, &inGigapascal.matrix}) {
      for (const auto member : {&Properties::e11,
                                &Properties::e22,
                                &Properties::e33,
                                &Properties::g12,
                                &Properties::g13,
                                &Properties::g23}) {
        set->*member *= 1e-9;
      }
    }
    const auto a = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
    const auto b = fitUnidirectional(item.fiberFraction, inGigapascal, isotropicMatrix());
    EXPECT_NEAR(a.materials.fiber.e22 * 1e-9 / b.materials.fiber.e22, 1.0, 1e-6) << item.name;
    EXPECT_NEAR(a.materials.matrix.v12, b.materials.matrix.v12, 1e-6) << item.name;
  }
}

TEST(UnidirectionalFit, ErrorsAreThoseOfWhatIsReturned) {
  for (const FitCase& item : {publishedLaminae().front(), contradictoryCase()}) {
    const auto result = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
    const auto laminaOf = [&](const FittedMaterials& m) {
      return properties(homogenise(transverselyIsotropic(m.fiber),
                                   transverselyIsotropic(m.matrix),
                                   item.fiberFraction)
                            .effective);
    };
    EXPECT_TRUE(identical(result.materials.lamina, laminaOf(result.materials)));
    EXPECT_NEAR(result.mechanical.finalError,
                relativeRms(laminaOf(result.materials), item.given.lamina),
                1e-15);
    EXPECT_NEAR(result.mechanical.initialError,
                relativeRms(laminaOf(item.given), item.given.lamina),
                1e-15);
    EXPECT_GT(result.mechanical.iterations, 0);
  }
}

TEST(UnidirectionalFit, MatrixFlaggedIsotropicComesBackExactlyIsotropic) {
  for (const FitCase& item : publishedLaminae()) {
    const Properties m =
        fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix()).materials.matrix;
    EXPECT_TRUE(m.e11 == m.e22 && m.e11 == m.e33);
    EXPECT_TRUE(m.v12 == m.v13 && m.v12 == m.v23);
    EXPECT_TRUE(m.g12 == m.g13 && m.g12 == m.g23 && m.g12 == m.e11 / (2.0 * (1.0 + m.v12)));
    EXPECT_TRUE(m.a11 == m.a22 && m.a11 == m.a33);
  }
}

TEST(UnidirectionalFit, MatrixThatStartsIsotropicStaysSoWithoutTheFlag) {
  const FitCase item = publishedLaminae().front();
  const auto flagged = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
  const auto recognised = fitUnidirectional(item.fiberFraction, item.given, {});
  EXPECT_TRUE(identical(flagged.materials, recognised.materials));
}

TEST(UnidirectionalFit, StartThatFitsStaysAsItIs) {
  FitCase item = publishedLaminae().front();
  item.given.lamina = properties(homogenise(transverselyIsotropic(item.given.fiber),
                                            transverselyIsotropic(item.given.matrix),
                                            item.fiberFraction)
                                     .effective);
  const auto result = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
  EXPECT_EQ(result.mechanical.termination, Termination::converged);
  EXPECT_LT(result.mechanical.initialError, 1e-14);
  EXPECT_LT(distance(item, result.materials, item.given), 1e-12);
}

TEST(UnidirectionalFit, ConstantsThatAreNotGivenDoNotCount) {
  FitCase item = publishedLaminae().front();
  item.given.lamina.v23 = 0.0;
  item.given.lamina.g12 = -1.0;
  const auto result = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
  EXPECT_LT(result.mechanical.finalError, 1e-8);
  EXPECT_NEAR(result.materials.lamina.e11 / item.given.lamina.e11, 1.0, 1e-8);
  EXPECT_GT(result.materials.lamina.g12, 0.0);
  EXPECT_NEAR(
      result.mechanical.finalError, relativeRms(result.materials.lamina, item.given.lamina), 1e-15);
}

TEST(UnidirectionalFit, MaximumErrorNamesTheOutcomeAndChangesNothingElse) {
  const FitCase item = contradictoryCase();
  FitOptions lenient = isotropicMatrix();
  lenient.maximumMechanicalError = 10.0;
  FitOptions strict = isotropicMatrix();
  strict.maximumMechanicalError = 1e-12;
  strict.maximumThermalError = -1.0;
  const auto a = fitUnidirectional(item.fiberFraction, item.given, lenient);
  const auto b = fitUnidirectional(item.fiberFraction, item.given, strict);
  EXPECT_TRUE(identical(a.materials, b.materials));
  EXPECT_EQ(a.mechanical.termination, Termination::converged);
  EXPECT_EQ(b.mechanical.termination, Termination::bestCompromise);
  EXPECT_EQ(b.thermal.termination, Termination::bestCompromise);
  EXPECT_EQ(a.mechanical.iterations, b.mechanical.iterations);
}

TEST(UnidirectionalFit, ProgressCountsUpToTheReturnedIterations) {
  const FitCase item = publishedLaminae().front();
  FitOptions options = isotropicMatrix();
  std::vector<std::int32_t> iterations;
  double lastError = 0.0;
  options.progress = [&](const std::int32_t iteration, const double error) {
    iterations.push_back(iteration);
    lastError = error;
  };
  const auto result = fitUnidirectional(item.fiberFraction, item.given, options);
  ASSERT_FALSE(iterations.empty());
  EXPECT_TRUE(std::is_sorted(iterations.begin(), iterations.end()));
  EXPECT_LE(iterations.back(), result.mechanical.iterations);
  EXPECT_LT(lastError, 1e-8);
}

void expectNoModel(const FitResult& result) {
  for (const Properties* set :
       {&result.materials.lamina, &result.materials.fiber, &result.materials.matrix}) {
    for (const auto member : kPropertyOrder<double>) {
      EXPECT_TRUE(std::isnan(set->*member));
    }
  }
  for (const FitSummary& summary : {result.mechanical, result.thermal}) {
    EXPECT_EQ(summary.termination, Termination::failed);
    EXPECT_EQ(summary.iterations, 0);
    EXPECT_EQ(summary.initialError, 1.0);
    EXPECT_EQ(summary.finalError, 1.0);
  }
}

TEST(UnidirectionalFit, NumbersThatMakeNoSenseGiveNoNumbers) {
  const FitCase item = publishedLaminae().front();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double c : {0.0, 1.0, 60.0, -0.6, 1.7, nan, infinity}) {
    expectNoModel(fitUnidirectional(c, item.given, {}));
    EXPECT_FALSE(assess(c, item.given, item.given, {}).has_value());
  }
  for (const auto member : {&Properties::e11, &Properties::v12, &Properties::a22}) {
    for (Properties FittedMaterials::*set :
         {&FittedMaterials::lamina, &FittedMaterials::fiber, &FittedMaterials::matrix}) {
      for (const double bad : {nan, infinity, -infinity}) {
        FittedMaterials given = item.given;
        given.*set.*member = bad;
        expectNoModel(fitUnidirectional(item.fiberFraction, given, {}));
      }
    }
  }
  for (Properties FittedMaterials::*set : {&FittedMaterials::fiber, &FittedMaterials::matrix}) {
    FittedMaterials none = item.given;
    none.*set = {};
    expectNoModel(fitUnidirectional(item.fiberFraction, none, {}));
    FittedMaterials negative = item.given;
    (negative.*set).e11 *= -1.0;
    expectNoModel(fitUnidirectional(item.fiberFraction, negative, {}));
  }
  FittedMaterials incompressible = item.given;
  incompressible.matrix = properties(isotropic(4.2e9, 0.5, 4.5e-5));
  expectNoModel(fitUnidirectional(item.fiberFraction, incompressible, isotropicMatrix()));
}

TEST(UnidirectionalFit, WithoutTargetsIsAForwardPrediction) {
  FitCase item = publishedLaminae().front();
  item.given.lamina = {};
  const auto result = fitUnidirectional(item.fiberFraction, item.given, isotropicMatrix());
  EXPECT_TRUE(identical(result.materials.fiber, item.given.fiber));
  EXPECT_TRUE(identical(result.materials.matrix, item.given.matrix));
  const auto lamina = homogenise(transverselyIsotropic(item.given.fiber),
                                 transverselyIsotropic(item.given.matrix),
                                 item.fiberFraction)
                          .effective;
  EXPECT_TRUE(identical(result.materials.lamina, properties(lamina)));
  for (const FitSummary& summary : {result.mechanical, result.thermal}) {
    EXPECT_EQ(summary.initialError, 0.0);
    EXPECT_EQ(summary.finalError, 0.0);
    EXPECT_EQ(summary.iterations, 0);
  }
}

TEST(UnidirectionalFit, TargetsInWrongUnitsStayFinite) {
  const FitCase item = publishedLaminae().front();
  for (const double factor : {1e-9, 1e-6, 1e-3, 1e3, 1e6, 1e9, 1e100, 1e-100}) {
    FittedMaterials given = item.given;
    given.lamina.e11 *= factor;
    given.lamina.e22 *= factor;
    given.lamina.g12 *= factor;
    const auto result = fitUnidirectional(item.fiberFraction, given, isotropicMatrix());
    EXPECT_TRUE(isAdmissible(result.materials.fiber)) << factor;
    EXPECT_TRUE(isAdmissible(result.materials.matrix)) << factor;
    EXPECT_TRUE(std::isfinite(result.mechanical.finalError)) << factor;
    EXPECT_LE(result.mechanical.finalError, result.mechanical.initialError * (1 + 1e-12)) << factor;
  }
}

TEST(UnidirectionalFit, NumbersBeyondTheModelGiveNoNumbers) {
  const FitCase item = publishedLaminae().front();
  for (const double huge : {1e300, -1e305, std::numeric_limits<double>::max()}) {
    FittedMaterials given = item.given;
    given.fiber.a11 = given.fiber.a22 = given.fiber.a33 = huge;
    expectNoModel(fitUnidirectional(item.fiberFraction, given, isotropicMatrix()));
  }
  FittedMaterials stiff = item.given;
  stiff.fiber = properties(isotropic(1e308, 0.2, 5e-6));
  expectNoModel(fitUnidirectional(item.fiberFraction, stiff, isotropicMatrix()));
}

double absurdNumber(test::RandomMaterials& random) {
  const double kind = random.uniform(0.0, 1.0);
  if (kind < 0.02) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  if (kind < 0.04) {
    return std::numeric_limits<double>::infinity();
  }
  if (kind < 0.06) {
    return 0.0;
  }
  if (kind < 0.12) {
    return -random.logUniform(1e-6, 1e12);
  }
  if (kind < 0.40) {
    return random.uniform(0.0, 0.6);
  }
  if (kind < 0.90) {
    return random.logUniform(1e8, 1e12);
  }
  return random.logUniform(1e-300, 1e300);
}

/// Absurd numbers in the place of one in seven.
FittedMaterials spoiled(FittedMaterials materials, test::RandomMaterials& random) {
  for (Properties* set : {&materials.lamina, &materials.fiber, &materials.matrix}) {
    for (const auto member : kPropertyOrder<double>) {
      if (random.uniform(0.0, 1.0) < 0.15) {
        set->*member = absurdNumber(random);
      }
    }
  }
  return materials;
}

// Whatever goes in: it ends, and what comes out is admissible or no number at all.
TEST(UnidirectionalFit, SurvivesNonsense) {
  test::RandomMaterials random(45);
  const FitCase sensible = publishedLaminae().front();
  int fitted = 0;
  for (int i = 0; i < 4000; ++i) {
    const FittedMaterials given = spoiled(sensible.given, random);
    const auto result = fitUnidirectional(random.uniform(0.0, 1.0), given, {});
    if (result.mechanical.termination == Termination::failed) {
      expectNoModel(result);
      continue;
    }
    ++fitted;
    EXPECT_TRUE(isAdmissible(result.materials.fiber));
    EXPECT_TRUE(isAdmissible(result.materials.matrix));
    EXPECT_TRUE(isAdmissible(result.materials.lamina));
    EXPECT_TRUE(std::isfinite(result.mechanical.finalError));
  }
  EXPECT_GT(fitted, 200);
}

}  // namespace
}  // namespace kx
