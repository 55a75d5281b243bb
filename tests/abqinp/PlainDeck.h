// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_ABQINP_PLAINDECK_H
#define LAMCRAFT_TESTS_ABQINP_PLAINDECK_H

#include <map>
#include <string>
#include <vector>

/// The deck's grammar carried out word for word, without a thought for speed or memory: blocks in
/// one array, each value a string, keywords searched, copied and erased. The reader must agree.
struct PlainBlock {
  std::string name;
  std::string comment;
  std::map<std::string, std::string> parameters;
  std::vector<std::string> order;
  std::vector<std::vector<std::string>> lines;

  [[nodiscard]] std::string toText(bool inWrittenOrder) const;
};

std::vector<PlainBlock> plainBlocks(const std::string& deck);

#endif
