#ifndef KX_FFT_TRANSFORM_H
#define KX_FFT_TRANSFORM_H

#include <memory>

namespace kx {

/// Complex discrete Fourier transforms of one fixed shape, double precision, in place.
///
/// Unnormalised: forward (exponent -i) followed by backward multiplies by the number of points of
/// the transform. A number is a pair of doubles, real part first; data are aligned to 16 bytes.
/// Objects are made in any thread and may be used by several threads at once. The choice of the
/// algorithm never depends on measured time, so results repeat bit by bit.
class Transform {
 public:
  /// `count` transforms of n points each, interleaved: point i of transform c is number
  /// i * count + c.
  static std::unique_ptr<Transform> interleaved(int n, int count);

  /// One two-dimensional transform of rows * columns points, stored row by row.
  static std::unique_ptr<Transform> plane(int rows, int columns);

  Transform() = default;
  Transform(const Transform&) = delete;
  Transform& operator=(const Transform&) = delete;
  virtual ~Transform() = default;

  virtual void forward(double* data) const = 0;
  virtual void backward(double* data) const = 0;
};

}  // namespace kx

#endif
