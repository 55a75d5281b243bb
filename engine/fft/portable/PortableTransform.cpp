// Transforms by the mixed-radix library that Eigen bundles; headers only.

#include <complex>
#include <cstddef>
#include <memory>
#include <vector>

#include <unsupported/Eigen/FFT>

#include "fft/Transform.h"

namespace kx {

namespace {

using Complex = std::complex<double>;

// Where the transforms of one axis lie: `count` groups of `width` interleaved transforms.
struct Axis {
  int points;
  int width;
  int groups;
};

class PortableTransform : public Transform {
 public:
  explicit PortableTransform(std::vector<Axis> axes) : axes_(std::move(axes)) {}

  void forward(double* const data) const override { transform(data, false); }
  void backward(double* const data) const override { transform(data, true); }

 private:
  void transform(double* const data, const bool inverse) const {
    auto* const numbers = reinterpret_cast<Complex*>(data);
    // The library keeps its tables in the object, which is not made for several threads at once.
    thread_local Eigen::FFT<double> fft = [] {
      Eigen::FFT<double> made;
      made.SetFlag(Eigen::FFT<double>::Unscaled);
      return made;
    }();
    for (const Axis& axis : axes_) transformAxis(fft, axis, numbers, inverse);
  }

  static void transformAxis(Eigen::FFT<double>& fft,
                            const Axis& axis,
                            Complex* const numbers,
                            const bool inverse) {
    const auto points = static_cast<std::size_t>(axis.points);
    const auto width = static_cast<std::size_t>(axis.width);
    std::vector<Complex> line(points);
    std::vector<Complex> image(points);
    for (std::size_t group = 0; group < static_cast<std::size_t>(axis.groups); ++group) {
      for (std::size_t c = 0; c < width; ++c) {
        Complex* const first = numbers + group * points * width + c;
        for (std::size_t i = 0; i < points; ++i) line[i] = first[i * width];
        if (inverse) {
          fft.inv(image.data(), line.data(), axis.points);
        } else {
          fft.fwd(image.data(), line.data(), axis.points);
        }
        for (std::size_t i = 0; i < points; ++i) first[i * width] = image[i];
      }
    }
  }

  std::vector<Axis> axes_;
};

}  // namespace

std::unique_ptr<Transform> Transform::interleaved(const int n, const int count) {
  return std::make_unique<PortableTransform>(std::vector<Axis>{{n, count, 1}});
}

std::unique_ptr<Transform> Transform::plane(const int rows, const int columns) {
  return std::make_unique<PortableTransform>(
      std::vector<Axis>{{columns, 1, rows}, {rows, columns, 1}});
}

}  // namespace kx
