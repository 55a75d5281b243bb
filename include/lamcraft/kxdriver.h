// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_KXDRIVER_H
#define LAMCRAFT_KXDRIVER_H

/// The C contract between lamcraft and a micromechanics library. A shared library named kxdriver
/// that exports these eleven names serves, in C99 or in anything else that can export C functions;
/// put it before the one that is shipped with LD_LIBRARY_PATH, on Windows beside the program.
/// examples/library is a small one.
///
/// Calls. For each environment of a deck: SETISOFLAG, a fit (UNI_OPTIMIZATION, WEAVE_OPTIMIZATION),
/// PREFAIL or WEAVE_PREFAIL if there is a shear curve, and for a weave WEAVE_DAMAGE_STATE for each
/// of the 18 states; for a plain weave with S-N tests then WEAVE_DAMAGE_STATE and FAT_DCMP_PROPS
/// for each of the 8 states of fatigue, and FATIGUE_PW_OPTI once. SETMAXERROR and FHT_GETDEFPROPS
/// are called before, while the deck is read. One thread makes all these calls, one after the
/// other; INSITU_STATUS alone is called by a second thread, at any time.
///
/// Arguments. All go by address and none is null. Arrays are contiguous and the caller's; the
/// library writes into them, keeps no address, and allocates nothing for the caller. Behind each
/// argument below: its direction, in brackets its length where that is not 1, and its unit.
/// Texts are zero-terminated, and "DUMB" where a call has no use for one. A folder's name is what
/// the system's narrow file functions take: its bytes on POSIX, the code page of Windows there.
///
/// Units are base units, whatever the deck's: N, m, K, s; stresses and moduli in Pa, expansions in
/// 1/K. A temperature is the deck's times the kelvins in its degree, not shifted: an absolute one.
///
/// A property set is twelve numbers: E11 E22 E33 v12 v13 v23 G12 G13 G23 A11 A22 A33 (Young's
/// moduli, Poisson's ratios, shear moduli, thermal expansions). Axis 1 runs along the fiber or the
/// fill tow, 2 across it in the ply, along the warp tow of a weave, 3 normal to the ply; in a tow,
/// 1 along its fibers. A library that answers a set fills all twelve.
///
/// Not given: a target of a lamina that was not measured is 0, a missing G13 of a weave -1; so is a
/// degradation factor. A strength that was not measured is 0.
///
/// Strengths [6]. Unidirectional: tension and compression along the fiber, tension and compression
/// across it, shear 12, shear 23. Woven: tension at the knee and ultimate, compression at the knee
/// and ultimate (all along the fill), shear 12 at the knee and ultimate.
///
/// S-N tests [n][5]: stress of the largest magnitude in a cycle [Pa], cycles to failure, frequency
/// [Hz], angle between load and fiber or fill [degree], smallest stress over largest.
///
/// Fatigue rows [6] of the matrix: energies of breaking and of healing of bonds [J/mol], activation
/// volumes of both [J/(mol Pa)], Psi, k; zeros when the fit of an environment begins. lamcraft
/// writes both rows of UNI_OPTIMIZATION into fdata.xml if the first begins with a positive number,
/// and none of FATIGUE_PW_OPTI.
///
/// errors[6]: first and last of the mechanical, the thermal and the fatigue fit, in any measure
/// (the shipped library: relative root mean square; of log10(life)). iterations[3] likewise.
///
/// Failures. No exception may leave a function: its callers are C. What could not be computed is
/// NaN. A NaN in lamina, fiber or matrix after a fit, or in a property set of a damage state, ends
/// the run with exit code 2, the environment's number, and no data file. In errors, rows, prefail
/// constants and blocks a NaN is written as it is.

#include <stdint.h>  // NOLINT(modernize-deprecated-headers): C reads this header as well

#if defined(_WIN32) && defined(KXDRIVER_EXPORTS)
#define KXDRIVER_API __declspec(dllexport)
#elif defined(_WIN32)
#define KXDRIVER_API __declspec(dllimport)
#elif defined(__GNUC__)
#define KXDRIVER_API __attribute__((visibility("default")))
#else
#define KXDRIVER_API
#endif

/// Lengths and orders that both sides need. One enumeration without a name: they are plain integers
/// to C and C++ alike.
enum {
  KX_PROPERTY_COUNT = 12,

  /// Where the parts of a slot begin. A slot tells what stress and strain of the whole make in one
  /// of its parts: stress = concentration * stress of the whole + thermal stress per kelvin, and
  /// strain likewise. Components 11 22 33 12 13 23, shear strains engineering ones.
  KX_SLOT_STRESS = 0,           ///< stress concentration, 6x6 by columns [-]
  KX_SLOT_STRAIN = 36,          ///< strain concentration, 6x6 by columns [-]
  KX_SLOT_THERMAL_STRESS = 72,  ///< 6 [Pa/K]
  KX_SLOT_THERMAL_STRAIN = 78,  ///< 6 [1/K]
  KX_SLOT_LENGTH = 84,

  /// Slots of the unit-cell block: parts of the composite, in its axes.
  KX_CELL_FILL = 0,
  KX_CELL_POCKET = 1,
  KX_CELL_WARP = 2,
  KX_CELL_INTERFACE = 3,
  KX_CELL_SLOTS = 4,
  KX_CELL_BLOCK_LENGTH = KX_CELL_SLOTS * KX_SLOT_LENGTH,

  /// Slots of the fill block and of the warp block: parts of a tow, in the tow's axes.
  KX_TOW_FIBER = 0,
  KX_TOW_MATRIX = 1,
  KX_TOW_SLOTS = 2,
  KX_TOW_BLOCK_LENGTH = KX_TOW_SLOTS * KX_SLOT_LENGTH,

  /// Property sets of a damage-state record.
  KX_SET_COMPOSITE = 0,
  KX_SET_POCKET = 1,
  KX_SET_FILL = 2,
  KX_SET_WARP = 3,
  KX_SET_INTERFACE = 4,  ///< handed to no function: the interface has no volume
  KX_SET_FILL_FIBER = 5,
  KX_SET_FILL_MATRIX = 6,
  KX_SET_WARP_FIBER = 7,
  KX_SET_WARP_MATRIX = 8,
  KX_SET_COUNT = 9,

  /// What has failed in a part of a weave. The pocket has no fiber.
  KX_INTACT = 0,
  KX_MATRIX_FAILED = 1,
  KX_FIBER_FAILED = 2,  ///< and the matrix with it

  /// The number of a damage state: KX_STATE_INTACT + pocket code + KX_STATE_FILL_STEP * fill code +
  /// KX_STATE_WARP_STEP * warp code.
  KX_STATE_INTACT = 1,
  KX_STATE_FILL_STEP = 2,
  KX_STATE_WARP_STEP = 6,
  KX_STATE_COUNT = 18,
  KX_FATIGUE_STATE_COUNT = 8  ///< those without failed fibers: 1 to 4 and 7 to 10
};

#ifdef __cplusplus
extern "C" {
#endif

/// Sets one of the two maximum errors that a fit has to reach to count as converged.
KXDRIVER_API void SETMAXERROR(
    const int32_t* compositeKind,  ///< in; 2 unidirectional, 3 woven
    const int32_t* selector,      ///< in; 1 the first, of the mechanical fit, 2 the second, thermal
    const double* maximumError);  ///< in; as errors[]

/// Tells of the matrix of the next fit whether it is isotropic.
KXDRIVER_API void SETISOFLAG(const int32_t* isotropic);  ///< in; 1 yes, 0 no

/// Fits fiber and matrix to a unidirectional lamina, and its fatigue constants to S-N tests.
KXDRIVER_API void UNI_OPTIMIZATION(
    const double* fiberVolumeFraction,  ///< in
    double* lamina,               ///< in the target, out what fiber and matrix give; property set
    double* fiber,                ///< in the start, out the fit; property set
    double* matrix,               ///< in the start, out the fit; property set
    const double* temperature,    ///< in [K]
    const int32_t* snCount,       ///< in; may be 0
    const double* sn,             ///< in [snCount][5]; S-N tests
    double* fatigueLongitudinal,  ///< in/out [6]; fatigue row for loads along the fiber
    double* fatigueTransverse,    ///< in/out [6]; for loads across it, directly after the former
    const double* strengths,      ///< in [6], Pa
    double* errors,               ///< out [4] of 6
    int32_t* iterations);         ///< out [2] of 3

/// Reduces a measured shear curve of a unidirectional lamina to constants. With the secant modulus
/// at the shear stress tau over the initial one called d: d = 1 up to thr, d = m tau + b above; the
/// matrix' shear moduli fall to c2mdeg[0] + c2mdeg[1] d + c2mdeg[2] d^2 of the initial ones. With
/// `failed` other than 0 the run goes on without the curve, and lamcraft says why for two codes:
/// 1 the curve does not reach the strength, 2 it is linear. Other codes have no text.
KXDRIVER_API void PREFAIL(
    const double* fiberVolumeFraction,  ///< in
    const double* matrix,               ///< in; property set, as fitted
    const double* fiber,                ///< in; property set, as fitted
    const double* lamina,               ///< in; property set, as fitted
    const double* shearStrength,        ///< in, Pa; the fifth strength
    const double* stress,               ///< in [pointCount], Pa; of the curve, in the deck's order
    const double* strain,               ///< in [pointCount]; engineering shear strain
    const int32_t* pointCount,          ///< in; 1 or more
    double* m,                          ///< out, 1/Pa
    double* b,                          ///< out
    double* thr,                        ///< out, Pa
    double* c2mdeg,                     ///< out [3]
    int32_t* failed,                    ///< in 0, out; 1: no constants
    int32_t* code);                     ///< in 0, out; why

/// Fits fiber and matrix to a woven lamina. Matrix fills the tows between the fibers and the
/// pockets between the tows.
KXDRIVER_API void WEAVE_OPTIMIZATION(
    const int32_t* harness,      ///< in; 1 plain weave; 4, 5, 8 satin with so many harnesses
    const double* towFractions,  ///< in [2]; volume fractions of the fill and of the warp tows
    const double* fiberFractionInTow,  ///< in; volume fraction of the fibers in a tow
    double* lamina,                    ///< in the target, out the fit's; property set
    double* fiber,                     ///< in the start, out the fit; property set
    double* matrix,                    ///< in the start, out the fit; property set
    double* errors,                    ///< out [4] of 6
    int32_t* iterations,               ///< out [2] of 3
    const char* text1,                 ///< "DUMB"
    const char* folder,                ///< in; the material folder, which is there
    const char* text3,                 ///< "DUMB"
    const int32_t* zero,               ///< in; 0
    const int32_t* satin);             ///< in; 0 if harness is 1, else 1

/// Reduces a measured shear curve of a woven lamina to constants; see PREFAIL.
KXDRIVER_API void WEAVE_PREFAIL(
    const int32_t* harness,            ///< in, as WEAVE_OPTIMIZATION has it
    const double* towFractions,        ///< in [2], as there
    const double* fiberFractionInTow,  ///< in, as there
    const double* matrix,              ///< in; property set, as fitted
    const double* fiber,               ///< in; property set, as fitted
    const double* lamina,              ///< in; property set, as fitted
    const double* shearStrength,       ///< in, Pa; the sixth strength
    const double* stress,              ///< in [pointCount], Pa
    const double* strain,              ///< in [pointCount]; engineering shear strain
    const char* folder,                ///< in; the material folder
    const int32_t* pointCount,         ///< in; 1 or more
    double* m,                         ///< out, 1/Pa
    double* b,                         ///< out
    double* thr,                       ///< out, Pa
    double* c2mdeg,                    ///< out [3]
    int32_t* failed,                   ///< in 0, out, as PREFAIL has it
    int32_t* code,                     ///< in 0, out, as PREFAIL has it
    const int32_t* satin);             ///< in; 0 if harness is 1, else 1

/// Homogenises a woven lamina in one damage state. lamcraft asks for the states 1 to 18 in order,
/// and hands in what has failed in each; the integers are the library's to change.
KXDRIVER_API void WEAVE_DAMAGE_STATE(
    int32_t* pocketCode,               ///< in/out; KX_INTACT or KX_MATRIX_FAILED
    int32_t* fillCode,                 ///< in/out; KX_INTACT, KX_MATRIX_FAILED or KX_FIBER_FAILED
    int32_t* warpCode,                 ///< in/out, as fillCode
    const int32_t* harness,            ///< in, as WEAVE_OPTIMIZATION has it
    const double* towFractions,        ///< in [2], as there
    const double* fiberFractionInTow,  ///< in, as there
    const double* fiber,               ///< in; property set, as fitted
    const double* matrix,              ///< in; property set, as fitted
    const double* fiberDegradation,    ///< in; factor on the moduli of a failed fiber, or -1
    const double* matrixDegradation,   ///< in; factor on the moduli of a failed matrix, or -1
    double* composite,                 ///< out; property set, as the seven below
    double* matrixPocket,              ///< out
    double* fill,                      ///< out
    double* warp,                      ///< out
    double* fillFiber,                 ///< out
    double* fillMatrix,                ///< out
    double* warpFiber,                 ///< out
    double* warpMatrix,                ///< out
    double* unitCellBlock,             ///< out [KX_CELL_SLOTS][KX_SLOT_LENGTH]
    double* fillBlock,                 ///< out [KX_TOW_SLOTS][KX_SLOT_LENGTH]
    double* warpBlock,                 ///< out [KX_TOW_SLOTS][KX_SLOT_LENGTH]
    const int32_t* snCount,            ///< in; number of S-N tests for a state of fatigue, else 0
    const char* text1,                 ///< "DUMB"
    const char* folder,                ///< in; the material folder of a satin, else "DUMB"
    const char* text3,                 ///< "DUMB"
    const int32_t* zero,               ///< in; 0
    const int32_t* satin);             ///< in; 1 if harness is 2 or more, else 0

/// Takes note of one state of fatigue for the next FATIGUE_PW_OPTI: what WEAVE_DAMAGE_STATE has
/// just answered. The record holds it all in one block without gaps: int32_t state, pocket, fill
/// and warp code; double sets[KX_SET_COUNT][KX_PROPERTY_COUNT]; the three blocks.
KXDRIVER_API void FAT_DCMP_PROPS(const double* composite,      ///< in; property set, as below
                                 const double* matrixPocket,   ///< in
                                 const double* fill,           ///< in
                                 const double* warp,           ///< in
                                 const double* fillFiber,      ///< in
                                 const double* fillMatrix,     ///< in
                                 const double* warpFiber,      ///< in
                                 const double* warpMatrix,     ///< in
                                 const double* unitCellBlock,  ///< in, as above
                                 const double* fillBlock,      ///< in, as above
                                 const double* warpBlock,      ///< in, as above
                                 const void* record);          ///< in; starts with the state number

/// Fits the fatigue constants of a plain weave to its S-N tests.
KXDRIVER_API void FATIGUE_PW_OPTI(
    double* row1,                      ///< in/out [6]; fatigue row for loads along the tow
    double* row2,                      ///< in/out [6]; for loads across the tow
    double* row3,                      ///< in/out [6]; the library's (shipped: deviations of row1)
    double* row4,                      ///< in/out [6]; the library's (shipped: deviations of row2)
    const int32_t* snCount,            ///< in; may be 0
    const double* sn,                  ///< in [snCount][5]; S-N tests
    const double* temperature,         ///< in [K]
    const double* strengths,           ///< in [6], Pa
    const double* towFractions,        ///< in [2]
    const double* fiberFractionInTow,  ///< in
    double* errors,                    ///< out [4] and [5] of 6
    int32_t* iterations);              ///< out; the third of iterations[3] alone

/// Reports the running solve. Returns 0 while it is worth asking again; anything else ends the
/// asking of this run. A second thread calls it from the start of a solve, which is before the
/// first fit, about once a second until the end. It answers at once: the end of a run waits for an
/// answer. lamcraft prints an iteration that is greater than all before it, from 0 on: numbers that
/// grow over the whole process, and do not start anew with each environment, all appear. -1: none
/// yet.
KXDRIVER_API int32_t INSITU_STATUS(int32_t* iteration,  ///< out
                                   double* error);      ///< out; of that iteration

/// Default properties of a material system, in base units like all others. The systems: 1 CFRP,
/// 2 GFRP, 3 KFRP; 4 to 6, 7 to 9, 10 to 12 carbon fiber of low, intermediate, high modulus, 13 to
/// 15 glass, 16 to 18 Kevlar, each in a thermoset, a thermoplastic and a bismaleimide.
KXDRIVER_API void FHT_GETDEFPROPS(const int32_t* system,  ///< in; 1 to 18
                                  double* fiber,          ///< out; property set
                                  double* matrix,         ///< out; property set
                                  double* value,          ///< out; unused, lies behind block
                                  double* block);         ///< out; unused

#ifdef __cplusplus
}
#endif

#endif
