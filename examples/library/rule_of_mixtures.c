// SPDX-License-Identifier: BSD-3-Clause
/* A micromechanics library of one's own: the rule of mixtures for unidirectional laminae.
 *
 * Along the fiber, fiber and matrix strain alike (W. Voigt, Annalen der Physik 274 (1889) 573);
 * across it and in shear they bear the same stress (A. Reuss, ZAMM 9 (1929) 49). Expansions:
 * R.A. Schapery, Journal of Composite Materials 2 (1968) 380. The fit gives the fiber the E11, v12
 * and A11 that the lamina asks for; all else stays as it starts, and the errors tell what is left.
 * Shear curves, fatigue and weaves are not this library's: it says so as the contract asks. */

#include <math.h>
#include <stdatomic.h>

#include <lamcraft/kxdriver.h>

enum { E11, E22, E33, V12, V13, V23, G12, G13, G23, A11, A22, A33 };

static atomic_int iterations_so_far = 0; /* over all fits, so that each is shown */
static _Atomic double last_error = 0.0;

static double voigt(double f, double fiber, double matrix) {
  return f * fiber + (1 - f) * matrix;
}

static double reuss(double f, double fiber, double matrix) {
  return 1 / (f / fiber + (1 - f) / matrix);
}

/* Sets what follows from the other constants where 2 and 3 are alike. */
static void complete(double* set) {
  set[E33] = set[E22];
  set[V13] = set[V12];
  set[G13] = set[G12];
  set[G23] = set[E22] / (2 * (1 + set[V23]));
  set[A33] = set[A22];
}

/* The lamina that fiber and matrix make. */
static void mix(double f, const double* fiber, const double* matrix, double* lamina) {
  lamina[E11] = voigt(f, fiber[E11], matrix[E11]);
  lamina[E22] = reuss(f, fiber[E22], matrix[E22]);
  lamina[V12] = voigt(f, fiber[V12], matrix[V12]);
  lamina[V23] = voigt(f, fiber[V23], matrix[V23]);
  lamina[G12] = reuss(f, fiber[G12], matrix[G12]);
  lamina[A11] = voigt(f, fiber[E11] * fiber[A11], matrix[E11] * matrix[A11]) / lamina[E11];
  lamina[A22] = voigt(f, fiber[A22] + fiber[V12] * fiber[A11], (1 + matrix[V12]) * matrix[A22]) -
                lamina[V12] * lamina[A11];
  complete(lamina);
}

/* The part of a lamina's constant that falls to the fiber. */
static double unmix(double f, double lamina, double matrix) {
  return (lamina - (1 - f) * matrix) / f;
}

/* Root mean square of the deviations from what was measured, relative to it. */
static double deviation(const double* lamina, const double* target, const int* which, int count) {
  double sum = 0;
  int measured = 0;
  for (int i = 0; i < count; ++i) {
    if (target[which[i]] != 0) {
      sum += pow(lamina[which[i]] / target[which[i]] - 1, 2);
      ++measured;
    }
  }
  return measured > 0 ? sqrt(sum / measured) : 0;
}

static void not_a_number(double* values, int count) {
  for (int i = 0; i < count; ++i) {
    values[i] = NAN;
  }
}

void UNI_OPTIMIZATION(const double* fraction, double* lamina, double* fiber, double* matrix,
                      const double* temperature, const int32_t* sn_count, const double* sn,
                      double* longitudinal, double* transverse, const double* strengths,
                      double* errors, int32_t* iterations) {
  static const int mechanical[] = {E11, E22, V12, V23, G12}, thermal[] = {A11, A22};
  const double f = *fraction;
  double start[KX_PROPERTY_COUNT], fitted[KX_PROPERTY_COUNT];
  mix(f, fiber, matrix, start);
  fiber[E11] = unmix(f, lamina[E11], matrix[E11]);
  fiber[V12] = unmix(f, lamina[V12], matrix[V12]);
  fiber[A11] = unmix(f, lamina[E11] * lamina[A11], matrix[E11] * matrix[A11]) / fiber[E11];
  if (!(f > 0 && f < 1 && fiber[E11] > 0)) {
    not_a_number(fiber, KX_PROPERTY_COUNT); /* no fiber makes this lamina: lamcraft refuses it */
  }
  complete(fiber);
  mix(f, fiber, matrix, fitted);
  errors[0] = deviation(start, lamina, mechanical, 5);
  errors[1] = deviation(fitted, lamina, mechanical, 5);
  errors[2] = deviation(start, lamina, thermal, 2);
  errors[3] = deviation(fitted, lamina, thermal, 2);
  iterations[0] = iterations[1] = 1;
  for (int i = 0; i < KX_PROPERTY_COUNT; ++i) {
    lamina[i] = fitted[i];
  }
  last_error = errors[1];
  ++iterations_so_far;
}

int32_t INSITU_STATUS(int32_t* iteration, double* error) {
  *iteration = iterations_so_far - 1; /* -1 before the first */
  *error = last_error;
  return 0;
}

/* The same carbon fiber and epoxy for every system. */
void FHT_GETDEFPROPS(const int32_t* system, double* fiber, double* matrix, double* value,
                     double* block) {
  static const double carbon[] = {230e9, 15e9, 15e9, 0.2, 0.2, 0.4, 15e9, 15e9, 0, -0.5e-6, 1e-5, 0};
  static const double epoxy[] = {3.5e9, 3.5e9, 0, 0.35, 0, 0.35, 1.3e9, 0, 0, 5e-5, 5e-5, 0};
  for (int i = 0; i < KX_PROPERTY_COUNT; ++i) {
    fiber[i] = carbon[i];
    matrix[i] = epoxy[i];
  }
  complete(fiber);
  complete(matrix);
  matrix[G12] = matrix[G13] = matrix[G23];
  *value = *block = 0;
}

void PREFAIL(const double* fraction, const double* matrix, const double* fiber,
             const double* lamina, const double* strength, const double* stress,
             const double* strain, const int32_t* count, double* m, double* b, double* thr,
             double* c2mdeg, int32_t* failed, int32_t* code) {
  *failed = 1; /* without a reason that lamcraft has a text for */
}

/* No weaves: what is not a number is refused. */
void WEAVE_OPTIMIZATION(const int32_t* harness, const double* tow_fractions,
                        const double* fraction_in_tow, double* lamina, double* fiber,
                        double* matrix, double* errors, int32_t* iterations, const char* text1,
                        const char* folder, const char* text3, const int32_t* zero,
                        const int32_t* satin) {
  not_a_number(lamina, KX_PROPERTY_COUNT);
}

/* Nothing to set, and nothing to do after a fit that there is none of. */
void SETMAXERROR(const int32_t* kind, const int32_t* selector, const double* maximum_error) {}

void SETISOFLAG(const int32_t* isotropic) {}

void WEAVE_PREFAIL(const int32_t* harness, const double* tow_fractions,
                   const double* fraction_in_tow, const double* matrix, const double* fiber,
                   const double* lamina, const double* strength, const double* stress,
                   const double* strain, const char* folder, const int32_t* count, double* m,
                   double* b, double* thr, double* c2mdeg, int32_t* failed, int32_t* code,
                   const int32_t* satin) {
  *failed = 1;
}

void WEAVE_DAMAGE_STATE(int32_t* pocket_code, int32_t* fill_code, int32_t* warp_code,
                        const int32_t* harness, const double* tow_fractions,
                        const double* fraction_in_tow, const double* fiber, const double* matrix,
                        const double* fiber_degradation, const double* matrix_degradation,
                        double* composite, double* matrix_pocket, double* fill, double* warp,
                        double* fill_fiber, double* fill_matrix, double* warp_fiber,
                        double* warp_matrix, double* unit_cell_block, double* fill_block,
                        double* warp_block, const int32_t* sn_count, const char* text1,
                        const char* folder, const char* text3, const int32_t* zero,
                        const int32_t* satin) {
  not_a_number(composite, KX_PROPERTY_COUNT);
}

void FAT_DCMP_PROPS(const double* composite, const double* matrix_pocket, const double* fill,
                    const double* warp, const double* fill_fiber, const double* fill_matrix,
                    const double* warp_fiber, const double* warp_matrix,
                    const double* unit_cell_block, const double* fill_block,
                    const double* warp_block, const void* record) {}

void FATIGUE_PW_OPTI(double* row1, double* row2, double* row3, double* row4,
                     const int32_t* sn_count, const double* sn, const double* temperature,
                     const double* strengths, const double* tow_fractions,
                     const double* fraction_in_tow, double* errors, int32_t* iterations) {}
