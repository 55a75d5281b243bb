// SPDX-License-Identifier: BSD-3-Clause
#include "check/Ranges.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "material/MaterialSystems.h"

namespace lamkit {

namespace {

// Where the ranges come from. They hold the published values of all of these, widened by a quarter
// or more, so that what lies outside is no matter of taste:
//   [DI]  I.M. Daniel, O. Ishai, Engineering Mechanics of Composite Materials, 2nd ed., Oxford
//   2006,
//         Appendix A: fibers (A.2), matrices (A.3), plies (A.4), fabrics (A.5)
//   [S98] P.D. Soden, M.J. Hinton, A.S. Kaddour, Composites Science and Technology 58 (1998)
//         1011-1022: four plies with their fibers and matrices
//   [K12] A.S. Kaddour, M.J. Hinton, Journal of Composite Materials 46 (2012) 2295-2312: the same
//         for five more
//   [ICN] P.L.N. Murthy, C.C. Chamis, Integrated Composite Analyzer (ICAN), NASA TP-2515, 1986:
//         fibers and matrices of the data bank
//   [H17] MIL-HDBK-17-2F, Composite Materials Handbook, vol. 2, 2002: plies and fabrics, cold, room
//         temperature and hot, dry and wet
//   [OPT] OptiDAT reference database, R.P.L. Nijssen, Knowledge Centre WMC: glass plies, -40 to 60
//   C [TSC] T.G. Tsai, H.T. Hahn, Introduction to Composite Materials, Technomic 1980: boron and
//   others

/// A property of a set: the ranges of carbon, glass, aramid, and of a family that is not known.
/// That one also holds boron, ceramic and natural fibers, metal, ceramic and rubber matrices.
struct Row {
  std::string_view label;
  std::array<Range, 4> ranges;
};

// clang-format off
/// [DI] A.4, [S98], [K12], [H17], [OPT]; pitch carbon: E11 up to 560 GPa.
constexpr std::array<Row, 7> kPly{{
    {"E11", {{{30e9, 700e9}, {12e9, 75e9}, {25e9, 140e9}, {1e8, 1e12}}}},
    {"E22", {{{2.5e9, 25e9}, {2e9, 35e9}, {1.5e9, 15e9}, {1e6, 4e11}}}},
    {"v12", {{{0.1, 0.5}, {0.1, 0.5}, {0.1, 0.6}, {0.02, 0.6}}}},
    {"v23", {{{0.05, 0.85}, {0.05, 0.8}, {0.05, 0.85}, {0.01, 0.95}}}},
    {"G12", {{{1e9, 15e9}, {0.8e9, 15e9}, {0.6e9, 6e9}, {1e6, 2e11}}}},
    {"A11", {{{-3e-6, 8e-6}, {2e-6, 25e-6}, {-10e-6, 6e-6}, {-15e-6, 1e-4}}}},
    {"A22", {{{8e-6, 80e-6}, {8e-6, 80e-6}, {15e-6, 110e-6}, {1e-7, 4e-4}}}},
}};

/// [DI] A.5, [H17]; through the thickness as plies.
constexpr std::array<Row, 12> kWeave{{
    {"E11", {{{15e9, 200e9}, {6e9, 55e9}, {10e9, 80e9}, {1e8, 5e11}}}},
    {"E22", {{{5e9, 200e9}, {4e9, 55e9}, {4e9, 80e9}, {1e7, 5e11}}}},
    {"E33", {{{2e9, 25e9}, {2e9, 30e9}, {1.5e9, 15e9}, {1e6, 4e11}}}},
    {"v12", {{{0.005, 0.5}, {0.02, 0.5}, {0.01, 0.6}, {0.005, 0.6}}}},
    {"v13", {{{0.05, 0.9}, {0.05, 0.9}, {0.05, 0.9}, {0.01, 0.95}}}},
    {"v23", {{{0.05, 0.9}, {0.05, 0.9}, {0.05, 0.9}, {0.01, 0.95}}}},
    {"G12", {{{1e9, 20e9}, {0.8e9, 20e9}, {0.6e9, 8e9}, {1e6, 2e11}}}},
    {"G13", {{{0.8e9, 12e9}, {0.8e9, 15e9}, {0.5e9, 6e9}, {1e6, 2e11}}}},
    {"G23", {{{0.8e9, 12e9}, {0.8e9, 15e9}, {0.5e9, 6e9}, {1e6, 2e11}}}},
    {"A11", {{{-2e-6, 20e-6}, {3e-6, 40e-6}, {-8e-6, 20e-6}, {-15e-6, 2e-4}}}},
    {"A22", {{{-2e-6, 40e-6}, {3e-6, 60e-6}, {-8e-6, 60e-6}, {-15e-6, 2e-4}}}},
    {"A33", {{{10e-6, 150e-6}, {10e-6, 150e-6}, {15e-6, 180e-6}, {1e-7, 5e-4}}}},
}};

/// [DI] A.2, [S98], [K12], [ICN]; transverse and shear values of one carbon differ by a factor of two.
constexpr std::array<Row, 7> kFiber{{
    {"E11", {{{100e9, 1000e9}, {40e9, 115e9}, {45e9, 220e9}, {1e9, 1.2e12}}}},
    {"E22", {{{3e9, 60e9}, {40e9, 115e9}, {0.8e9, 20e9}, {5e8, 6e11}}}},
    {"v12", {{{0.05, 0.5}, {0.1, 0.35}, {0.15, 0.65}, {0.02, 0.6}}}},
    {"v23", {{{0.01, 0.85}, {0.1, 0.35}, {0.05, 0.85}, {0.01, 0.9}}}},
    {"G12", {{{3e9, 60e9}, {16e9, 50e9}, {0.8e9, 30e9}, {1e7, 3e11}}}},
    {"A11", {{{-3e-6, 4e-6}, {0.4e-6, 15e-6}, {-10e-6, 3e-6}, {-15e-6, 5e-5}}}},
    {"A22", {{{2e-6, 50e-6}, {0.4e-6, 15e-6}, {15e-6, 120e-6}, {1e-7, 2e-4}}}},
}};

/// [DI] A.3, [S98], [K12], [ICN]: polymers, hot and wet ones among them; then rubber to ceramics. All
/// columns but the last are those of a polymer.
constexpr Range kPolymerModulus{0.5e9, 12e9};
constexpr Range kPolymerShear{0.15e9, 5e9};
constexpr Range kPolymerRatio{0.2, 0.495};
constexpr Range kPolymerExpansion{15e-6, 180e-6};
constexpr Range kAnyModulus{5e5, 6e11};
constexpr Range kAnyShear{1.5e5, 3e11};
constexpr Range kAnyRatio{0.05, 0.4999};
constexpr Range kAnyExpansion{5e-7, 5e-4};
constexpr std::array<Row, 12> kMatrix{{
    {"E11", {{kPolymerModulus, kPolymerModulus, kPolymerModulus, kAnyModulus}}},
    {"E22", {{kPolymerModulus, kPolymerModulus, kPolymerModulus, kAnyModulus}}},
    {"E33", {{kPolymerModulus, kPolymerModulus, kPolymerModulus, kAnyModulus}}},
    {"v12", {{kPolymerRatio, kPolymerRatio, kPolymerRatio, kAnyRatio}}},
    {"v13", {{kPolymerRatio, kPolymerRatio, kPolymerRatio, kAnyRatio}}},
    {"v23", {{kPolymerRatio, kPolymerRatio, kPolymerRatio, kAnyRatio}}},
    {"G12", {{kPolymerShear, kPolymerShear, kPolymerShear, kAnyShear}}},
    {"G13", {{kPolymerShear, kPolymerShear, kPolymerShear, kAnyShear}}},
    {"G23", {{kPolymerShear, kPolymerShear, kPolymerShear, kAnyShear}}},
    {"A11", {{kPolymerExpansion, kPolymerExpansion, kPolymerExpansion, kAnyExpansion}}},
    {"A22", {{kPolymerExpansion, kPolymerExpansion, kPolymerExpansion, kAnyExpansion}}},
    {"A33", {{kPolymerExpansion, kPolymerExpansion, kPolymerExpansion, kAnyExpansion}}},
}};

/// T1, C1, T2, C2, S12, S23: [DI] A.4, [S98], [K12], [H17], [OPT].
constexpr std::array<Row, 6> kPlyStrengths{{
    {"T1",  {{{250e6, 5000e6}, {150e6, 3000e6}, {250e6, 3000e6}, {1e6, 1e10}}}},
    {"C1",  {{{120e6, 3500e6}, {80e6, 2000e6}, {60e6, 800e6}, {1e6, 1e10}}}},
    {"T2",  {{{4e6, 150e6}, {4e6, 150e6}, {2e6, 80e6}, {1e4, 2e9}}}},
    {"C2",  {{{25e6, 500e6}, {25e6, 400e6}, {15e6, 300e6}, {1e5, 1e10}}}},
    {"S12", {{{12e6, 250e6}, {10e6, 200e6}, {6e6, 150e6}, {1e5, 2e9}}}},
    {"S23", {{{8e6, 250e6}, {8e6, 200e6}, {5e6, 150e6}, {1e5, 2e9}}}},
}};

/// Knee and ultimate: tension 1, compression 1, shear 12: [DI] A.5, [H17].
constexpr std::array<Row, 6> kWeaveStrengths{{
    {"PS11K", {{{10e6, 2000e6}, {10e6, 1000e6}, {10e6, 1000e6}, {1e5, 1e10}}}},
    {"T1",    {{{100e6, 2500e6}, {60e6, 1200e6}, {80e6, 1500e6}, {1e6, 1e10}}}},
    {"NS11K", {{{10e6, 2000e6}, {10e6, 1000e6}, {10e6, 600e6}, {1e5, 1e10}}}},
    {"C1",    {{{60e6, 2000e6}, {60e6, 1000e6}, {30e6, 600e6}, {1e6, 1e10}}}},
    {"S12K",  {{{4e6, 200e6}, {4e6, 200e6}, {3e6, 150e6}, {1e5, 2e9}}}},
    {"S12",   {{{12e6, 300e6}, {10e6, 300e6}, {6e6, 200e6}, {1e5, 2e9}}}},
}};

/// Strength over modulus: carbon breaks at 0.3 to 2.2 %, glass at 1.2 to 5 %, aramid at 1.2 to 3.7 %
/// ([DI] A.2); in compression and hot less. Across the fiber [S98], [H17].
constexpr std::array<Row, 6> kFailureStrains{{
    {"T1",  {{{0.0015, 0.03}, {0.005, 0.06}, {0.005, 0.04}, {0.0002, 0.2}}}},
    {"C1",  {{{0.0008, 0.025}, {0.003, 0.04}, {0.001, 0.012}, {0.0002, 0.2}}}},
    {"T2",  {{{0.0008, 0.025}, {0.0008, 0.025}, {0.0008, 0.03}, {0.0001, 1.0}}}},
    {"C2",  {{{0.004, 0.1}, {0.003, 0.06}, {0.004, 0.1}, {0.0005, 3.0}}}},
    {"S12", {{{0.003, 0.08}, {0.003, 0.08}, {0.003, 0.1}, {0.0005, 3.0}}}},
    {"S23", {{{0, 0}, {0, 0}, {0, 0}, {0, 0}}}},
}};
constexpr std::array<Row, 6> kWeaveFailureStrains{{
    {"PS11K", {{{0, 0}, {0, 0}, {0, 0}, {0, 0}}}},
    {"T1",    {{{0.003, 0.03}, {0.005, 0.06}, {0.004, 0.05}, {0.0002, 0.2}}}},
    {"NS11K", {{{0, 0}, {0, 0}, {0, 0}, {0, 0}}}},
    {"C1",    {{{0.0015, 0.03}, {0.003, 0.05}, {0.001, 0.03}, {0.0002, 0.2}}}},
    {"S12K",  {{{0, 0}, {0, 0}, {0, 0}, {0, 0}}}},
    {"S12",   {{{0.003, 0.08}, {0.003, 0.08}, {0.003, 0.1}, {0.0005, 3.0}}}},
}};

/// Energies [J/m2] of fibers 10 to 200 kJ/m2 and of matrices 50 to 5000 J/m2: P.P. Camanho,
/// P. Maimi, C.G. Davila, Composites Science and Technology 67 (2007) 2715-2727; S.T. Pinho,
/// P. Robinson, L. Iannucci, Composites Science and Technology 66 (2006) 2069-2079; [H17]. The
/// exponent: M.L. Benzeggagh, M. Kenane, Composites Science and Technology 56 (1996) 439-449.
constexpr std::array<Range, lamcraft::kFractureCount> kFracture{{
    {1e3, 5e5}, {1e3, 5e5}, {20, 2e4}, {20, 2e4}, {40, 4e4}, {0.5, 6}}};

/// Knn, Kss, Ktt, Sn, Ss, St, dmf_dm0, GC, GnC, GsC, GtC, alpha, d2n, d2s, d2t. Stiffness 1e4 to 1e8
/// N/mm3: A. Turon, C.G. Davila, P.P. Camanho, J. Costa, Engineering Fracture Mechanics 74 (2007)
/// 1665-1682, Table 1; given per metre in every unit system, as the program converts it.
constexpr Range kPenalty{5e12, 5e17};
constexpr Range kInterfaceStrength{1e6, 3e8};
constexpr Range kSeparation{1e-8, 5e-3};
constexpr std::array<Range, lamcraft::kCohesiveCount> kCohesive{{
    kPenalty, kPenalty, kPenalty, kInterfaceStrength, kInterfaceStrength, kInterfaceStrength,
    kSeparation, {20, 4e4}, {20, 2e4}, {40, 4e4}, {40, 4e4}, {0.5, 6},
    kSeparation, kSeparation, kSeparation}};
// clang-format on

template <std::size_t Count>
Range rangeIn(const std::array<Row, Count>& rows,
              const std::string_view label,
              const std::size_t column) {
  const auto row =
      std::find_if(rows.begin(), rows.end(), [&](const Row& r) { return r.label == label; });
  return row->ranges[column];
}

std::size_t fiberColumn(const Families& families) {
  // A ply's transverse behaviour is its matrix's: with an unknown one nothing is known.
  return families.matrix == MatrixFamily::unknown ? static_cast<std::size_t>(FiberFamily::unknown)
                                                  : static_cast<std::size_t>(families.fiber);
}

std::size_t matrixColumn(const Families& families) {
  return families.matrix == MatrixFamily::unknown ? 3 : 0;
}

}  // namespace

Families familiesOf(const std::string& systemName) {
  const lamcraft::ConstituentTypes types = lamcraft::constituentTypes(systemName);
  Families families;
  if (types.fiber.rfind("carbon", 0) == 0) {
    families.fiber = FiberFamily::carbon;
  } else if (types.fiber == "glass") {
    families.fiber = FiberFamily::glass;
  } else if (types.fiber == "kevlar") {
    families.fiber = FiberFamily::aramid;
  }
  if (types.matrix != "NA") {
    families.matrix = MatrixFamily::polymer;
  }
  return families;
}

Range propertyRange(const SetKind set, const Families& families, const std::string_view label) {
  switch (set) {
    case SetKind::ply:
      return rangeIn(kPly, label, fiberColumn(families));
    case SetKind::weave:
      return rangeIn(kWeave, label, fiberColumn(families));
    case SetKind::fiber:
      return rangeIn(kFiber, label, static_cast<std::size_t>(families.fiber));
    case SetKind::matrix:
      break;
  }
  return rangeIn(kMatrix, label, matrixColumn(families));
}

Range strengthRange(const bool isWoven, const Families& families, const std::size_t place) {
  return (isWoven ? kWeaveStrengths : kPlyStrengths)[place].ranges[fiberColumn(families)];
}

Range failureStrainRange(const bool isWoven, const Families& families, const std::size_t place) {
  return (isWoven ? kWeaveFailureStrains : kFailureStrains)[place].ranges[fiberColumn(families)];
}

/// [kg/m3] Polymers with their fibers [DI] A.4; metals and ceramics.
Range densityRange(const Families& families) {
  return families.matrix == MatrixFamily::polymer ? Range{900, 2800} : Range{300, 12000};
}

/// [m] Spread tows of 15 micrometres to plies of heavy rovings.
Range thicknessRange() {
  return {1e-5, 5e-3};
}

/// [K] What plies are tested at: liquid helium to the degradation of the polymer.
Range temperatureRange(const Families& families) {
  return families.matrix == MatrixFamily::polymer ? Range{150, 520} : Range{3, 2500};
}

/// [K] Stress-free: between room temperature and the highest cure or melt.
Range referenceRange(const Families& families) {
  return families.matrix == MatrixFamily::polymer ? Range{270, 720} : Range{270, 2500};
}

Range fractureRange(const std::size_t place) {
  return kFracture[place];
}
Range cohesiveRange(const std::size_t place) {
  return kCohesive[place];
}

/// Strains and their invariants.
Range invariantRange() {
  return {1e-5, 1.0};
}

/// In a ply [DI] A.4 and A.5; in a tow up to the closest packing of circles, pi/sqrt(12).
Range fiberFractionRange(const bool isWoven) {
  constexpr double kClosestPacking = 0.9069;
  return isWoven ? Range{0.35, kClosestPacking} : Range{0.08, kClosestPacking};
}

}  // namespace lamkit
