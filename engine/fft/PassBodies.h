// SPDX-License-Identifier: BSD-3-Clause
// The passes' code, included by one source file per instruction set; see Passes.h. Everything has
// internal linkage and nothing of the standard library is used: an inline function shared with
// code for a lesser processor could otherwise come out compiled for the better one.
#ifndef KX_FFT_PASSBODIES_H
#define KX_FFT_PASSBODIES_H

#include "fft/Passes.h"

namespace kx::fft {
namespace {

// As many complex numbers of neighbouring lines as a register holds, or one.
#if defined(KX_WIDE)
constexpr int kMany = 4;
#else
constexpr int kMany = 2;
#endif
using Many = double __attribute__((vector_size(16 * kMany)));
using One = double __attribute__((vector_size(16)));

inline One loadOne(const double* const from) {
  One value;
  __builtin_memcpy(&value, from, sizeof value);
  return value;
}

inline void storeOne(double* const to, const One value) {
  __builtin_memcpy(to, &value, sizeof value);
}

// V from or to lines that lie side by side (kTogether) or `line` doubles apart.
template <class V, bool kTogether>
inline V load(const double* const from, const std::ptrdiff_t line) {
  V value;
  if constexpr (kTogether || sizeof(V) == sizeof(One)) {
    __builtin_memcpy(&value, from, sizeof value);
  } else {
    const One a = loadOne(from);
    const One b = loadOne(from + line);
#if defined(KX_WIDE)
    const One c = loadOne(from + 2 * line);
    const One d = loadOne(from + 3 * line);
    value = __builtin_shufflevector(__builtin_shufflevector(a, b, 0, 1, 2, 3),
                                    __builtin_shufflevector(c, d, 0, 1, 2, 3),
                                    0,
                                    1,
                                    2,
                                    3,
                                    4,
                                    5,
                                    6,
                                    7);
#else
    value = __builtin_shufflevector(a, b, 0, 1, 2, 3);
#endif
  }
  return value;
}

template <class V, bool kTogether>
inline void store(double* const to, const std::ptrdiff_t line, const V value) {
  if constexpr (kTogether || sizeof(V) == sizeof(One)) {
    __builtin_memcpy(to, &value, sizeof value);
  } else {
    storeOne(to, __builtin_shufflevector(value, value, 0, 1));
    storeOne(to + line, __builtin_shufflevector(value, value, 2, 3));
#if defined(KX_WIDE)
    storeOne(to + 2 * line, __builtin_shufflevector(value, value, 4, 5));
    storeOne(to + 3 * line, __builtin_shufflevector(value, value, 6, 7));
#endif
  }
}

inline Many crossed(const Many x) {
#if defined(KX_WIDE)
  return __builtin_shufflevector(x, x, 1, 0, 3, 2, 5, 4, 7, 6);
#else
  return __builtin_shufflevector(x, x, 1, 0, 3, 2);
#endif
}
inline One crossed(const One x) {
  return __builtin_shufflevector(x, x, 1, 0);
}

// (sense, -sense) in every complex number: crossed(x) * this is x * -i forward, x * i backward.
template <class V>
inline V quarterTurn(const double sense) {
  V turn;
  for (std::size_t i = 0; i < sizeof(V) / sizeof(double); i += 2) {
    turn[i] = sense;
    turn[i + 1] = -sense;
  }
  return turn;
}

template <class V>
inline V turned(const V x, const double cosine, const V sine) {
  return x * cosine + crossed(x) * sine;
}

// Discrete Fourier transforms of R numbers in place, quarter = quarterTurn(sense).
template <int R, class V>
struct Butterfly;

template <class V>
struct Butterfly<2, V> {
  static inline void run(V* const x, const V /*quarter*/) {
    const V a = x[0];
    x[0] = a + x[1];
    x[1] = a - x[1];
  }
};

template <class V>
struct Butterfly<3, V> {
  static inline void run(V* const x, const V quarter) {
    constexpr double kSin = 0.86602540378443864676;  // sin(2 pi / 3)
    const V sum = x[1] + x[2];
    const V across = crossed(x[1] - x[2]) * (kSin * quarter);
    const V mean = x[0] - 0.5 * sum;
    x[0] = x[0] + sum;
    x[1] = mean + across;
    x[2] = mean - across;
  }
};

template <class V>
struct Butterfly<4, V> {
  static inline void run(V* const x, const V quarter) {
    const V a = x[0] + x[2];
    const V b = x[0] - x[2];
    const V c = x[1] + x[3];
    const V d = crossed(x[1] - x[3]) * quarter;
    x[0] = a + c;
    x[1] = b + d;
    x[2] = a - c;
    x[3] = b - d;
  }
};

template <class V>
struct Butterfly<5, V> {
  static inline void run(V* const x, const V quarter) {
    constexpr double kCos1 = 0.30901699437494742410;   // cos(2 pi / 5)
    constexpr double kCos2 = -0.80901699437494742410;  // cos(4 pi / 5)
    constexpr double kSin1 = 0.95105651629515357212;
    constexpr double kSin2 = 0.58778525229247312917;
    const V sum1 = x[1] + x[4];
    const V sum2 = x[2] + x[3];
    const V difference1 = crossed(x[1] - x[4]);
    const V difference2 = crossed(x[2] - x[3]);
    const V mean1 = x[0] + kCos1 * sum1 + kCos2 * sum2;
    const V mean2 = x[0] + kCos2 * sum1 + kCos1 * sum2;
    const V across1 = (kSin1 * difference1 + kSin2 * difference2) * quarter;
    const V across2 = (kSin2 * difference1 - kSin1 * difference2) * quarter;
    x[0] = x[0] + sum1 + sum2;
    x[1] = mean1 + across1;
    x[2] = mean2 + across2;
    x[3] = mean2 - across2;
    x[4] = mean1 - across1;
  }
};

template <class V>
struct Butterfly<8, V> {
  static inline void run(V* const x, const V quarter) {
    constexpr double kHalf = 0.70710678118654752440;  // sqrt(1/2)
    V even[4] = {x[0], x[2], x[4], x[6]};
    V odd[4] = {x[1], x[3], x[5], x[7]};
    Butterfly<4, V>::run(even, quarter);
    Butterfly<4, V>::run(odd, quarter);
    const V turn1 = kHalf * (odd[1] + crossed(odd[1]) * quarter);
    const V turn2 = crossed(odd[2]) * quarter;
    const V turn3 = kHalf * (crossed(odd[3]) * quarter - odd[3]);
    x[0] = even[0] + odd[0];
    x[1] = even[1] + turn1;
    x[2] = even[2] + turn2;
    x[3] = even[3] + turn3;
    x[4] = even[0] - odd[0];
    x[5] = even[1] - turn1;
    x[6] = even[2] - turn2;
    x[7] = even[3] - turn3;
  }
};

template <class V>
struct Butterfly<16, V> {
  static inline void run(V* const x, const V quarter) {
    constexpr double kCos[10] = {1,
                                 0.92387953251128675613,
                                 0.70710678118654752440,
                                 0.38268343236508977173,
                                 0,
                                 0,
                                 -0.70710678118654752440,
                                 0,
                                 0,
                                 -0.92387953251128675613};
    constexpr double kSin[10] = {0,
                                 0.38268343236508977173,
                                 0.70710678118654752440,
                                 0.92387953251128675613,
                                 1,
                                 0,
                                 0.70710678118654752440,
                                 0,
                                 0,
                                 -0.38268343236508977173};
    V y[4][4];
    for (int i = 0; i < 4; ++i) {
      for (int j = 0; j < 4; ++j) {
        y[i][j] = x[i + 4 * j];
      }
      Butterfly<4, V>::run(y[i], quarter);
      if (i > 0)
        for (int j = 1; j < 4; ++j) {
          y[i][j] = turned(y[i][j], kCos[i * j], kSin[i * j] * quarter);
        }
    }
    for (int j = 0; j < 4; ++j) {
      V z[4] = {y[0][j], y[1][j], y[2][j], y[3][j]};
      Butterfly<4, V>::run(z, quarter);
      for (int i = 0; i < 4; ++i) {
        x[j + 4 * i] = z[i];
      }
    }
  }
};

template <class V>
struct Butterfly<12, V> {
  static inline void run(V* const x, const V quarter) {
    V y[3][4];
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 4; ++j) {
        y[i][j] = x[(4 * i + 3 * j) % 12];
      }
      Butterfly<4, V>::run(y[i], quarter);
    }
    for (int j = 0; j < 4; ++j) {
      V z[3] = {y[0][j], y[1][j], y[2][j]};
      Butterfly<3, V>::run(z, quarter);
      for (int i = 0; i < 3; ++i) {
        x[(4 * i + 9 * j) % 12] = z[i];
      }
    }
  }
};

// Twice an odd number of points needs no factors between the two transforms (good1958).
template <int Q, class V>
inline void runTwice(V* const x, const V quarter) {
  V sums[Q];
  V differences[Q];
  for (int i = 0; i < Q; ++i) {
    const V a = x[(2 * i) % (2 * Q)];
    const V b = x[(2 * i + Q) % (2 * Q)];
    sums[i] = a + b;
    differences[i] = a - b;
  }
  Butterfly<Q, V>::run(sums, quarter);
  Butterfly<Q, V>::run(differences, quarter);
  for (int k = 0; k < 2 * Q; ++k) {
    x[k] = k % 2 == 0 ? sums[k % Q] : differences[k % Q];
  }
}

template <class V>
struct Butterfly<6, V> {
  static inline void run(V* const x, const V quarter) { runTwice<3, V>(x, quarter); }
};

template <class V>
struct Butterfly<10, V> {
  static inline void run(V* const x, const V quarter) { runTwice<5, V>(x, quarter); }
};

// One group of points of a pass: where it comes from and goes to, and how its points are turned.
struct Group {
  const double* from;
  double* to;
  std::ptrdiff_t fromStep;
  std::ptrdiff_t toStep;
  std::ptrdiff_t turnStep;  // of inTurns and outTurns, cos and sin per point
  const double* inTurns;
  const double* outTurns;
  const double* twiddles;
};

template <int R, bool kFromTogether, bool kToTogether, class V>
inline void runGroup(const Group& g,
                     const std::ptrdiff_t fromLine,
                     const std::ptrdiff_t toLine,
                     const std::ptrdiff_t at,
                     const V quarter) {
  V x[R];
  const double* const from = g.from + at * fromLine;
  for (int i = 0; i < R; ++i) {
    x[i] = load<V, kFromTogether>(from + i * g.fromStep, fromLine);
    if (g.inTurns != nullptr) {
      const double* const turn = g.inTurns + i * g.turnStep;
      x[i] = turned(x[i], turn[0], -turn[1] * quarter);
    }
  }
  Butterfly<R, V>::run(x, quarter);
  if (g.twiddles != nullptr) {
    for (int i = 1; i < R; ++i) {
      x[i] = turned(x[i], g.twiddles[2 * i - 2], g.twiddles[2 * i - 1] * quarter);
    }
  }
  double* const to = g.to + at * toLine;
  for (int i = 0; i < R; ++i) {
    if (g.outTurns != nullptr) {
      const double* const turn = g.outTurns + i * g.turnStep;
      x[i] = turned(x[i], turn[0], -turn[1] * quarter);
    }
    store<V, kToTogether>(to + i * g.toStep, toLine, x[i]);
  }
}

// All lines of a group; kFromTogether and kToTogether: the lines lie side by side.
template <int R, bool kFromTogether, bool kToTogether>
inline void runLines(const PassJob& job, const Group& g) {
  const std::ptrdiff_t fromLine = kFromTogether ? 2 : job.from.line;
  const std::ptrdiff_t toLine = kToTogether ? 2 : job.to.line;
  const Many quarter = quarterTurn<Many>(job.sense);
  std::ptrdiff_t at = 0;
  for (; at + kMany <= job.lines; at += kMany) {
    runGroup<R, kFromTogether, kToTogether>(g, fromLine, toLine, at, quarter);
  }
  for (; at < job.lines; ++at) {
    runGroup<R, kFromTogether, kToTogether>(g, fromLine, toLine, at, quarterTurn<One>(job.sense));
  }
}

template <int R, bool kFromTogether, bool kToTogether, bool kTurned>
void runPoints(const PassJob& job) {
  const std::ptrdiff_t blocks = job.pass.blocks;
  const std::ptrdiff_t repeats = job.pass.repeats;
  Group g{};
  g.fromStep = blocks * repeats * job.from.point;
  g.toStep = repeats * job.to.point;
  for (std::ptrdiff_t block = 0; block < blocks; ++block) {
    // The factors of the first block are 1.
    g.twiddles = block == 0 ? nullptr : job.pass.twiddles + 2 * (R - 1) * block;
    for (std::ptrdiff_t repeat = 0; repeat < repeats; ++repeat) {
      const std::ptrdiff_t first = block * repeats + repeat;
      const std::ptrdiff_t last = block * repeats * R + repeat;
      g.from = job.from.base + first * job.from.point;
      g.to = job.to.base + last * job.to.point;
      if constexpr (kTurned) {
        g.turnStep = 2 * (job.inTurns != nullptr ? blocks * repeats : repeats);
        g.inTurns = job.inTurns != nullptr ? job.inTurns + 2 * first : nullptr;
        g.outTurns = job.outTurns != nullptr ? job.outTurns + 2 * last : nullptr;
      }
      runLines<R, kFromTogether, kToTogether>(job, g);
    }
  }
}

template <int R>
void runRadix(const PassJob& job) {
  const bool fromTogether = job.from.line == 2;
  const bool toTogether = job.to.line == 2;
  if (job.inTurns != nullptr || job.outTurns != nullptr) {
    runPoints<R, true, true, true>(job);
  } else if (fromTogether && toTogether) {
    runPoints<R, true, true, false>(job);
  } else if (fromTogether) {
    runPoints<R, true, false, false>(job);
  } else if (toTogether) {
    runPoints<R, false, true, false>(job);
  } else {
    runPoints<R, false, false, false>(job);
  }
}

void runPass(const PassJob& job) {
  switch (job.pass.radix) {
    case 2:
      return runRadix<2>(job);
    case 3:
      return runRadix<3>(job);
    case 4:
      return runRadix<4>(job);
    case 5:
      return runRadix<5>(job);
    case 6:
      return runRadix<6>(job);
    case 8:
      return runRadix<8>(job);
    case 12:
      return runRadix<12>(job);
    case 16:
      return runRadix<16>(job);
    default:
      return runRadix<10>(job);
  }
}

}  // namespace
}  // namespace kx::fft

#endif
