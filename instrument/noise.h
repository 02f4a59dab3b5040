// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

namespace quenlor::instrument {

// Random numbers that are the same for the same seed on every platform.
//
// The engine's sequence is fixed by the language, the library's distributions are not; so the conversions
// stand here and use nothing but additions and exact scaling.
class Noise {
 public:
  explicit Noise(std::uint64_t seed) : engine_(seed) {}

  // In [0, 1), with all 53 bits of a double.
  double Uniform() { return static_cast<double>(engine_() >> 11) * 0x1p-53; }

  // In [0, end).
  int Below(int end) { return static_cast<int>(Uniform() * end); }

  // Mean 0, standard deviation 1, never beyond 6: the sum of twelve uniform numbers is close enough to a
  // normal one.
  double Normal() {
    double sum = -6;
    for (int i = 0; i < 12; ++i) sum += Uniform();
    return sum;
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace quenlor::instrument
