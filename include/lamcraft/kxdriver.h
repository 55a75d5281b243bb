#ifndef LAMCRAFT_KXDRIVER_H
#define LAMCRAFT_KXDRIVER_H

/// The C contract between the program and a micromechanics library.
///
/// Every argument goes by address; nothing is passed by value and nothing is returned but the
/// status of INSITU_STATUS. Arrays are flat, contiguous and owned by the caller; the library
/// writes into them and allocates nothing for the caller. Any shared library that exports these
/// eleven names serves; the open engine in engine/ is the one that is shipped.
///
/// Conventions of all functions:
/// - properties[12]: E11 E22 E33 v12 v13 v23 G12 G13 G23 A11 A22 A33, in the caller's unit of
///   stress, dimensionless, and 1/temperature. Axis 1 along the fiber (unidirectional) or the
///   fill tow, 2 along the warp tow, 3 normal to the ply.
/// - S-N records [n][5]: stress of the largest magnitude, cycles to failure, frequency [Hz],
///   angle of the load to the fiber or fill [degree], ratio R of the smallest to the largest
///   stress.
/// - errors[6]: initial and final mechanical, initial and final thermal, initial and final fatigue
///   error. iterations[3]: mechanical, thermal, fatigue.
/// - Texts are zero-terminated; "DUMB" stands where a call does not use one.
///
/// INSITU_STATUS alone may be called from a second thread while another function runs.

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

  /// Where the parts of a slot begin. A slot says how stress and strain of the whole reach one of
  /// its parts.
  KX_SLOT_STRESS = 0,           ///< stress concentration, 6x6 by columns
  KX_SLOT_STRAIN = 36,          ///< strain concentration, 6x6 by columns
  KX_SLOT_THERMAL_STRESS = 72,  ///< 6
  KX_SLOT_THERMAL_STRAIN = 78,  ///< 6
  KX_SLOT_LENGTH = 84,

  /// Slots of the unit-cell block.
  KX_CELL_FILL = 0,
  KX_CELL_POCKET = 1,
  KX_CELL_WARP = 2,
  KX_CELL_INTERFACE = 3,
  KX_CELL_SLOTS = 4,

  /// Slots of the fill block and of the warp block.
  KX_TOW_FIBER = 0,
  KX_TOW_MATRIX = 1,
  KX_TOW_SLOTS = 2,

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
/// IN compositeKind (2 unidirectional, 3 woven), selector (1 first, 2 second), maximumError.
KXDRIVER_API void SETMAXERROR(const int32_t* compositeKind,
                              const int32_t* selector,
                              const double* maximumError);

/// Tells whether the matrix of the next fits is isotropic. IN isotropic (1 yes, 0 no).
KXDRIVER_API void SETISOFLAG(const int32_t* isotropic);

/// Fits fiber and matrix to a unidirectional lamina.
/// IN fiberVolumeFraction, temperature, snCount, sn[snCount][5], strengths[6];
/// IN/OUT lamina[12] (target, then what the fit gives), fiber[12], matrix[12] (start, then fitted),
/// fatigueLongitudinal[6], fatigueTransverse[6] (directly after the former);
/// OUT errors[0..3], iterations[0..1].
KXDRIVER_API void UNI_OPTIMIZATION(const double* fiberVolumeFraction,
                                   double* lamina,
                                   double* fiber,
                                   double* matrix,
                                   const double* temperature,
                                   const int32_t* snCount,
                                   const double* sn,
                                   double* fatigueLongitudinal,
                                   double* fatigueTransverse,
                                   const double* strengths,
                                   double* errors,
                                   int32_t* iterations);

/// Reduces the measured shear curve of a unidirectional lamina to prefail constants.
/// IN fiberVolumeFraction, matrix[12], fiber[12], lamina[12], shearStrength, stress[pointCount],
/// strain[pointCount], pointCount;
/// OUT m, b, thr, c2mdeg[3], failed (0 or 1), code (1 the curve does not reach the strength,
/// 2 the curve is linear).
KXDRIVER_API void PREFAIL(const double* fiberVolumeFraction,
                          const double* matrix,
                          const double* fiber,
                          const double* lamina,
                          const double* shearStrength,
                          const double* stress,
                          const double* strain,
                          const int32_t* pointCount,
                          double* m,
                          double* b,
                          double* thr,
                          double* c2mdeg,
                          int32_t* failed,
                          int32_t* code);

/// Fits fiber and matrix to a woven lamina.
/// IN harness (1 plain weave, 4, 5, 8 satin), towFractions[2] (fill, warp), fiberFractionInTow,
/// text1, folder, text3, zero, satin (0 or 1); IN/OUT lamina[12], fiber[12], matrix[12];
/// OUT errors[0..3], iterations[0..1].
KXDRIVER_API void WEAVE_OPTIMIZATION(const int32_t* harness,
                                     const double* towFractions,
                                     const double* fiberFractionInTow,
                                     double* lamina,
                                     double* fiber,
                                     double* matrix,
                                     double* errors,
                                     int32_t* iterations,
                                     const char* text1,
                                     const char* folder,
                                     const char* text3,
                                     const int32_t* zero,
                                     const int32_t* satin);

/// Reduces the measured shear curve of a woven lamina to prefail constants; see PREFAIL.
/// IN also harness, towFractions[2], folder and satin.
KXDRIVER_API void WEAVE_PREFAIL(const int32_t* harness,
                                const double* towFractions,
                                const double* fiberFractionInTow,
                                const double* matrix,
                                const double* fiber,
                                const double* lamina,
                                const double* shearStrength,
                                const double* stress,
                                const double* strain,
                                const char* folder,
                                const int32_t* pointCount,
                                double* m,
                                double* b,
                                double* thr,
                                double* c2mdeg,
                                int32_t* failed,
                                int32_t* code,
                                const int32_t* satin);

/// Homogenises a woven lamina in one damage state.
/// IN/OUT pocketCode, fillCode, warpCode (0 intact, 1 matrix failed, 2 matrix and fiber failed);
/// IN harness, towFractions[2], fiberFractionInTow, fiber[12], matrix[12], fiberDegradation,
/// matrixDegradation, snCount (0 outside fatigue), text1, folder, text3, zero, satin;
/// OUT eight property sets[12]: composite, matrix pocket, fill, warp, fill fiber, fill matrix,
/// warp fiber, warp matrix; unitCellBlock[4][84] (fill, matrix pocket, warp, interface),
/// fillBlock[2][84] and warpBlock[2][84] (fiber, matrix). The 84 values of a slot: stress
/// concentration 6x6 by columns, strain concentration 6x6 by columns, thermal stress 6, thermal
/// strain 6, components in the order 11 22 33 12 13 23.
KXDRIVER_API void WEAVE_DAMAGE_STATE(int32_t* pocketCode,
                                     int32_t* fillCode,
                                     int32_t* warpCode,
                                     const int32_t* harness,
                                     const double* towFractions,
                                     const double* fiberFractionInTow,
                                     const double* fiber,
                                     const double* matrix,
                                     const double* fiberDegradation,
                                     const double* matrixDegradation,
                                     double* composite,
                                     double* matrixPocket,
                                     double* fill,
                                     double* warp,
                                     double* fillFiber,
                                     double* fillMatrix,
                                     double* warpFiber,
                                     double* warpMatrix,
                                     double* unitCellBlock,
                                     double* fillBlock,
                                     double* warpBlock,
                                     const int32_t* snCount,
                                     const char* text1,
                                     const char* folder,
                                     const char* text3,
                                     const int32_t* zero,
                                     const int32_t* satin);

/// Takes note of one fatigue damage state for the next FATIGUE_PW_OPTI.
/// IN the eight property sets and three blocks of WEAVE_DAMAGE_STATE, then the whole record,
/// starting with its 32-bit state number.
KXDRIVER_API void FAT_DCMP_PROPS(const double* composite,
                                 const double* matrixPocket,
                                 const double* fill,
                                 const double* warp,
                                 const double* fillFiber,
                                 const double* fillMatrix,
                                 const double* warpFiber,
                                 const double* warpMatrix,
                                 const double* unitCellBlock,
                                 const double* fillBlock,
                                 const double* warpBlock,
                                 const void* record);

/// Fits the fatigue constants of a plain weave.
/// IN snCount, sn[snCount][5], temperature, strengths[6], towFractions[2], fiberFractionInTow;
/// IN/OUT row1[6] .. row4[6]; OUT errors[4..5], iterations (one count).
KXDRIVER_API void FATIGUE_PW_OPTI(double* row1,
                                  double* row2,
                                  double* row3,
                                  double* row4,
                                  const int32_t* snCount,
                                  const double* sn,
                                  const double* temperature,
                                  const double* strengths,
                                  const double* towFractions,
                                  const double* fiberFractionInTow,
                                  double* errors,
                                  int32_t* iterations);

/// Reports the running solve. OUT iteration, error.
/// Returns 0 while it is worth asking again, anything else to end the asking.
KXDRIVER_API int32_t INSITU_STATUS(int32_t* iteration, double* error);

/// Default properties of a material system. IN system (1..18); OUT fiber[12], matrix[12],
/// block[0], and *value, which lies further on in the same block.
KXDRIVER_API void FHT_GETDEFPROPS(
    const int32_t* system, double* fiber, double* matrix, double* value, double* block);

#ifdef __cplusplus
}
#endif

#endif
