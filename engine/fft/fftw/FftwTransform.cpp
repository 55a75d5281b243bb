// Transforms by FFTW 3.

#include <fftw3.h>

#include <memory>
#include <mutex>
#include <vector>

#include "fft/Transform.h"

namespace kx {

namespace {

// FFTW's planner is one for the process and not reentrant; executing plans is.
std::mutex& plannerMutex() {
  static std::mutex mutex;
  return mutex;
}

class FftwTransform : public Transform {
 public:
  FftwTransform(const std::vector<fftw_iodim>& points, const std::vector<fftw_iodim>& batch) {
    const std::lock_guard<std::mutex> lock(plannerMutex());
    forward_ = planned(points, batch, FFTW_FORWARD);
    backward_ = planned(points, batch, FFTW_BACKWARD);
  }
  FftwTransform(const FftwTransform&) = delete;
  FftwTransform& operator=(const FftwTransform&) = delete;
  ~FftwTransform() override {
    const std::lock_guard<std::mutex> lock(plannerMutex());
    fftw_destroy_plan(forward_);
    fftw_destroy_plan(backward_);
  }

  void forward(double* const data) const override { execute(forward_, data); }
  void backward(double* const data) const override { execute(backward_, data); }

 private:
  // FFTW_ESTIMATE compares operation counts; the other planners compare times, which differ from
  // run to run and would change the last bits of every result.
  static fftw_plan planned(const std::vector<fftw_iodim>& points,
                           const std::vector<fftw_iodim>& batch,
                           const int sign) {
    int numbers = 1;
    for (const auto& dimension : points) {
      numbers *= dimension.n;
    }
    for (const auto& dimension : batch) {
      numbers *= dimension.n;
    }
    fftw_complex* const scratch = fftw_alloc_complex(static_cast<std::size_t>(numbers));
    const fftw_plan plan = fftw_plan_guru_dft(static_cast<int>(points.size()),
                                              points.data(),
                                              static_cast<int>(batch.size()),
                                              batch.data(),
                                              scratch,
                                              scratch,
                                              sign,
                                              FFTW_ESTIMATE);
    fftw_free(scratch);
    return plan;
  }

  static void execute(const fftw_plan plan, double* const data) {
    auto* const numbers = reinterpret_cast<fftw_complex*>(data);
    fftw_execute_dft(plan, numbers, numbers);
  }

  fftw_plan forward_ = nullptr;
  fftw_plan backward_ = nullptr;
};

}  // namespace

std::unique_ptr<Transform> Transform::interleaved(const int n, const int count) {
  return std::make_unique<FftwTransform>(std::vector<fftw_iodim>{{n, count, count}},
                                         std::vector<fftw_iodim>{{count, 1, 1}});
}

std::unique_ptr<Transform> Transform::plane(const int rows, const int columns) {
  return std::make_unique<FftwTransform>(
      std::vector<fftw_iodim>{{rows, columns, columns}, {columns, 1, 1}},
      std::vector<fftw_iodim>{});
}

}  // namespace kx
