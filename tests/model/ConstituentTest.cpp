// SPDX-License-Identifier: BSD-3-Clause
#include "model/Constituent.h"

#include <memory>
#include <string>

#include <type_traits>

#include <gtest/gtest.h>

#include "model/support/TestComposite.h"

namespace lamcraft {
namespace {

TEST(Constituent, StartsWithoutVolumeAndWithoutDegradation) {
  const Constituent matrix(1, "matrix", "epoxy");
  EXPECT_EQ(matrix.number(), 1);
  EXPECT_EQ(matrix.name(), "matrix");
  EXPECT_EQ(matrix.type(), "epoxy");
  EXPECT_EQ(matrix.volumeFraction.value(), 0.0);
  EXPECT_FALSE(matrix.volumeFraction.isVaried());
  EXPECT_EQ(matrix.degradation, -1.0);
  EXPECT_TRUE(matrix.children().empty());
}

TEST(ParentCons, KeepsChildrenInOrder) {
  ParentCons tow(2, "fill", "composite");
  const Constituent& first = tow.add(phase(1, "fill_matrix", "epoxy"));
  const Constituent& second = tow.add(phase(2, "fill_fiber", "carbon"));
  ASSERT_EQ(tow.children().size(), 2U);
  EXPECT_EQ(tow.children()[0], &first);
  EXPECT_EQ(tow.children()[1], &second);
}

TEST(ParentCons, FindsChildrenAndTheirChildren) {
  const auto weave = testWeave(1);
  for (const char* const name : {constituents::kMatrixPocket,
                                 constituents::kFill,
                                 constituents::kFillMatrix,
                                 constituents::kFillFiber,
                                 constituents::kWarp,
                                 constituents::kWarpMatrix,
                                 constituents::kWarpFiber,
                                 constituents::kInterface}) {
    ASSERT_NE(weave->find(name), nullptr) << name;
    EXPECT_EQ(weave->find(name)->name(), name);
    EXPECT_EQ(&weave->get(name), weave->find(name));
  }
}

TEST(ParentCons, HandsOutItsChildrenForReadingWhenItIsConst) {
  const auto weave = testWeave(1);
  const ParentCons& constant = *weave;
  static_assert(std::is_same_v<decltype(constant.get("fill")), const Constituent&>);
  static_assert(std::is_same_v<decltype(constant.find("fill")), const Constituent*>);
  EXPECT_EQ(&constant.get("fill_fiber"), &weave->get("fill_fiber"));
}

TEST(ParentCons, FindsOnlyTheWholeName) {
  const auto weave = testWeave(1);
  for (const char* const name : {"", "matrix", "fiber", "fill_", "Fill", "fill_fibers", "warp "}) {
    EXPECT_EQ(weave->find(name), nullptr) << name;
  }
}

struct Counted : Constituent {
  explicit Counted(int& destroyedSoFar) : Constituent(1, "x", ""), destroyed(destroyedSoFar) {}
  ~Counted() override { ++destroyed; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  int& destroyed;
};

TEST(ParentCons, TakesItsChildrenAlong) {
  int destroyed = 0;
  {
    auto tow = std::make_unique<ParentCons>(2, "tow", "");
    tow->add(std::make_unique<Counted>(destroyed));
    tow->add(std::make_unique<Counted>(destroyed));
    const std::unique_ptr<Constituent> asConstituent = std::move(tow);
    EXPECT_EQ(destroyed, 0);
  }
  EXPECT_EQ(destroyed, 2);
}

TEST(ReportedCount, IsTheNumberOfChildrenButForNoneAndFour) {
  constexpr std::int32_t kReported[] = {1, 1, 2, 3, 3, 5};
  ParentCons parent(1, "parent", "");
  for (const std::int32_t expected : kReported) {
    EXPECT_EQ(reportedCount(parent), expected) << parent.children().size() << " children";
    parent.add(phase(1, "child", ""));
  }
}

TEST(ReportedCount, OfTheModels) {
  EXPECT_EQ(reportedCount(*testUni()), 2);
  const auto weave = testWeave(5);
  EXPECT_EQ(reportedCount(*weave), 3);
  EXPECT_EQ(reportedCount(weave->get("fill")), 2);
  EXPECT_EQ(reportedCount(weave->get("fill_fiber")), 1);
  EXPECT_EQ(reportedCount(weave->get("interface")), 1);
}

}  // namespace
}  // namespace lamcraft
