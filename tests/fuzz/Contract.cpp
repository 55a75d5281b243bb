// SPDX-License-Identifier: BSD-3-Clause
// The engine's C contract: any bits as the numbers of any sequence of its eleven functions. No call
// crashes, loops, writes beside its outputs, or answers otherwise than the engine promises.
//
// A call that solves a woven ply takes seconds. LAMCRAFT_FUZZ_WEAVES makes a target of its own from
// this source that makes such calls; without it they are passed over.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "contract/ContractCalls.h"
#include "fuzz/CallInput.h"
#include "fuzz/Promises.h"
#include "fuzz/Target.h"
#include "lamcraft/kxdriver.h"

namespace lamcraft::fuzz {
namespace {

constexpr bool kSolvesWeaves = LAMCRAFT_FUZZ_WEAVES;

namespace test = kx::test;
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
constexpr std::array<test::SnRow, 6> kSnRecords{{{1.4e9, 1e3, 5, 0, 0.1},
                                                 {1.25e9, 3e4, 5, 0, 0.1},
                                                 {1.1e9, 1e6, 5, 0, 0.1},
                                                 {3.8e7, 1e3, 5, 90, 0.1},
                                                 {3.3e7, 4e4, 5, 90, 0.1},
                                                 {2.8e7, 1e6, 5, 90, 0.1}}};
constexpr std::array<double, 10> kStress{8e6, 16e6, 24e6, 32e6, 40e6, 48e6, 56e6, 64e6, 72e6, 80e6};
constexpr std::array<double, 10> kStrain{
    0.0016, 0.0033, 0.0052, 0.0074, 0.0099, 0.0129, 0.0165, 0.0207, 0.0256, 0.0314};

/// A slot of a decomposition: of its concentrations that of stress, the identity.
constexpr std::array<double, KX_SLOT_LENGTH> identitySlot() {
  std::array<double, KX_SLOT_LENGTH> slot{};
  for (std::size_t row = 0; row < 6; ++row) {
    slot[KX_SLOT_STRESS + 7 * row] = 1.0;
  }
  return slot;
}

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
  static void takeWeaveAway() { test::FatiguePwOpti().run(); }

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
    test::UniOptimization call;
    call.fiberVolumeFraction = input_.number(0.6);
    call.lamina = input_.numbers(kLamina);
    call.fiber = input_.numbers(kFiber);
    call.matrix = input_.numbers(kMatrix);
    call.temperature = input_.number(296.15);
    call.strengths = input_.numbers(kStrengths);
    call.snCount = drawRows(kSnRecords, call.sn);
    call.fatigueRows = input_.numbers(Twelve{});
    const auto before = call;
    call.run();
    requirePromised(before, call, isFlagged());
  }

  void prefail() {
    test::Prefail call;
    call.fiberVolumeFraction = input_.number(0.6);
    drawCurve(kLamina, call);
    call.run();
    requirePromised(call);
  }

  void weaveOptimization() {
    test::WeaveOptimization call;
    drawWeave(call.weave);
    call.fiber = input_.numbers(kFiber);
    call.matrix = input_.numbers(kMatrix);
    call.lamina = input_.numbers(kWovenLamina);
    drawRest(call.weave);
    if (isToCall(call)) {
      const auto before = call;
      call.run();
      isNoted_ = false;
      requirePromised(before, call, isFlagged());
    }
  }

  void weavePrefail() {
    test::WeavePrefail call;
    drawWeave(call.weave);
    drawCurve(kWovenLamina, call);
    drawRest(call.weave);
    if (isToCall(call)) {
      call.run();
      requirePromised(call);
    }
  }

  void weaveDamageState() {
    test::WeaveDamageState call;
    call.pocketCode.value() = input_.number(std::int32_t{0});
    call.fillCode.value() = input_.number(std::int32_t{1});
    call.warpCode.value() = input_.number(std::int32_t{2});
    drawWeave(call.weave);
    call.fiberDegradation = input_.number(0.01);
    call.matrixDegradation = input_.number(0.1);
    call.fiber = input_.numbers(kFiber);
    call.matrix = input_.numbers(kMatrix);
    call.snCount = input_.number(std::int32_t{0});
    drawRest(call.weave);
    if (isToCall(call)) {
      const auto before = call;
      call.run();
      requirePromised(before, call, isFlagged());
    }
  }

  /// Its only answer is that of the fatigue fit after it.
  void fatDcmpProps() {
    constexpr std::int32_t kIntact = 1;
    test::FatDcmpProps call;
    for (std::int32_t& word : call.record) {
      word = input_.number(&word == call.record.begin() ? kIntact : 0);
    }
    drawBlock(call.unitCellBlock);
    drawBlock(call.fillBlock);
    drawBlock(call.warpBlock);
    for (auto& set : call.sets) {
      set = input_.manyNumbers(kFiber);
    }
    call.run();
    isNoted_ = isNoted_ || call.record[0] == kIntact;
  }

  void fatiguePwOpti() {
    test::FatiguePwOpti call;
    call.temperature = input_.number(296.15);
    call.strengths = input_.numbers(kStrengths);
    test::Weave weave;
    drawWeave(weave);
    call.towFractions = weave.towFractions;
    call.fiberFractionInTow = weave.fiberFractionInTow;
    call.snCount = drawRows(kSnRecords, call.sn);
    for (auto& row : call.rows) {
      row = input_.numbers(std::array<double, 6>{});
    }
    call.run();
    requirePromised(call, isNoted_);
    isNoted_ = false;
  }

  void insituStatus() {
    test::Out<std::int32_t> iteration;
    test::Out<double> error;
    require(INSITU_STATUS(iteration.data(), error.data()) == 0, "the status is worth asking for");
    require(iteration.value() >= lastIteration_ && error.value() >= 0.0,
            "the status is an iteration, which never goes back, and its error");
    lastIteration_ = iteration.value();
  }

  void getDefProps() {
    const auto system = input_.number(std::int32_t{1});
    test::Out<double, 12> fiber, matrix;
    test::Out<double> value, block;
    FHT_GETDEFPROPS(&system, fiber.data(), matrix.data(), value.data(), block.data());
    requireDefaults(system, fiber, matrix);
    require(value.value() == 0.0 && block.value() == 0.0, "nothing else has defaults");
  }

  [[nodiscard]] bool isFlagged() const { return isotropic_ != 0; }

  /// Whether a call with a weave may be made: none that would be solved, unless asked for.
  template <typename Call>
  [[nodiscard]] bool isToCall(const Call& call) const {
    return kSolvesWeaves || !makesAPly(call.weave,
                                       kx::propertiesFrom(call.fiber.data()),
                                       kx::propertiesFrom(call.matrix.data()),
                                       isFlagged());
  }

  void drawWeave(test::Weave& weave) {
    constexpr std::int32_t kNoHarness = 3;
    weave.harness = input_.number(kSolvesWeaves ? 1 : kNoHarness);
    weave.towFractions = input_.numbers(std::array<double, 2>{0.36, 0.36});
    weave.fiberFractionInTow = input_.number(0.7);
  }
  /// What a call with a weave has behind the materials; the texts live until the next call.
  void drawRest(test::Weave& weave) {
    weave.zero = input_.number(std::int32_t{0});
    weave.satin = input_.number(std::int32_t{0});
    for (auto& text : texts_) {
      text = input_.text(&text == &texts_[1] ? "" : "DUMB");
    }
    weave.text1 = texts_[0].data();
    weave.folder = texts_[1].data();
    weave.text3 = texts_[2].data();
  }

  void drawCurve(const Twelve& usualLamina, test::ShearReduction& call) {
    call.shearStrength = input_.number(7.9e7);
    call.pointCount = drawRows(kStress, call.stress);
    fillRows(kStrain, call.stress.size(), call.strain);
    call.matrix = input_.numbers(kMatrix);
    call.fiber = input_.numbers(kFiber);
    call.lamina = input_.numbers(usualLamina);
  }

  /// Answers a count, which is any number, and gives `rows` as many: none for one that is negative
  /// or absurd. Others are brought down to what a moment can fit; one in eight to more than the
  /// engine fits.
  template <typename Row, std::size_t usualCount>
  std::int32_t drawRows(const std::array<Row, usualCount>& usual, std::vector<Row>& rows) {
    constexpr std::int32_t kFew = 48;
    constexpr std::int32_t kMany = 600;
    constexpr std::int32_t kAbsurd = 1 << 24;
    auto count = input_.number(static_cast<std::int32_t>(usualCount));
    if (count > kFew && count <= kAbsurd) {
      count %= count % 8 == 0 ? kMany : kFew;
    }
    fillRows(usual, static_cast<std::size_t>(count > 0 && count <= kMany ? count : 0), rows);
    return count;
  }
  template <typename Row, std::size_t usualCount>
  void fillRows(const std::array<Row, usualCount>& usual,
                const std::size_t count,
                std::vector<Row>& rows) {
    rows.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
      rows[i] = drawn(usual[i % usualCount]);
    }
  }
  double drawn(const double usual) { return input_.number(usual); }
  test::SnRow drawn(test::SnRow row) {
    for (double& number : row) {
      number = input_.number(number);
    }
    return row;
  }

  template <typename Block>
  void drawBlock(Block& block) {
    constexpr auto kUsual = identitySlot();
    for (std::size_t slot = 0; slot < block.size(); slot += KX_SLOT_LENGTH) {
      const auto numbers = input_.manyNumbers(kUsual);
      std::copy(numbers.begin(), numbers.end(), block.begin() + slot);
    }
  }

  CallInput& input_;
  std::array<std::vector<char>, 3> texts_;
  std::int32_t isotropic_ = 0;
  std::int32_t lastIteration_ = -1;
  bool isNoted_ = false;  // an intact weave, for the next fatigue fit of one
};

}  // namespace
}  // namespace lamcraft::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* const data, const std::size_t size) {
  lamcraft::fuzz::CallInput input(data, size);
  lamcraft::fuzz::Calls(input).run();
  return 0;
}
