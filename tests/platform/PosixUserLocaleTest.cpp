// SPDX-License-Identifier: BSD-3-Clause
#include "platform/UserLocale.h"

#include <cstdlib>
#include <stdexcept>

#include <gtest/gtest.h>

namespace lamcraft::platform {
namespace {

/// Runs each test under a locale of its own choice and gives the tester's back.
class PosixUserLocale : public testing::Test {
 protected:
  void SetUp() override {
    if (const char* all = std::getenv("LC_ALL")) {
      previous_ = all;
    }
  }
  void TearDown() override { choose(previous_); }

  static void choose(const std::string& name) {
    if (name.empty()) {
      unsetenv("LC_ALL");
    } else {
      setenv("LC_ALL", name.c_str(), 1);
    }
  }

 private:
  std::string previous_;
};

TEST_F(PosixUserLocale, NameIsTheStandardLibrarys) {
  for (const char* name : {"C", "en_US.UTF-8", "de_DE.UTF-8", "de_DE.utf8"}) {
    choose(name);
    EXPECT_EQ(userLocaleName(), name);
    EXPECT_EQ(userLocale().name(), name);
  }
}

TEST_F(PosixUserLocale, LocaleThatIsNotInstalledHasABadName) {
  choose("xx_XX.UTF-8");
  const auto textOf = [](auto&& call) -> std::string {
    try {
      call();
      return "no exception";
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  };
  EXPECT_EQ(textOf([] { userLocale(); }), "bad locale name");
  EXPECT_EQ(textOf([] { userLocaleName(); }), "bad locale name");
}

}  // namespace
}  // namespace lamcraft::platform
