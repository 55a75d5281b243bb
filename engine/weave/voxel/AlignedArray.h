// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_VOXEL_ALIGNEDARRAY_H
#define KX_WEAVE_VOXEL_ALIGNEDARRAY_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>

namespace kx {

/// A fixed number of doubles that start on a cache line, zero at first.
class AlignedArray {
 public:
  AlignedArray() = default;
  explicit AlignedArray(const std::size_t size)
      : size_(size), data_(static_cast<double*>(::operator new(size * sizeof(double), kLine))) {
    clear();
  }

  double* data() { return data_.get(); }
  const double* data() const { return data_.get(); }
  std::size_t size() const { return size_; }
  bool isEmpty() const { return data_ == nullptr; }
  void clear() { std::fill_n(data_.get(), size_, 0.0); }

 private:
  static constexpr std::align_val_t kLine{64};
  struct Release {
    void operator()(double* data) const { ::operator delete(data, kLine); }
  };

  std::size_t size_ = 0;
  std::unique_ptr<double, Release> data_;
};

}  // namespace kx

#endif
