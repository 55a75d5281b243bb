// Transforms by the mixed-radix library that Eigen bundles; headers only.

#include <complex>
#include <cstddef>
#include <memory>
#include <mutex>
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

using Fft = Eigen::FFT<double>;

// The library keeps its tables in an object that is not made for several threads at once, so each
// call borrows one of its own. They are not thread_local: mingw frees the memory of a thread's
// variables before it destroys them.
class Lender {
 public:
  std::unique_ptr<Fft> borrow() {
    const std::lock_guard lock(mutex_);
    if (idle_.empty()) {
      auto made = std::make_unique<Fft>();
      made->SetFlag(Fft::Unscaled);
      return made;
    }
    auto lent = std::move(idle_.back());
    idle_.pop_back();
    return lent;
  }

  void giveBack(std::unique_ptr<Fft> fft) {
    const std::lock_guard lock(mutex_);
    idle_.push_back(std::move(fft));
  }

 private:
  std::mutex mutex_;
  std::vector<std::unique_ptr<Fft>> idle_;
};

class PortableTransform : public Transform {
 public:
  explicit PortableTransform(std::vector<Axis> axes) : axes_(std::move(axes)) {}

  void forward(double* const data) const override { transform(data, false); }
  void backward(double* const data) const override { transform(data, true); }

 private:
  void transform(double* const data, const bool inverse) const {
    auto* const numbers = reinterpret_cast<Complex*>(data);
    auto fft = lender_.borrow();
    for (const Axis& axis : axes_) {
      transformAxis(*fft, axis, numbers, inverse);
    }
    lender_.giveBack(std::move(fft));
  }

  static void transformAxis(Fft& fft,
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
        for (std::size_t i = 0; i < points; ++i) {
          line[i] = first[i * width];
        }
        if (inverse) {
          fft.inv(image.data(), line.data(), axis.points);
        } else {
          fft.fwd(image.data(), line.data(), axis.points);
        }
        for (std::size_t i = 0; i < points; ++i) {
          first[i * width] = image[i];
        }
      }
    }
  }

  std::vector<Axis> axes_;
  mutable Lender lender_;
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
