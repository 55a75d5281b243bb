// SPDX-License-Identifier: BSD-3-Clause
// A micromechanics library that fits nothing: it writes down every call with all its arguments and
// fills each output with a number that no other output gets, so that tests see where every value
// goes. What it does is set by environment variables:
//   KXFAKE_LOG          file that the calls are appended to; none when unset
//   KXFAKE_ITERATION    iteration that INSITU_STATUS reports (default -1), with error 0.125
//   KXFAKE_STATUS       what INSITU_STATUS returns (default 0)
//   KXFAKE_STATUS_WAITS INSITU_STATUS answers once a fit has begun, and not before
//   KXFAKE_PREFAIL      failure code of the prefail functions (default: no failure)
//   KXFAKE_PREFAIL_FLAG their failure flag (default: 1 with a failure code, else 0)
//   KXFAKE_SLEEP_MS     how long a fit takes (default 0)
//   KXFAKE_FAULT        what a fit does wrong: "throw", "abort" or "nan", which all outputs are
//   then

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>

#include "lamcraft/kxdriver.h"

namespace {

constexpr int kRow = 6;

std::int32_t setting(const char* const name, const std::int32_t otherwise) {
  const char* const text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<std::int32_t>(std::atol(text));
}

std::string fault() {
  const char* const text = std::getenv("KXFAKE_FAULT");
  return text == nullptr ? std::string() : text;
}

/// The next of the numbers 1, 2, 3, ...: no two outputs of a run are alike.
double nextNumber() {
  static double last = 0.0;
  last += 1.0;
  return fault() == "nan" ? std::nan("") : last;
}

void fill(double* const output, const int count) {
  for (int i = 0; i < count; ++i) {
    output[i] = nextNumber();
  }
}

void fill(std::int32_t* const output, const int count) {
  for (int i = 0; i < count; ++i) {
    const double number = nextNumber();
    output[i] = std::isnan(number) ? -1 : static_cast<std::int32_t>(number);
  }
}

template <class... Outputs>
void fillEach(const int count, Outputs* const... outputs) {
  (fill(outputs, count), ...);
}

/// One call in the log: the function, then a line for each argument.
class Call {
 public:
  explicit Call(const char* const function) {
    if (const char* const path = std::getenv("KXFAKE_LOG")) {
      log_ = std::fopen(path, "a");
    }
    if (log_ != nullptr) {
      std::fprintf(log_, "%s\n", function);
    }
  }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;
  ~Call() {
    if (log_ != nullptr) {
      std::fclose(log_);
    }
  }

  Call& in(const char* const name, const double* const values, const int count = 1) {
    begin(name);
    for (int i = 0; log_ != nullptr && i < count; ++i) {
      std::fprintf(log_, " %.17g", values[i]);
    }
    return end();
  }
  Call& in(const char* const name, const std::int32_t* const value) {
    begin(name);
    if (log_ != nullptr) {
      std::fprintf(log_, " %d", static_cast<int>(*value));
    }
    return end();
  }
  Call& in(const char* const name, const char* const text) {
    begin(name);
    if (log_ != nullptr) {
      std::fprintf(log_, " \"%s\"", text);
    }
    return end();
  }

 private:
  void begin(const char* const name) {
    if (log_ != nullptr) {
      std::fprintf(log_, "  %s:", name);
    }
  }
  Call& end() {
    if (log_ != nullptr) {
      std::fputc('\n', log_);
    }
    return *this;
  }

  std::FILE* log_ = nullptr;
};

/// Whether a fit has begun in this process.
std::atomic<bool> hasFitted{false};

/// What a fit does besides fitting.
void takeTime() {
  hasFitted = true;
  if (fault() == "throw") {
    throw std::runtime_error("the library failed");
  }
  if (fault() == "abort") {
    std::abort();
  }
  std::this_thread::sleep_for(std::chrono::milliseconds(setting("KXFAKE_SLEEP_MS", 0)));
}

void answerPrefail(double* const m,
                   double* const b,
                   double* const thr,
                   double* const c2mdeg,
                   std::int32_t* const failed,
                   std::int32_t* const code) {
  fillEach(1, m, b, thr);
  fill(c2mdeg, 3);
  *code = setting("KXFAKE_PREFAIL", 0);
  *failed = setting("KXFAKE_PREFAIL_FLAG", *code != 0 ? 1 : 0);
}

}  // namespace

void SETMAXERROR(const int32_t* const compositeKind,
                 const int32_t* const selector,
                 const double* const maximumError) {
  Call("SETMAXERROR")
      .in("compositeKind", compositeKind)
      .in("selector", selector)
      .in("maximumError", maximumError);
}

void SETISOFLAG(const int32_t* const isotropic) {
  Call("SETISOFLAG").in("isotropic", isotropic);
}

void UNI_OPTIMIZATION(const double* const fiberVolumeFraction,
                      double* const lamina,
                      double* const fiber,
                      double* const matrix,
                      const double* const temperature,
                      const int32_t* const snCount,
                      const double* const sn,
                      double* const fatigueLongitudinal,
                      double* const fatigueTransverse,
                      const double* const strengths,
                      double* const errors,
                      int32_t* const iterations) {
  Call("UNI_OPTIMIZATION")
      .in("fiberVolumeFraction", fiberVolumeFraction)
      .in("lamina", lamina, KX_PROPERTY_COUNT)
      .in("fiber", fiber, KX_PROPERTY_COUNT)
      .in("matrix", matrix, KX_PROPERTY_COUNT)
      .in("temperature", temperature)
      .in("snCount", snCount)
      .in("sn", sn, 5 * *snCount)
      .in("fatigueLongitudinal", fatigueLongitudinal, kRow)
      .in("fatigueTransverse", fatigueTransverse, kRow)
      .in("strengths", strengths, kRow)
      .in("errors", errors, 6)
      .in("mechanicalIterations", &iterations[0])
      .in("thermalIterations", &iterations[1])
      .in("fatigueIterations", &iterations[2]);
  takeTime();
  for (double* const set : {lamina, fiber, matrix}) {
    fill(set, KX_PROPERTY_COUNT);
  }
  fill(fatigueLongitudinal, kRow);
  fill(fatigueTransverse, kRow);
  fill(errors, 4);
  fill(iterations, 2);
}

void PREFAIL(const double* const fiberVolumeFraction,
             const double* const matrix,
             const double* const fiber,
             const double* const lamina,
             const double* const shearStrength,
             const double* const stress,
             const double* const strain,
             const int32_t* const pointCount,
             double* const m,
             double* const b,
             double* const thr,
             double* const c2mdeg,
             int32_t* const failed,
             int32_t* const code) {
  Call("PREFAIL")
      .in("fiberVolumeFraction", fiberVolumeFraction)
      .in("matrix", matrix, KX_PROPERTY_COUNT)
      .in("fiber", fiber, KX_PROPERTY_COUNT)
      .in("lamina", lamina, KX_PROPERTY_COUNT)
      .in("shearStrength", shearStrength)
      .in("stress", stress, *pointCount)
      .in("strain", strain, *pointCount)
      .in("pointCount", pointCount)
      .in("failed", failed)
      .in("code", code);
  answerPrefail(m, b, thr, c2mdeg, failed, code);
}

void WEAVE_OPTIMIZATION(const int32_t* const harness,
                        const double* const towFractions,
                        const double* const fiberFractionInTow,
                        double* const lamina,
                        double* const fiber,
                        double* const matrix,
                        double* const errors,
                        int32_t* const iterations,
                        const char* const text1,
                        const char* const folder,
                        const char* const text3,
                        const int32_t* const zero,
                        const int32_t* const satin) {
  Call("WEAVE_OPTIMIZATION")
      .in("harness", harness)
      .in("towFractions", towFractions, 2)
      .in("fiberFractionInTow", fiberFractionInTow)
      .in("lamina", lamina, KX_PROPERTY_COUNT)
      .in("fiber", fiber, KX_PROPERTY_COUNT)
      .in("matrix", matrix, KX_PROPERTY_COUNT)
      .in("errors", errors, 6)
      .in("mechanicalIterations", &iterations[0])
      .in("thermalIterations", &iterations[1])
      .in("fatigueIterations", &iterations[2])
      .in("text1", text1)
      .in("folder", folder)
      .in("text3", text3)
      .in("zero", zero)
      .in("satin", satin);
  takeTime();
  for (double* const set : {lamina, fiber, matrix}) {
    fill(set, KX_PROPERTY_COUNT);
  }
  fill(errors, 4);
  fill(iterations, 2);
}

void WEAVE_PREFAIL(const int32_t* const harness,
                   const double* const towFractions,
                   const double* const fiberFractionInTow,
                   const double* const matrix,
                   const double* const fiber,
                   const double* const lamina,
                   const double* const shearStrength,
                   const double* const stress,
                   const double* const strain,
                   const char* const folder,
                   const int32_t* const pointCount,
                   double* const m,
                   double* const b,
                   double* const thr,
                   double* const c2mdeg,
                   int32_t* const failed,
                   int32_t* const code,
                   const int32_t* const satin) {
  Call("WEAVE_PREFAIL")
      .in("harness", harness)
      .in("towFractions", towFractions, 2)
      .in("fiberFractionInTow", fiberFractionInTow)
      .in("matrix", matrix, KX_PROPERTY_COUNT)
      .in("fiber", fiber, KX_PROPERTY_COUNT)
      .in("lamina", lamina, KX_PROPERTY_COUNT)
      .in("shearStrength", shearStrength)
      .in("stress", stress, *pointCount)
      .in("strain", strain, *pointCount)
      .in("folder", folder)
      .in("pointCount", pointCount)
      .in("failed", failed)
      .in("code", code)
      .in("satin", satin);
  answerPrefail(m, b, thr, c2mdeg, failed, code);
}

void WEAVE_DAMAGE_STATE(int32_t* const pocketCode,
                        int32_t* const fillCode,
                        int32_t* const warpCode,
                        const int32_t* const harness,
                        const double* const towFractions,
                        const double* const fiberFractionInTow,
                        const double* const fiber,
                        const double* const matrix,
                        const double* const fiberDegradation,
                        const double* const matrixDegradation,
                        double* const composite,
                        double* const matrixPocket,
                        double* const fill_,
                        double* const warp,
                        double* const fillFiber,
                        double* const fillMatrix,
                        double* const warpFiber,
                        double* const warpMatrix,
                        double* const unitCellBlock,
                        double* const fillBlock,
                        double* const warpBlock,
                        const int32_t* const snCount,
                        const char* const text1,
                        const char* const folder,
                        const char* const text3,
                        const int32_t* const zero,
                        const int32_t* const satin) {
  Call("WEAVE_DAMAGE_STATE")
      .in("pocketCode", pocketCode)
      .in("fillCode", fillCode)
      .in("warpCode", warpCode)
      .in("harness", harness)
      .in("towFractions", towFractions, 2)
      .in("fiberFractionInTow", fiberFractionInTow)
      .in("fiber", fiber, KX_PROPERTY_COUNT)
      .in("matrix", matrix, KX_PROPERTY_COUNT)
      .in("fiberDegradation", fiberDegradation)
      .in("matrixDegradation", matrixDegradation)
      .in("snCount", snCount)
      .in("text1", text1)
      .in("folder", folder)
      .in("text3", text3)
      .in("zero", zero)
      .in("satin", satin);
  fillEach(KX_PROPERTY_COUNT,
           composite,
           matrixPocket,
           fill_,
           warp,
           fillFiber,
           fillMatrix,
           warpFiber,
           warpMatrix);
  fill(unitCellBlock, KX_CELL_BLOCK_LENGTH);
  fill(fillBlock, KX_TOW_BLOCK_LENGTH);
  fill(warpBlock, KX_TOW_BLOCK_LENGTH);
}

void FAT_DCMP_PROPS(const double* const composite,
                    const double* const matrixPocket,
                    const double* const fill_,
                    const double* const warp,
                    const double* const fillFiber,
                    const double* const fillMatrix,
                    const double* const warpFiber,
                    const double* const warpMatrix,
                    const double* const unitCellBlock,
                    const double* const fillBlock,
                    const double* const warpBlock,
                    const void* const record) {
  Call("FAT_DCMP_PROPS")
      .in("composite", composite, KX_PROPERTY_COUNT)
      .in("matrixPocket", matrixPocket, KX_PROPERTY_COUNT)
      .in("fill", fill_, KX_PROPERTY_COUNT)
      .in("warp", warp, KX_PROPERTY_COUNT)
      .in("fillFiber", fillFiber, KX_PROPERTY_COUNT)
      .in("fillMatrix", fillMatrix, KX_PROPERTY_COUNT)
      .in("warpFiber", warpFiber, KX_PROPERTY_COUNT)
      .in("warpMatrix", warpMatrix, KX_PROPERTY_COUNT)
      .in("unitCellBlock", unitCellBlock, 1)
      .in("fillBlock", fillBlock, 1)
      .in("warpBlock", warpBlock, 1)
      .in("record", static_cast<const int32_t*>(record));
}

void FATIGUE_PW_OPTI(double* const row1,
                     double* const row2,
                     double* const row3,
                     double* const row4,
                     const int32_t* const snCount,
                     const double* const sn,
                     const double* const temperature,
                     const double* const strengths,
                     const double* const towFractions,
                     const double* const fiberFractionInTow,
                     double* const errors,
                     int32_t* const iterations) {
  Call("FATIGUE_PW_OPTI")
      .in("row1", row1, kRow)
      .in("row2", row2, kRow)
      .in("row3", row3, kRow)
      .in("row4", row4, kRow)
      .in("snCount", snCount)
      .in("sn", sn, 5 * *snCount)
      .in("temperature", temperature)
      .in("strengths", strengths, kRow)
      .in("towFractions", towFractions, 2)
      .in("fiberFractionInTow", fiberFractionInTow)
      .in("errors", errors, 6)
      .in("fatigueIterations", iterations);
  for (double* const row : {row1, row2, row3, row4}) {
    fill(row, kRow);
  }
  fill(errors + 4, 2);
  fill(iterations, 1);
}

int32_t INSITU_STATUS(int32_t* const iteration, double* const error) {
  while (setting("KXFAKE_STATUS_WAITS", 0) != 0 && !hasFitted) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  *iteration = setting("KXFAKE_ITERATION", -1);
  *error = 0.125;
  return setting("KXFAKE_STATUS", 0);
}

void FHT_GETDEFPROPS(const int32_t* const system,
                     double* const fiber,
                     double* const matrix,
                     double* const value,
                     double* const block) {
  Call("FHT_GETDEFPROPS").in("system", system);
  fill(fiber, KX_PROPERTY_COUNT);
  fill(matrix, KX_PROPERTY_COUNT);
  fill(value, 1);
  fill(block, 1);
}
