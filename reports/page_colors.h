// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

#include "graph/color_table.h"

namespace quenlor::reports {

// The graph's colours were chosen for a screen; here they meet white paper.

// How strongly a colour stands out from white: 1, not at all, to 21, black. The contrast ratio of the Web
// Content Accessibility Guidelines, from the luminance of the sRGB colour.
inline double ContrastToWhite(graph::Color color) {
  const auto linear = [](int level) {
    const double part = level / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  const double luminance =
      0.2126 * linear(color.Red()) + 0.7152 * linear(color.Green()) + 0.0722 * linear(color.Blue());
  return 1.05 / (luminance + 0.05);
}

// Letters in such a colour (yellow, cyan) cannot be read on paper, least of all from a black-and-white
// printer. They keep it, for it tells which curve they belong to, and stand on a black plate.
inline bool NeedsPlate(graph::Color color) { return ContrastToWhite(color) < 3; }

// What a curve is drawn with: its colour, or black where nothing would be seen of it. A curve is found by
// its shape in paler colours than letters are read in.
inline graph::Color InkOf(graph::Color color) {
  return ContrastToWhite(color) < 1.15 ? graph::kBlack : color;
}

}  // namespace quenlor::reports
