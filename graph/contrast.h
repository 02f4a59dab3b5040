// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

#include "graph/color_table.h"

namespace quenlor::graph {

// The relative luminance of an sRGB colour, 0 to 1.
inline double Luminance(Color color) {
  const auto linear = [](int level) {
    const double part = level / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.Red()) + 0.7152 * linear(color.Green()) + 0.0722 * linear(color.Blue());
}

// How strongly two colours stand out from each other: 1, not at all, to 21, black and white. The contrast
// ratio of the Web Content Accessibility Guidelines.
inline double Contrast(Color one, Color other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

// Below that, letters cannot be read.
inline constexpr double kReadable = 3;

}  // namespace quenlor::graph
