// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_SUPPORT_UNIDECK_H
#define LAMCRAFT_TESTS_SUPPORT_UNIDECK_H

#include <string>

namespace lamcraft::test {

/// The parts of a small unidirectional deck that runs to its end; a test changes one of them.
struct UniDeck {
  std::string material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=PLY\n1\n";
  std::string solve = {};
  std::string matrix = "*MATRIX, LAW=ISO\n4.2e9, 0.34, 45e-6\n";
  std::string more = {};

  [[nodiscard]] std::string text() const {
    return material + solve +
           "*FVF\n0.6\n"
           "*ENVIRONMENT, MOISTURE=DRY, TEMPERATURE=296\n"
           "*LAMINA\n126e9, 11e9, 0.28, 0.4, 6.6e9, -1e-6, 26e-6\n"
           "*FIBER\n225e9, 15e9, 0.2, 0.07, 15e9, -5e-7, 15e-6\n" +
           matrix + "*STRENGTHS\n1950e6, 1480e6, 48e6, 200e6, 79e6, 55e6\n" + more;
  }
};

}  // namespace lamcraft::test

#endif
