// SPDX-License-Identifier: MIT
#include "platform/qt/line_coverage.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/clipped_line.h"

namespace quenlor::platform::qt {
namespace {

// A pixel is as high and as wide as one; half of that lies on each side of its middle.
constexpr double kHalfPixel = 0.5;

int Floor(double place) { return static_cast<int>(std::floor(place)); }

}  // namespace

LineCoverage::LineCoverage(std::span<const Segment> lines, double width, const PixelRectangle& area)
    : half_(width / 2), reach_(half_ + kHalfPixel) {
  const Point top_left{area.left - reach_, area.top - reach_};
  const Point bottom_right{area.left + area.width + reach_, area.top + area.height + reach_};
  std::vector<Segment> seen;
  constexpr double kNowhere = std::numeric_limits<double>::infinity();
  Point least{kNowhere, kNowhere};
  Point most{-kNowhere, -kNowhere};
  for (const Segment& line : lines) {
    const auto part = ClippedLine(line, top_left, bottom_right);
    if (!part) continue;
    seen.push_back(*part);
    least = {std::min({least.x, part->from.x, part->to.x}), std::min({least.y, part->from.y, part->to.y})};
    most = {std::max({most.x, part->from.x, part->to.x}), std::max({most.y, part->from.y, part->to.y})};
  }
  if (seen.empty()) return;
  const int left = std::max(area.left, Floor(least.x - reach_));
  const int top = std::max(area.top, Floor(least.y - reach_));
  const int right = std::min(area.left + area.width, Floor(most.x + reach_) + 1);
  const int bottom = std::min(area.top + area.height, Floor(most.y + reach_) + 1);
  area_ = {left, top, std::max(0, right - left), std::max(0, bottom - top)};
  covered_.resize(static_cast<std::size_t>(area_.width) * static_cast<std::size_t>(area_.height));
  for (const Segment& line : seen) Add(line);
}

void LineCoverage::Add(const Segment& line) {
  const double across = line.to.x - line.from.x;
  const double down = line.to.y - line.from.y;
  const double length = std::hypot(across, down);
  // Along the line and aside of it; a dot has any direction.
  const Point along = length > 0 ? Point{across / length, down / length} : Point{1, 0};
  const auto [left, right] = std::minmax({line.from.x, line.to.x});
  const auto [top, bottom] = std::minmax({line.from.y, line.to.y});
  const int first_row = std::max(0, Floor(top - reach_) - area_.top);
  const int last_row = std::min(area_.height - 1, Floor(bottom + reach_) - area_.top);
  for (int row = first_row; row <= last_row; ++row) {
    const double y = area_.top + row + kHalfPixel - line.from.y;
    // Where the row crosses the stripe of the line's reach, and its ends.
    double begin = left - reach_;
    double end = right + reach_;
    if (along.y != 0) {
      const double middle = line.from.x + y * along.x / along.y;
      const double half = reach_ / std::fabs(along.y);
      begin = std::max(begin, middle - half);
      end = std::min(end, middle + half);
    }
    if (begin > end) continue;  // of a nearly level line they may be beyond what an int holds
    const int first = std::max(0, Floor(begin) - area_.left);
    const int last = std::min(area_.width - 1, Floor(end) - area_.left);
    std::uint8_t* const pixels =
        covered_.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(area_.width);
    for (int column = first; column <= last; ++column) {
      if (pixels[column] == 255) continue;
      const double x = area_.left + column + kHalfPixel - line.from.x;
      const double passed = x * along.x + y * along.y;
      const double aside = x * along.y - y * along.x;
      const double beyond = std::max({-passed, passed - length, 0.0});
      const double distance = beyond > 0 ? std::hypot(beyond, aside) : std::fabs(aside);
      pixels[column] = std::max(pixels[column], Of(distance));
    }
  }
}

// The part of a pixel across the line, that is; of a line thinner than a pixel no more than its width.
std::uint8_t LineCoverage::Of(double distance) const {
  const double part = std::min(distance + kHalfPixel, half_) - std::max(distance - kHalfPixel, -half_);
  return static_cast<std::uint8_t>(std::lround(255 * std::clamp(part, 0.0, 1.0)));
}

}  // namespace quenlor::platform::qt
