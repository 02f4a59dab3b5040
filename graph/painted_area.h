// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "graph/painted_rows.h"
#include "platform/drawing_surface.h"

namespace quenlor::graph {

// Which parts of a surface's viewport had one colour when it was looked at. To look takes as long as there
// are pixels in those rows; to ask takes two of the sums that are kept then for each row, however wide.
class PaintedArea {
 public:
  // The surface tells its pixels. Rows that were not looked at again are as they were; with another area or
  // colour all have to be.
  void Look(const platform::DrawingSurface& surface, platform::Rgb color, PixelRows rows);

  // Whether all of a rectangle had the colour, as far as it lies in the viewport's area: what is drawn in
  // that colour within it changes nothing.
  bool Contains(const platform::PixelRectangle& rectangle) const;

 private:
  platform::PixelRectangle area_;
  // Of the pixels to the left in the row, how many have another colour; a row has one more than pixels.
  std::vector<std::uint32_t> unlike_;
};

}  // namespace quenlor::graph
