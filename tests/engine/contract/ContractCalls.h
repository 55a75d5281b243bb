// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_TESTS_CONTRACT_CONTRACTCALLS_H
#define KX_TESTS_CONTRACT_CONTRACTCALLS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "contract/Argument.h"
#include "lamcraft/kxdriver.h"

/// The longer argument lists of lamcraft/kxdriver.h: a structure for each function, with members
/// that are named and sized as the arguments are there, and `run`, which calls it with them.
namespace kx::test {

/// Stress, cycles, frequency, angle, ratio.
using SnRow = std::array<double, 5>;

struct UniOptimization {
  double fiberVolumeFraction = 0.0;
  Out<double, 12> lamina, fiber, matrix;
  double temperature = 0.0;
  std::int32_t snCount = 0;
  std::vector<SnRow> sn;
  Out<double, 12> fatigueRows;  // longitudinal, then transverse
  In<double, 6> strengths;
  Out<double, 6> errors;
  Out<std::int32_t, 3> iterations;

  void run();
};

/// What both kinds of prefail share.
struct ShearReduction {
  In<double, 12> matrix, fiber, lamina;
  double shearStrength = 0.0;
  std::vector<double> stress, strain;
  std::int32_t pointCount = 0;
  Out<double> m, b, thr;
  Out<double, 3> c2mdeg;
  Out<std::int32_t> failed, code;
};

struct Prefail : ShearReduction {
  double fiberVolumeFraction = 0.0;

  void run();
};

/// The arguments that tell of a weave. "DUMB" is no text.
struct Weave {
  std::int32_t harness = 1;
  In<double, 2> towFractions;
  double fiberFractionInTow = 0.0;
  const char *text1 = "DUMB", *folder = "DUMB", *text3 = "DUMB";
  std::int32_t zero = 0, satin = 0;
};

struct WeaveOptimization {
  Weave weave;
  Out<double, 12> lamina, fiber, matrix;
  Out<double, 6> errors;
  Out<std::int32_t, 3> iterations;

  void run();
};

struct WeavePrefail : ShearReduction {
  Weave weave;

  void run();
};

struct WeaveDamageState {
  Out<std::int32_t> pocketCode, fillCode, warpCode;
  Weave weave;
  In<double, 12> fiber, matrix;
  double fiberDegradation = -1.0, matrixDegradation = -1.0;
  Out<double, 12> composite, matrixPocket, fill, warp, fillFiber, fillMatrix, warpFiber, warpMatrix;
  Out<double, KX_CELL_BLOCK_LENGTH> unitCellBlock;
  Out<double, KX_TOW_BLOCK_LENGTH> fillBlock, warpBlock;
  std::int32_t snCount = 0;

  void run();
};

struct FatDcmpProps {
  std::array<In<double, 12>, KX_SET_COUNT - 1> sets;
  In<double, KX_CELL_BLOCK_LENGTH> unitCellBlock;
  In<double, KX_TOW_BLOCK_LENGTH> fillBlock, warpBlock;
  In<std::int32_t, 4> record;  // state number, three codes

  void run() const;
};

struct FatiguePwOpti {
  std::array<Out<double, 6>, 4> rows;
  std::int32_t snCount = 0;
  std::vector<SnRow> sn;
  double temperature = 0.0;
  In<double, 6> strengths;
  In<double, 2> towFractions;
  double fiberFractionInTow = 0.0;
  Out<double, 6> errors;
  Out<std::int32_t> iterations;

  void run();
};

}  // namespace kx::test

#endif
