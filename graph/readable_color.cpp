// SPDX-License-Identifier: MIT
#include "graph/readable_color.h"

#include <algorithm>
#include <cmath>

namespace quenlor::graph {
namespace {

double Luminance(Color color) {
  const auto linear = [](int level) {
    const double part = level / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.Red()) + 0.7152 * linear(color.Green()) + 0.0722 * linear(color.Blue());
}

// So much of the other colour, from 0 to 1, in the one.
Color Mixed(Color one, Color other, double part) {
  const auto level = [&](int from, int to) {
    return static_cast<std::uint32_t>(std::lround(from + (to - from) * part));
  };
  return {level(one.Red(), other.Red()) | level(one.Green(), other.Green()) << 8 |
          level(one.Blue(), other.Blue()) << 16};
}

}  // namespace

double Contrast(Color one, Color other) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

bool CanBeRead(Color letters, Color ground) { return Contrast(letters, ground) >= 3; }

Color PlateBehind(Color letters) { return Mixed(letters, ReadableOn(letters), 0.85); }

Color EdgeOf(Color color, Color ground) { return Mixed(color, ReadableOn(ground), 0.75); }

Color Paled(Color color, Color ground) { return Mixed(color, ground, 0.75); }

}  // namespace quenlor::graph
