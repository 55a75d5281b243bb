// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FATIGUE_BONDBREAKING_H
#define KX_FATIGUE_BONDBREAKING_H

#include <cmath>

#include <ceres/jet.h>

namespace kx {

/// Molar gas constant [J/(mol K)], Boltzmann's [J/K] and Planck's [J s]: exact since the 2019
/// revision of the SI.
inline constexpr double kGasConstant = 8.31446261815324;
inline constexpr double kBoltzmann = 1.380649e-23;
inline constexpr double kPlanck = 6.62607015e-34;

/// Constants of the breaking and healing of bonds in one direction of the matrix.
///
/// The broken fraction n follows (zhurkov1965, tobolsky1943, hsiao1968)
///   dn/dt = (1-n) nu0 <exp(-(Ub - gb s/(1 - Psi n))/(R T))> - n nu0 <exp(-(Uh + gh s)/(R T))>
/// with nu0 = k_B T/h, < > the mean over a cycle, s = stress + k times the stress amplitude where
/// that is positive and 0 elsewhere; failure is n = 1.
/// The order of the members is that of the six doubles of the C contract.
struct BondConstants {
  double breakingEnergy = 0.0;      ///< Ub [J/mol]
  double healingEnergy = 0.0;       ///< Uh [J/mol]
  double breakingActivation = 0.0;  ///< gb [J/(mol Pa)] of the matrix' stress
  double healingActivation = 0.0;   ///< gh [J/(mol Pa)]
  double loadTransfer = 0.0;        ///< Psi [-], 1: unbroken bonds take over the load in full
  double amplitudeFactor = 0.0;     ///< k [-]
};

/// A sinusoidal load: magnitude of its peak [Pa] > 0, ratio of the other extreme to the peak in
/// [-1, 1] (1: constant load), absolute temperature [K] > 0.
struct StressCycle {
  double peak = 0.0;
  double ratio = 0.0;
  double temperature = 0.0;
};

/// Attempts of a bond per second, nu0 = k_B T/h [1/s] (6.17e12 at 296 K).
inline double attemptFrequency(double temperature) noexcept {
  return kBoltzmann * temperature / kPlanck;
}

/// ln t of the time to failure [s] without healing and with full load transfer (Psi = 1). Exact
/// but for a quadrature error below 3e-6 in ln t where gb s/(R T) reaches 1 or more.
/// Other values of Psi and the healing constants are not looked at.
double lnTimeToFailure(const BondConstants& constants, const StressCycle& cycle) noexcept;

/// Time [s] that a ramp of the stress takes to the static strength, where the strength is anchored.
inline constexpr double kRampTime = 60.0;

/// Stress at which a ramp of kRampTime ends: gb S = Ub - R T ln(nu0 t). Its direct integration
/// gives 0.999 of it for gb S/(R T) = 18.
double rampStrength(const BondConstants& constants, double temperature) noexcept;

namespace detail {

/// ln of the integral of dv/(v <exp(v s(t)/s_ref)>) over v = 1/(1-n) from 1 to infinity, plus the
/// largest exponent X, and its two derivatives. X: largest reduced s of the cycle; amplitude:
/// reduced amplitude.
struct LifeIntegral {
  double value = 0.0;
  double byPeak = 0.0;
  double byAmplitude = 0.0;
};
LifeIntegral lnLifeIntegral(double peak, double amplitude) noexcept;

inline double chained(const LifeIntegral& integral,
                      double /*peak*/,
                      double /*amplitude*/) noexcept {
  return integral.value;
}
template <typename T, int N>
ceres::Jet<T, N> chained(const LifeIntegral& integral,
                         const ceres::Jet<T, N>& peak,
                         const ceres::Jet<T, N>& amplitude) {
  return {integral.value, integral.byPeak * peak.v + integral.byAmplitude * amplitude.v};
}

inline double scalarPart(double x) noexcept {
  return x;
}
template <typename T, int N>
double scalarPart(const ceres::Jet<T, N>& x) noexcept {
  return x.a;
}

}  // namespace detail

/// ln(nu0 t) of the life in reduced quantities: energy = Ub/(R T), peak = gb times the peak stress
/// over R T (> 0), ratio of the cycle, k. T is double or a ceres::Jet.
template <typename T>
T lnReducedLife(const T& energy, const T& peak, double ratio, const T& k) {
  const T amplitude = peak * (0.5 * (1.0 - ratio));
  const T largest = peak + k * amplitude;
  const auto integral =
      detail::lnLifeIntegral(detail::scalarPart(largest), detail::scalarPart(amplitude));
  return energy - largest + detail::chained(integral, largest, amplitude);
}

}  // namespace kx

#endif
