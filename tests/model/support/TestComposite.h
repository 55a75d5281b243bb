// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_MODEL_SUPPORT_TESTCOMPOSITE_H
#define LAMCRAFT_TESTS_MODEL_SUPPORT_TESTCOMPOSITE_H

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>

#include "model/Composite.h"

namespace lamcraft {

/// A composite that is neither solved nor written by itself.
class TestComposite : public Composite {
 public:
  bool validate(std::ostream&) const override { return true; }
  int solve(const std::string&) override { return 0; }
  bool write(const std::string&, DataFile) const override { return true; }
  [[nodiscard]] std::int32_t harness() const noexcept override { return harnessNumber; }

  std::int32_t harnessNumber = 0;
};

inline std::unique_ptr<Constituent> phase(const std::int32_t number,
                                          const char* const name,
                                          const char* const type) {
  return std::make_unique<Constituent>(number, name, type);
}

/// Matrix and fiber of a unidirectional composite.
inline std::unique_ptr<TestComposite> testUni() {
  auto composite = std::make_unique<TestComposite>();
  composite->add(phase(1, constituents::kMatrix, "epoxy"));
  composite->add(phase(2, constituents::kFiber, "carbon"));
  return composite;
}

/// Matrix pocket, tows and interface of a weave.
inline std::unique_ptr<TestComposite> testWeave(const std::int32_t harness) {
  auto composite = std::make_unique<TestComposite>();
  composite->harnessNumber = harness;
  composite->add(phase(1, constituents::kMatrixPocket, "epoxy"));
  auto fill = std::make_unique<ParentCons>(2, constituents::kFill, "composite");
  fill->add(phase(1, constituents::kFillMatrix, "epoxy"));
  fill->add(phase(2, constituents::kFillFiber, "carbon"));
  composite->add(std::move(fill));
  auto warp = std::make_unique<ParentCons>(3, constituents::kWarp, "composite");
  warp->add(phase(1, constituents::kWarpMatrix, "epoxy"));
  warp->add(phase(2, constituents::kWarpFiber, "carbon"));
  composite->add(std::move(warp));
  composite->add(phase(4, constituents::kInterface, "composite"));
  return composite;
}

}  // namespace lamcraft

#endif
