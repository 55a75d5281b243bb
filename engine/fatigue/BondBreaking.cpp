// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/BondBreaking.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "fatigue/ScaledBessel.h"

namespace kx {
namespace {

struct Node {
  double place;
  double weight;
};

/// Gauss-Laguerre rule of 16 points (abramowitz1964, 25.4.45; zeros of L16 by Newton's method with
/// 50 digits). The four points beyond 28 carry 3e-12 of the weight and are left out.
constexpr std::array<Node, 12> kLaguerre{{
    {0.087649410478927839, 0.20615171495780099},
    {0.46269632891508083, 0.33105785495088419},
    {1.1410577748312269, 0.26579577764421414},
    {2.1292836450983805, 0.13629693429637754},
    {3.4370866338932067, 0.047328928694125222},
    {5.0780186145497677, 0.011299900080339454},
    {7.0703385350482337, 0.0018490709435263109},
    {9.4383143363919384, 0.00020427191530827845},
    {12.214223368866159, 1.4844586873981299e-05},
    {15.441527368781617, 6.8283193308711994e-07},
    {19.180156856753136, 1.8810248410796733e-08},
    {23.515905693991908, 2.8623502429738814e-10},
}};

/// Gauss-Legendre rule of 8 points on [-1, 1], the positive half (abramowitz1964, table 25.4).
constexpr std::array<Node, 4> kLegendre{{
    {0.18343464249564981, 0.36268378337836199},
    {0.52553240991632899, 0.31370664587788727},
    {0.79666647741362673, 0.22238103445337448},
    {0.96028985649753629, 0.10122853629037626},
}};

/// Above this exponent X v the compressed part of a cycle adds less than 1e-5 to the mean.
constexpr double kLargestExponent = 12.0;
constexpr double kSmallestPeak = 1e-6;
constexpr double kPi = 3.14159265358979323846;

/// exp(-X v) times the cycle mean of exp(v s), and its derivatives.
struct CycleMean {
  double value;
  double byScale;  // v
  double byPeak;   // X at fixed v
  double byAmplitude;
};

/// The part of a cycle around its trough where s is cut off at zero: |phi| < half the arc.
class CutOff {
 public:
  CutOff(const double peak, const double amplitude) noexcept
      : peak_(peak), amplitude_(amplitude), centre_(peak - amplitude) {
    if (peak >= 2.0 * amplitude || peak >= kLargestExponent) {
      return;
    }
    arc_ = std::acos(std::clamp(centre_ / amplitude, -1.0, 1.0));
    for (std::size_t i = 0; i < kLegendre.size(); ++i) {
      cosines_[2 * i] = std::cos(0.5 * arc_ * (1.0 - kLegendre[i].place));
      cosines_[2 * i + 1] = std::cos(0.5 * arc_ * (1.0 + kLegendre[i].place));
    }
  }

  /// Over the arc, 1 stands in for exp(v (centre - amplitude cos phi)).
  void addTo(CycleMean& mean, const double v) const noexcept {
    if (arc_ <= 0.0 || peak_ * v > kLargestExponent) {
      return;
    }
    double uncut = 0.0;
    double uncutCosine = 0.0;
    for (std::size_t i = 0; i < cosines_.size(); ++i) {
      const double exponential =
          kLegendre[i / 2].weight * std::exp(v * (centre_ - amplitude_ * cosines_[i]));
      uncut += 0.5 * arc_ * exponential;
      uncutCosine += 0.5 * arc_ * cosines_[i] * exponential;
    }
    const double scale = std::exp(-v * peak_) / kPi;
    const double added = scale * (arc_ - uncut);
    mean.value += added;
    mean.byScale += -peak_ * added - scale * (centre_ * uncut - amplitude_ * uncutCosine);
    mean.byPeak += -v * added - scale * v * uncut;
    mean.byAmplitude += scale * v * (uncutCosine + uncut);
  }

 private:
  double peak_;
  double amplitude_;
  double centre_;
  double arc_ = 0.0;
  std::array<double, 2 * kLegendre.size()> cosines_{};
};

/// A sine's mean of exp is exp(mean) I0(amplitude); the cut-off adds to it.
CycleMean cycleMean(const double v, const double amplitude, const CutOff& cutOff) noexcept {
  const auto bessel = scaledBessel(amplitude * v);
  const double slope = bessel.i1 - bessel.i0;
  CycleMean mean{bessel.i0, amplitude * slope, 0.0, v * slope};
  cutOff.addTo(mean, v);
  return mean;
}

}  // namespace

namespace detail {

LifeIntegral lnLifeIntegral(const double peak, const double amplitude) noexcept {
  const double x = std::max(peak, kSmallestPeak);
  const CutOff cutOff(x, amplitude);
  double sum = 0.0;
  double byPeak = 0.0;
  double byAmplitude = 0.0;
  for (const auto& node : kLaguerre) {
    const double v = 1.0 + node.place / x;
    const auto mean = cycleMean(v, amplitude, cutOff);
    const double term = node.weight / (v * mean.value);
    const double byScale = -1.0 / v - mean.byScale / mean.value;
    sum += term;
    byPeak += term * (byScale * (1.0 - v) / x - mean.byPeak / mean.value);
    byAmplitude -= term * mean.byAmplitude / mean.value;
  }
  return {std::log(sum / x), byPeak / sum - 1.0 / x, byAmplitude / sum};
}

}  // namespace detail

double lnTimeToFailure(const BondConstants& constants, const StressCycle& cycle) noexcept {
  const double thermal = kGasConstant * cycle.temperature;
  return lnReducedLife(constants.breakingEnergy / thermal,
                       constants.breakingActivation * cycle.peak / thermal,
                       cycle.ratio,
                       constants.amplitudeFactor) -
         std::log(attemptFrequency(cycle.temperature));
}

double rampStrength(const BondConstants& constants, const double temperature) noexcept {
  const double thermal = kGasConstant * temperature;
  return (constants.breakingEnergy -
          thermal * std::log(attemptFrequency(temperature) * kRampTime)) /
         constants.breakingActivation;
}

}  // namespace kx
