// SPDX-License-Identifier: BSD-3-Clause
#include "material/WholeFile.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamcraft {
namespace {

namespace fs = std::filesystem;
using test::contentOf;

class WholeFile : public testing::Test {
 protected:
  /// Writes "new", and notes where.
  FileWriter writer() {
    return [this](const std::string& place) {
      places_ += fs::path(place).filename().string() + " ";
      std::ofstream(place, std::ios::binary) << "new";
      return true;
    };
  }

  test::TemporaryFolder folder_;
  std::string path_ = folder_.file("mdata.xml");
  std::string places_;
};

TEST_F(WholeFile, IsWrittenAsAPartThatTakesTheName) {
  EXPECT_TRUE(writeWhole(path_, writer()));
  EXPECT_EQ(places_, "mdata.xml.part ");
  EXPECT_EQ(contentOf(path_), "new");
  EXPECT_FALSE(fs::exists(path_ + ".part"));
}

TEST_F(WholeFile, TakesThePlaceOfTheOldOne) {
  folder_.write("mdata.xml", "what was there before, and was longer");
  EXPECT_TRUE(writeWhole(path_, writer()));
  EXPECT_EQ(contentOf(path_), "new");
}

TEST_F(WholeFile, LeavesTheOldOneWhenItCannotBeWritten) {
  folder_.write("mdata.xml", "old");
  EXPECT_FALSE(writeWhole(path_, [](const std::string& place) {
    std::ofstream(place) << "half of it";
    return false;
  }));
  EXPECT_EQ(contentOf(path_), "old");
  EXPECT_FALSE(fs::exists(path_ + ".part"));
}

TEST_F(WholeFile, LeavesTheOldOneWhenItsWriterThrows) {
  folder_.write("mdata.xml", "old");
  const auto fail = [](const std::string& place) -> bool {
    throw std::runtime_error("Could not write file " + place);
  };
  EXPECT_THROW(static_cast<void>(writeWhole(path_, fail)), std::runtime_error);
  EXPECT_EQ(contentOf(path_), "old");
  EXPECT_FALSE(fs::exists(path_ + ".part"));
}

TEST_F(WholeFile, LeavesThePartsOfOthersAlone) {
  folder_.write("mdata.xml.part", "a killed run's");
  folder_.write("mdata.xml.part2", "another run's");
  EXPECT_TRUE(writeWhole(path_, writer()));
  EXPECT_EQ(places_, "mdata.xml.part3 ");
  EXPECT_EQ(contentOf(path_), "new");
  EXPECT_EQ(contentOf(path_ + ".part"), "a killed run's");
  EXPECT_EQ(contentOf(path_ + ".part2"), "another run's");
}

TEST_F(WholeFile, DoesNotTakeTheNameOfAFolder) {
  fs::create_directory(path_);
  EXPECT_FALSE(writeWhole(path_, writer()));
  EXPECT_TRUE(fs::is_directory(path_));
}

TEST_F(WholeFile, NeedsItsFolder) {
  EXPECT_FALSE(writeWhole(folder_.file("missing/mdata.xml"), writer()));
  EXPECT_EQ(places_, "");
}

}  // namespace
}  // namespace lamcraft
