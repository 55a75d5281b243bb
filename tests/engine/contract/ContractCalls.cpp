// SPDX-License-Identifier: BSD-3-Clause
#include "contract/ContractCalls.h"

#include "lamcraft/kxdriver.h"

namespace kx::test {
namespace {

const double* firstOf(const std::vector<SnRow>& rows) {
  return rows.empty() ? nullptr : rows.front().data();
}

}  // namespace

void UniOptimization::run() {
  UNI_OPTIMIZATION(&fiberVolumeFraction,
                   lamina.data(),
                   fiber.data(),
                   matrix.data(),
                   &temperature,
                   &snCount,
                   firstOf(sn),
                   fatigueRows.data(),
                   fatigueRows.data() + fatigueRows.size() / 2,
                   strengths.data(),
                   errors.data(),
                   iterations.data());
}

void Prefail::run() {
  PREFAIL(&fiberVolumeFraction,
          matrix.data(),
          fiber.data(),
          lamina.data(),
          &shearStrength,
          stress.data(),
          strain.data(),
          &pointCount,
          m.data(),
          b.data(),
          thr.data(),
          c2mdeg.data(),
          failed.data(),
          code.data());
}

void WeaveOptimization::run() {
  WEAVE_OPTIMIZATION(&weave.harness,
                     weave.towFractions.data(),
                     &weave.fiberFractionInTow,
                     lamina.data(),
                     fiber.data(),
                     matrix.data(),
                     errors.data(),
                     iterations.data(),
                     weave.text1,
                     weave.folder,
                     weave.text3,
                     &weave.zero,
                     &weave.satin);
}

void WeavePrefail::run() {
  WEAVE_PREFAIL(&weave.harness,
                weave.towFractions.data(),
                &weave.fiberFractionInTow,
                matrix.data(),
                fiber.data(),
                lamina.data(),
                &shearStrength,
                stress.data(),
                strain.data(),
                weave.folder,
                &pointCount,
                m.data(),
                b.data(),
                thr.data(),
                c2mdeg.data(),
                failed.data(),
                code.data(),
                &weave.satin);
}

void WeaveDamageState::run() {
  WEAVE_DAMAGE_STATE(pocketCode.data(),
                     fillCode.data(),
                     warpCode.data(),
                     &weave.harness,
                     weave.towFractions.data(),
                     &weave.fiberFractionInTow,
                     fiber.data(),
                     matrix.data(),
                     &fiberDegradation,
                     &matrixDegradation,
                     composite.data(),
                     matrixPocket.data(),
                     fill.data(),
                     warp.data(),
                     fillFiber.data(),
                     fillMatrix.data(),
                     warpFiber.data(),
                     warpMatrix.data(),
                     unitCellBlock.data(),
                     fillBlock.data(),
                     warpBlock.data(),
                     &snCount,
                     weave.text1,
                     weave.folder,
                     weave.text3,
                     &weave.zero,
                     &weave.satin);
}

void FatDcmpProps::run() const {
  const auto& [composite, pocket, fill, warp, fillFiber, fillMatrix, warpFiber, warpMatrix] = sets;
  FAT_DCMP_PROPS(composite.data(),
                 pocket.data(),
                 fill.data(),
                 warp.data(),
                 fillFiber.data(),
                 fillMatrix.data(),
                 warpFiber.data(),
                 warpMatrix.data(),
                 unitCellBlock.data(),
                 fillBlock.data(),
                 warpBlock.data(),
                 record.data());
}

void FatiguePwOpti::run() {
  auto& [row1, row2, row3, row4] = rows;
  FATIGUE_PW_OPTI(row1.data(),
                  row2.data(),
                  row3.data(),
                  row4.data(),
                  &snCount,
                  firstOf(sn),
                  &temperature,
                  strengths.data(),
                  towFractions.data(),
                  &fiberFractionInTow,
                  errors.data(),
                  iterations.data());
}

}  // namespace kx::test
