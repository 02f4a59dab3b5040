// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <optional>

#include "platform/viewport.h"

namespace quenlor::platform {

// The part of a line that lies in the rectangle between two corners, its edges included; nothing where they
// do not touch.
inline std::optional<Segment> ClippedLine(const Segment& line, Point top_left, Point bottom_right) {
  const double across = line.to.x - line.from.x;
  const double down = line.to.y - line.from.y;
  // Parts of the line: where it enters and where it leaves the stripe of each side.
  double enters = 0;
  double leaves = 1;
  const auto stripe = [&](double from, double length, double begin, double end) {
    if (length == 0) return from >= begin && from <= end;
    const auto [near, far] = std::minmax({(begin - from) / length, (end - from) / length});
    enters = std::max(enters, near);
    leaves = std::min(leaves, far);
    return enters <= leaves;
  };
  if (!stripe(line.from.x, across, top_left.x, bottom_right.x)) return std::nullopt;
  if (!stripe(line.from.y, down, top_left.y, bottom_right.y)) return std::nullopt;
  const auto at = [&](double part) { return Point{line.from.x + part * across, line.from.y + part * down}; };
  return Segment{enters > 0 ? at(enters) : line.from, leaves < 1 ? at(leaves) : line.to};
}

}  // namespace quenlor::platform
