// The engine's C contract: any bits as the numbers of any sequence of its eleven functions. No call
// crashes, loops, writes beside its outputs or answers with what is no number.
//
// A call that solves a woven ply takes seconds. LAMCRAFT_FUZZ_WEAVES makes a target of its own from
// this source that makes such calls; without it they are passed over.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "fit/MatrixSymmetry.h"
#include "fuzz/CallInput.h"
#include "fuzz/Target.h"
#include "micromech/kxdriver.h"
#include "weave/model/WeaveDescription.h"

namespace lamcraft::fuzz {
namespace {

constexpr bool kSolvesWeaves = LAMCRAFT_FUZZ_WEAVES;

using Twelve = std::array<double, 12>;

// Carbon and epoxy [Pa, 1/K]: not what is called with them is looked at, but that it gets far.
constexpr Twelve kFiber{
    2.25e11, 1.5e10, 1.5e10, 0.2, 0.2, 0.25, 1.5e10, 1.5e10, 6e9, -5e-7, 1.5e-5, 1.5e-5};
constexpr Twelve kMatrix{
    4.2e9, 4.2e9, 4.2e9, 0.34, 0.34, 0.34, 1.5672e9, 1.5672e9, 1.5672e9, 4.5e-5, 4.5e-5, 4.5e-5};
constexpr Twelve kLamina{
    1.26e11, 1.1e10, 1.1e10, 0.28, 0.28, 0.4, 6.6e9, 6.6e9, 3.9e9, 0.0, 2.8e-5, 2.8e-5};
constexpr Twelve kWovenLamina{
    7.0e10, 7.0e10, 1.0e10, 0.05, 0.4, 0.4, 5e9, 4e9, 4e9, 3e-6, 3e-6, 4e-5};
constexpr std::array<double, 6> kStrengths{1.95e9, 1.48e9, 4.8e7, 2e8, 7.9e7, 5.5e7};
constexpr std::array<double, 30> kSnRecords{1.4e9, 1e3, 5, 0,  0.1, 1.25e9, 3e4, 5, 0,  0.1,
                                            1.1e9, 1e6, 5, 0,  0.1, 3.8e7,  1e3, 5, 90, 0.1,
                                            3.3e7, 4e4, 5, 90, 0.1, 2.8e7,  1e6, 5, 90, 0.1};
constexpr std::array<double, 10> kStress{8e6, 16e6, 24e6, 32e6, 40e6, 48e6, 56e6, 64e6, 72e6, 80e6};
constexpr std::array<double, 10> kStrain{
    0.0016, 0.0033, 0.0052, 0.0074, 0.0099, 0.0129, 0.0165, 0.0207, 0.0256, 0.0314};

template <typename Numbers>
bool areFinite(Numbers&& numbers) {
  return std::all_of(
      numbers.begin(), numbers.end(), [](const double number) { return std::isfinite(number); });
}

/// An array as long as its count says, which is any number: nothing is read for one that is
/// negative or absurd, and others are brought down to what a moment can allocate.
struct Counted {
  std::int32_t count;
  std::vector<double> values;
};

template <typename Usual>
Counted counted(CallInput& input, const Usual& usual, const std::size_t columns) {
  constexpr std::int32_t kMost = 48;
  constexpr std::int32_t kAbsurd = 1 << 24;
  auto count = input.number(static_cast<std::int32_t>(usual.size() / columns));
  count = count > kMost && count <= kAbsurd ? count % kMost : count;
  const auto rows = static_cast<std::size_t>(count > 0 && count <= kMost ? count : 0);
  Counted result{count, {}};
  for (std::size_t i = 0; i < rows * columns; ++i) {
    result.values.push_back(input.number(usual[i % usual.size()]));
  }
  return result;
}

/// Errors and iterations: the first `written` of each pair are the call's.
struct Summary {
  Guarded<double> errors{std::vector<double>(6, -7.0)};
  Guarded<std::int32_t> iterations{std::vector<std::int32_t>(3, -7)};

  void requireTwoFits() {
    for (std::size_t fit = 0; fit < 2; ++fit) {
      require(std::isfinite(errors[2 * fit]) && std::isfinite(errors[2 * fit + 1]) &&
                  errors[2 * fit] >= 0.0 && errors[2 * fit + 1] >= 0.0,
              "errors are no less than zero, and finite");
      require(errors[2 * fit + 1] <= errors[2 * fit] || iterations[fit] == 0,
              "no fit ends worse than it started");
      require(iterations[fit] >= 0, "iterations are counted");
    }
    require(errors[4] == -7.0 && errors[5] == -7.0 && iterations[2] == -7,
            "the fatigue fit's errors and iterations are left alone");
  }
};

struct Prefail {
  Guarded<double> m{1}, b{1}, thr{1}, c2mdeg{3};
  Guarded<std::int32_t> failed{1}, code{1};

  void requireAnswer() {
    require(areFinite(m) && areFinite(b) && areFinite(thr) && areFinite(c2mdeg),
            "prefail constants are finite");
    require((failed[0] == 0 && code[0] == 0) || (failed[0] == 1 && code[0] >= 1 && code[0] <= 2),
            "a curve is reduced, or there is a reason");
  }
};

struct Weave {
  std::int32_t harness;
  std::vector<double> towFractions;
  double fiberFraction;

  explicit Weave(CallInput& input)
      : harness(input.number(kSolvesWeaves ? 1 : kNoHarness)),
        towFractions(input.numbers(std::array<double, 2>{0.36, 0.36})),
        fiberFraction(input.number(0.7)) {}

  /// Whether a call with this weave may be made: none that would be solved, unless asked for.
  [[nodiscard]] bool isToCall(const std::vector<double>& fiber,
                              const std::vector<double>& matrix,
                              const bool isMatrixIsotropic) const {
    if (kSolvesWeaves) {
      return true;
    }
    kx::WeaveDescription weave;
    weave.harness = harness;
    weave.fillFraction = towFractions[0];
    weave.warpFraction = towFractions[1];
    weave.fiberFraction = fiberFraction;
    const auto start = kx::matrixStart(kx::propertiesFrom(matrix.data()), isMatrixIsotropic);
    return !weave.isSensible() || !kx::isAdmissible(start.constants) ||
           !kx::isAdmissible(kx::transverselyIsotropic(kx::propertiesFrom(fiber.data())));
  }

 private:
  static constexpr std::int32_t kNoHarness = 3;
};

/// One input: a few calls, of which the earlier set what the later ones find. Without
/// fits, which take far longer than the other calls, those among them are passed over.
class Calls {
 public:
  explicit Calls(CallInput& input) : input_(input) { reset(); }

  void run() {
    constexpr std::array<Function, 11> kFunctions{&Calls::setMaxError,
                                                  &Calls::setIsoFlag,
                                                  &Calls::uniOptimization,
                                                  &Calls::prefail,
                                                  &Calls::weaveOptimization,
                                                  &Calls::weavePrefail,
                                                  &Calls::weaveDamageState,
                                                  &Calls::fatDcmpProps,
                                                  &Calls::fatiguePwOpti,
                                                  &Calls::insituStatus,
                                                  &Calls::getDefProps};
    constexpr int kMostCalls = 4;
    const bool hasFits = input_.hasFits();
    for (int call = 0; call < kMostCalls && input_.hasMore(); ++call) {
      const Function function = kFunctions[input_.function(kFunctions.size())];
      if (hasFits || !isFit(function)) {
        (this->*function)();
      }
    }
  }

 private:
  using Function = void (Calls::*)();
  static bool isFit(const Function function) {
    return function == &Calls::uniOptimization || function == &Calls::fatiguePwOpti;
  }

  /// What the engine remembers is as at its start, so that an input does the same every time.
  void reset() {
    const double error = 1e-3;
    for (const std::int32_t kind : {2, 3}) {
      for (const std::int32_t selector : {1, 2}) {
        SETMAXERROR(&kind, &selector, &error);
      }
    }
    SETISOFLAG(&isotropic_);
    takeWeaveAway();
  }
  static void takeWeaveAway() {
    const std::int32_t noRecords = 0;
    std::array<double, 6> row{};
    std::array<double, 6> errors{};
    std::int32_t iterations = 0;
    FATIGUE_PW_OPTI(row.data(),
                    row.data(),
                    row.data(),
                    row.data(),
                    &noRecords,
                    kSnRecords.data(),
                    row.data(),
                    row.data(),
                    row.data(),
                    row.data(),
                    errors.data(),
                    &iterations);
  }

  void setMaxError() {
    const auto kind = input_.number(std::int32_t{2});
    const auto selector = input_.number(std::int32_t{1});
    const auto error = input_.number(1e-3);
    SETMAXERROR(&kind, &selector, &error);
  }

  void setIsoFlag() {
    isotropic_ = input_.number(std::int32_t{1});
    SETISOFLAG(&isotropic_);
  }

  void uniOptimization() {
    const auto fraction = input_.number(0.6);
    Guarded<double> lamina(input_.numbers(kLamina));
    Guarded<double> fiber(input_.numbers(kFiber));
    Guarded<double> matrix(input_.numbers(kMatrix));
    const auto temperature = input_.number(296.15);
    const auto strengths = input_.numbers(kStrengths);
    const auto sn = counted(input_, kSnRecords, 5);
    Guarded<double> rows(input_.numbers(Twelve{}));
    Summary summary;
    UNI_OPTIMIZATION(&fraction,
                     lamina.data(),
                     fiber.data(),
                     matrix.data(),
                     &temperature,
                     &sn.count,
                     sn.values.data(),
                     rows.data(),
                     rows.data() + 6,
                     strengths.data(),
                     summary.errors.data(),
                     summary.iterations.data());
    require(areFinite(rows), "fatigue constants are finite");
    summary.requireTwoFits();
  }

  void prefail() {
    const auto fraction = input_.number(0.6);
    const auto strength = input_.number(7.9e7);
    auto stress = counted(input_, kStress, 1);
    auto strain = input_.numbers(kStrain);
    strain.resize(stress.values.size(), 0.04);
    const auto matrix = input_.numbers(kMatrix);
    const auto fiber = input_.numbers(kFiber);
    const auto lamina = input_.numbers(kLamina);
    Prefail out;
    PREFAIL(&fraction,
            matrix.data(),
            fiber.data(),
            lamina.data(),
            &strength,
            stress.values.data(),
            strain.data(),
            &stress.count,
            out.m.data(),
            out.b.data(),
            out.thr.data(),
            out.c2mdeg.data(),
            out.failed.data(),
            out.code.data());
    out.requireAnswer();
  }

  void weaveOptimization() {
    const Weave weave(input_);
    const auto startFiber = input_.numbers(kFiber);
    const auto startMatrix = input_.numbers(kMatrix);
    Guarded<double> lamina(input_.numbers(kWovenLamina));
    Guarded<double> fiber(startFiber);
    Guarded<double> matrix(startMatrix);
    const auto zero = input_.number(std::int32_t{0});
    const auto satin = input_.number(std::int32_t{0});
    if (!weave.isToCall(startFiber, startMatrix, isotropic_ != 0)) {
      return;
    }
    Summary summary;
    WEAVE_OPTIMIZATION(&weave.harness,
                       weave.towFractions.data(),
                       &weave.fiberFraction,
                       lamina.data(),
                       fiber.data(),
                       matrix.data(),
                       summary.errors.data(),
                       summary.iterations.data(),
                       "DUMB",
                       "",
                       "DUMB",
                       &zero,
                       &satin);
    summary.requireTwoFits();
  }

  void weavePrefail() {
    const Weave weave(input_);
    const auto strength = input_.number(7.9e7);
    auto stress = counted(input_, kStress, 1);
    auto strain = input_.numbers(kStrain);
    strain.resize(stress.values.size(), 0.04);
    const auto matrix = input_.numbers(kMatrix);
    const auto fiber = input_.numbers(kFiber);
    const auto lamina = input_.numbers(kWovenLamina);
    const auto satin = input_.number(std::int32_t{0});
    if (!weave.isToCall(fiber, matrix, isotropic_ != 0)) {
      return;
    }
    Prefail out;
    WEAVE_PREFAIL(&weave.harness,
                  weave.towFractions.data(),
                  &weave.fiberFraction,
                  matrix.data(),
                  fiber.data(),
                  lamina.data(),
                  &strength,
                  stress.values.data(),
                  strain.data(),
                  "",
                  &stress.count,
                  out.m.data(),
                  out.b.data(),
                  out.thr.data(),
                  out.c2mdeg.data(),
                  out.failed.data(),
                  out.code.data(),
                  &satin);
    out.requireAnswer();
  }

  void weaveDamageState() {
    constexpr std::size_t kSlot = 84;
    Guarded<std::int32_t> codes({input_.number(std::int32_t{0}),
                                 input_.number(std::int32_t{1}),
                                 input_.number(std::int32_t{2})});
    const Weave weave(input_);
    const auto fiberDegradation = input_.number(0.01);
    const auto matrixDegradation = input_.number(0.1);
    const auto fiber = input_.numbers(kFiber);
    const auto matrix = input_.numbers(kMatrix);
    const auto snCount = input_.number(std::int32_t{0});
    const auto zero = input_.number(std::int32_t{0});
    const auto satin = input_.number(std::int32_t{0});
    if (!weave.isToCall(fiber, matrix, isotropic_ != 0)) {
      return;
    }
    std::array<Guarded<double>, 8> sets{Guarded<double>(12),
                                        Guarded<double>(12),
                                        Guarded<double>(12),
                                        Guarded<double>(12),
                                        Guarded<double>(12),
                                        Guarded<double>(12),
                                        Guarded<double>(12),
                                        Guarded<double>(12)};
    Guarded<double> unitCell(4 * kSlot);
    Guarded<double> fillBlock(2 * kSlot);
    Guarded<double> warpBlock(2 * kSlot);
    WEAVE_DAMAGE_STATE(&codes[0],
                       &codes[1],
                       &codes[2],
                       &weave.harness,
                       weave.towFractions.data(),
                       &weave.fiberFraction,
                       fiber.data(),
                       matrix.data(),
                       &fiberDegradation,
                       &matrixDegradation,
                       sets[0].data(),
                       sets[1].data(),
                       sets[2].data(),
                       sets[3].data(),
                       sets[4].data(),
                       sets[5].data(),
                       sets[6].data(),
                       sets[7].data(),
                       unitCell.data(),
                       fillBlock.data(),
                       warpBlock.data(),
                       &snCount,
                       "DUMB",
                       "",
                       "DUMB",
                       &zero,
                       &satin);
    for (auto& set : sets) {
      require(areFinite(set), "the properties of a damage state are finite");
    }
    require(areFinite(unitCell) && areFinite(fillBlock) && areFinite(warpBlock),
            "concentrations are finite");
  }

  void fatDcmpProps() {
    const auto state = input_.number(std::int32_t{1});
    const auto unitCell = block(4);
    const auto fillBlock = block(2);
    const auto warpBlock = block(2);
    const std::vector<double> set(kFiber.begin(), kFiber.end());
    const std::vector<std::int32_t> record{state, 0, 0, 0};
    FAT_DCMP_PROPS(set.data(),
                   set.data(),
                   set.data(),
                   set.data(),
                   set.data(),
                   set.data(),
                   set.data(),
                   set.data(),
                   unitCell.data(),
                   fillBlock.data(),
                   warpBlock.data(),
                   record.data());
  }

  void fatiguePwOpti() {
    const auto temperature = input_.number(296.15);
    const auto strengths = input_.numbers(kStrengths);
    const Weave weave(input_);
    const auto sn = counted(input_, kSnRecords, 5);
    Guarded<double> row1(6), row2(6), row3(6), row4(6);
    Summary summary;
    FATIGUE_PW_OPTI(row1.data(),
                    row2.data(),
                    row3.data(),
                    row4.data(),
                    &sn.count,
                    sn.values.data(),
                    &temperature,
                    strengths.data(),
                    weave.towFractions.data(),
                    &weave.fiberFraction,
                    summary.errors.data(),
                    summary.iterations.data());
    require(areFinite(row1) && areFinite(row2) && areFinite(row3) && areFinite(row4),
            "fatigue constants are finite");
    require(summary.errors[4] >= 0.0 && summary.errors[5] >= 0.0 && summary.iterations[0] >= 0,
            "fatigue errors are no less than zero");
    require(summary.errors[0] == -7.0 && summary.errors[3] == -7.0 && summary.iterations[1] == -7,
            "the errors and iterations of other fits are left alone");
  }

  void insituStatus() {
    Guarded<std::int32_t> iteration(1);
    Guarded<double> error(1);
    require(INSITU_STATUS(iteration.data(), error.data()) == 0, "the status is worth asking for");
    require(iteration[0] >= -1 && error[0] >= 0.0, "the status is an iteration and its error");
  }

  void getDefProps() {
    const auto system = input_.number(std::int32_t{1});
    Guarded<double> fiber(12), matrix(12), value(1), block(1);
    FHT_GETDEFPROPS(&system, fiber.data(), matrix.data(), value.data(), block.data());
    require(areFinite(fiber) && areFinite(matrix) && areFinite(value) && areFinite(block),
            "default properties are finite");
  }

  /// Slots of a decomposition whose stress concentration is the identity but for what the input
  /// replaces of its first column.
  std::vector<double> block(const std::size_t slots) {
    constexpr std::size_t kSlot = 84;
    std::vector<double> values(slots * kSlot, 0.0);
    for (std::size_t slot = 0; slot < slots; ++slot) {
      for (std::size_t row = 0; row < 6; ++row) {
        values[slot * kSlot + 7 * row] = 1.0;
      }
      for (std::size_t i = 0; i < 12; ++i) {
        double& value = values[slot * kSlot + i];
        value = input_.number(value);
      }
    }
    return values;
  }

  CallInput& input_;
  std::int32_t isotropic_ = 0;
};

}  // namespace
}  // namespace lamcraft::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* const data, const std::size_t size) {
  lamcraft::fuzz::CallInput input(data, size);
  lamcraft::fuzz::Calls(input).run();
  return 0;
}
