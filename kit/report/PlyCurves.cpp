// SPDX-License-Identifier: BSD-3-Clause
#include "report/PlyCurves.h"

#include <cmath>

#include "elastic/Rotation.h"
#include "elastic/Voigt.h"

namespace lamkit {

namespace {

constexpr int kLastAngle = 90;
constexpr int kStep = 3;
constexpr double kDegree = 3.14159265358979323846 / 180.0;

/// The ply's axes in those of the load.
kx::Frame frameAt(const double angle) {
  const double cosine = std::cos(angle * kDegree);
  const double sine = std::sin(angle * kDegree);
  kx::Frame frame;
  frame << cosine, sine, 0.0, -sine, cosine, 0.0, 0.0, 0.0, 1.0;
  return frame;
}

}  // namespace

std::vector<OffAxis> offAxisCurve(const kx::Properties& ply) {
  const kx::Matrix6 stiffness = kx::stiffness(ply);
  std::vector<OffAxis> curve;
  for (int angle = 0; angle <= kLastAngle; angle += kStep) {
    const kx::Matrix6 transform = kx::strainTransform(frameAt(angle));
    const kx::Matrix6 compliance = kx::rotateStiffness(stiffness, transform).inverse();
    curve.push_back({static_cast<double>(angle),
                     1.0 / compliance(kx::k11, kx::k11),
                     1.0 / compliance(kx::k12, kx::k12),
                     -compliance(kx::k11, kx::k22) / compliance(kx::k11, kx::k11)});
  }
  return curve;
}

}  // namespace lamkit
