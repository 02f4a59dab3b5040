// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/viewport.h"

namespace quenlor::platform::qt {

// How much of each pixel of a rectangle lines with round ends cover, all of them as one shape: how far a
// pixel's middle is from the nearest of them tells. So it does not matter in which pieces and in which order
// a curve is drawn, and a joint looks like the rest of it.
//
// Places are device pixels; lines may reach as far beyond the rectangle as they like.
class LineCoverage {
 public:
  // Those pixels of `area` on which the lines may lie.
  LineCoverage(std::span<const Segment> lines, double width, const PixelRectangle& area);

  const PixelRectangle& Area() const { return area_; }  // empty where nothing is to be seen
  std::uint8_t At(int column, int row) const {          // from the area's corner; 255 is a whole pixel
    return covered_[static_cast<std::size_t>(row) * static_cast<std::size_t>(area_.width) +
                    static_cast<std::size_t>(column)];
  }

 private:
  void Add(const Segment& line);
  std::uint8_t Of(double distance) const;

  double half_;   // of the line's width
  double reach_;  // from a line's middle to the last pixel that it touches
  PixelRectangle area_;
  std::vector<std::uint8_t> covered_;
};

}  // namespace quenlor::platform::qt
