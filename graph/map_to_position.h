// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "graph/graph_math.h"

namespace quenlor::graph {

// Where a value stands on a page or in a picture: `value_min` at `position_min`, `value_max` at
// `position_max`, everything else, also beyond them, on the straight line through both. It places scale
// numbers and readings.
//
// The position is finite whatever the numbers are. A range that spans nothing has only one place, its lower
// end; so has what is not a number.
inline float MapToPosition(double value, double value_min, double value_max, double position_min,
                           double position_max) {
  constexpr double kFarthest = std::numeric_limits<float>::max();
  // Halves: a range from one end of the numbers to the other is longer than the largest of them.
  const double half = value_max / 2 - value_min / 2;
  const double part = half < 0 || half > 0 ? (value / 2 - value_min / 2) / half : 0;
  const double position = position_min + part * (position_max - position_min);
  const double known = std::isnan(position) ? Bounded(position_min) : position;
  return static_cast<float>(std::clamp(known, -kFarthest, kFarthest));
}

}  // namespace quenlor::graph
