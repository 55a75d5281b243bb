// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FATIGUE_SCALEDBESSEL_H
#define KX_FATIGUE_SCALEDBESSEL_H

#include <cmath>

namespace kx {

/// exp(-x) I0(x) and exp(-x) I1(x) of the modified Bessel functions of the first kind.
struct ScaledBessel {
  double i0 = 1.0;
  double i1 = 0.0;
};

/// For x >= 0; relative error below 2.5e-7. abramowitz1964, 9.8.1 to 9.8.4.
inline ScaledBessel scaledBessel(double x) noexcept {
  constexpr double kChange = 3.75;
  if (x <= kChange) {
    const double t = (x / kChange) * (x / kChange);
    const double decay = std::exp(-x);
    const double i0 =
        1.0 +
        t * (3.5156229 +
             t * (3.0899424 + t * (1.2067492 + t * (0.2659732 + t * (0.0360768 + t * 0.0045813)))));
    const double i1 =
        0.5 + t * (0.87890594 +
                   t * (0.51498869 +
                        t * (0.15084934 + t * (0.02658733 + t * (0.00301532 + t * 0.00032411)))));
    return {decay * i0, decay * x * i1};
  }
  const double t = kChange / x;
  const double scale = 1.0 / std::sqrt(x);
  const double i0 =
      0.39894228 +
      t * (0.01328592 +
           t * (0.00225319 +
                t * (-0.00157565 +
                     t * (0.00916281 +
                          t * (-0.02057706 +
                               t * (0.02635537 + t * (-0.01647633 + t * 0.00392377)))))));
  const double i1 =
      0.39894228 +
      t * (-0.03988024 +
           t * (-0.00362018 +
                t * (0.00163801 +
                     t * (-0.01031555 +
                          t * (0.02282967 +
                               t * (-0.02895312 + t * (0.01787654 - t * 0.00420059)))))));
  return {scale * i0, scale * i1};
}

}  // namespace kx

#endif
