// SPDX-License-Identifier: MIT
#include "graph/painted_area.h"

#include <algorithm>
#include <span>

namespace quenlor::graph {
namespace {

using platform::PixelRectangle;

PixelRectangle Common(const PixelRectangle& one, const PixelRectangle& other) {
  const int left = std::max(one.left, other.left);
  const int top = std::max(one.top, other.top);
  return {left, top, std::min(one.left + one.width, other.left + other.width) - left,
          std::min(one.top + one.height, other.top + other.height) - top};
}

}  // namespace

void PaintedArea::Look(const platform::DrawingSurface& surface, platform::Rgb color, PixelRows rows) {
  area_ = Common(surface.CurrentViewport().Area(), surface.Whole());
  if (area_.Empty()) area_ = {};
  const auto width = static_cast<std::size_t>(area_.width);
  unlike_.resize((width + 1) * static_cast<std::size_t>(area_.height));
  const std::uint32_t wanted = 0xFF000000U | static_cast<std::uint32_t>(color.red) << 16 |
                               static_cast<std::uint32_t>(color.green) << 8 |
                               static_cast<std::uint32_t>(color.blue);
  const int end = std::min(rows.last, area_.top + area_.height - 1) + 1;
  for (int y = std::max(rows.first, area_.top); y < end; ++y) {
    const std::span<const std::uint32_t> pixels =
        surface.PixelsOf(y).subspan(static_cast<std::size_t>(area_.left), width);
    std::uint32_t* const sums = &unlike_[static_cast<std::size_t>(y - area_.top) * (width + 1)];
    std::uint32_t sum = 0;
    for (std::size_t x = 0; x < width; ++x) {
      sum += pixels[x] == wanted ? 0 : 1;
      sums[x + 1] = sum;
    }
  }
}

bool PaintedArea::Contains(const PixelRectangle& rectangle) const {
  const PixelRectangle part = Common(area_, rectangle);
  if (part.Empty()) return true;
  const std::size_t step = static_cast<std::size_t>(area_.width) + 1;
  const std::uint32_t* left = &unlike_[static_cast<std::size_t>(part.top - area_.top) * step +
                                       static_cast<std::size_t>(part.left - area_.left)];
  for (int row = 0; row < part.height; ++row, left += step) {
    if (left[0] != left[part.width]) return false;
  }
  return true;
}

}  // namespace quenlor::graph
