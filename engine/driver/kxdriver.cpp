// The shared library's face. The rooms are not wired yet: every fit answers that it failed.

#include "micromech/kxdriver.h"

namespace {

/// Relative errors of a fit that found nothing, and no iterations.
void fail(double* const errors, int32_t* const iterations) {
  for (int i = 0; i < 4; ++i) {
    errors[i] = 1.0;
  }
  iterations[0] = 0;
  iterations[1] = 0;
}

}  // namespace

void SETMAXERROR(const int32_t*, const int32_t*, const double*) {}

void SETISOFLAG(const int32_t*) {}

void UNI_OPTIMIZATION(const double*,
                      double*,
                      double*,
                      double*,
                      const double*,
                      const int32_t*,
                      const double*,
                      double*,
                      double*,
                      const double*,
                      double* const errors,
                      int32_t* const iterations) {
  fail(errors, iterations);
}

void PREFAIL(const double*,
             const double*,
             const double*,
             const double*,
             const double*,
             const double*,
             const double*,
             const int32_t*,
             double*,
             double*,
             double*,
             double*,
             int32_t* const failed,
             int32_t*) {
  *failed = 1;
}

void WEAVE_OPTIMIZATION(const int32_t*,
                        const double*,
                        const double*,
                        double*,
                        double*,
                        double*,
                        double* const errors,
                        int32_t* const iterations,
                        const char*,
                        const char*,
                        const char*,
                        const int32_t*,
                        const int32_t*) {
  fail(errors, iterations);
}

void WEAVE_PREFAIL(const int32_t*,
                   const double*,
                   const double*,
                   const double*,
                   const double*,
                   const double*,
                   const double*,
                   const double*,
                   const double*,
                   const char*,
                   const int32_t*,
                   double*,
                   double*,
                   double*,
                   double*,
                   int32_t* const failed,
                   int32_t*,
                   const int32_t*) {
  *failed = 1;
}

void WEAVE_DAMAGE_STATE(int32_t*,
                        int32_t*,
                        int32_t*,
                        const int32_t*,
                        const double*,
                        const double*,
                        const double*,
                        const double*,
                        const double*,
                        const double*,
                        double*,
                        double*,
                        double*,
                        double*,
                        double*,
                        double*,
                        double*,
                        double*,
                        double*,
                        double*,
                        double*,
                        const int32_t*,
                        const char*,
                        const char*,
                        const char*,
                        const int32_t*,
                        const int32_t*) {}

void FAT_DCMP_PROPS(const double*,
                    const double*,
                    const double*,
                    const double*,
                    const double*,
                    const double*,
                    const double*,
                    const double*,
                    const double*,
                    const double*,
                    const double*,
                    const void*) {}

void FATIGUE_PW_OPTI(double*,
                     double*,
                     double*,
                     double*,
                     const int32_t*,
                     const double*,
                     const double*,
                     const double*,
                     const double*,
                     const double*,
                     double* const errors,
                     int32_t* const iterations) {
  errors[4] = 1.0;
  errors[5] = 1.0;
  *iterations = 0;
}

int32_t INSITU_STATUS(int32_t* const iteration, double* const error) {
  *iteration = -1;
  *error = 0.0;
  return 0;
}

void FHT_GETDEFPROPS(const int32_t*, double*, double*, double* const value, double* const block) {
  *value = 0.0;
  *block = 0.0;
}
