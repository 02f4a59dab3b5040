// SPDX-License-Identifier: MIT
#include "graph/curve_pieces.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>

#include "platform/clipped_line.h"

namespace quenlor::graph {
namespace {

Dot Sum(Dot one, Dot other) { return {one.x + other.x, one.y + other.y}; }

// The part of a line within 0 to `width` and 0 to `height`.
std::optional<DotLine> Clipped(const DotLine& line, int width, int height) {
  const auto within = [&](Dot dot) { return dot.x >= 0 && dot.x <= width && dot.y >= 0 && dot.y <= height; };
  if (within(line.from) && within(line.to)) return line;
  const auto point = [](Dot dot) { return platform::Point{1.0 * dot.x, 1.0 * dot.y}; };
  const auto part =
      platform::ClippedLine({point(line.from), point(line.to)}, {0, 0}, {1.0 * width, 1.0 * height});
  if (!part) return std::nullopt;
  const auto dot = [&](platform::Point place) {
    return Dot{std::clamp(static_cast<int>(std::lround(place.x)), 0, width),
               std::clamp(static_cast<int>(std::lround(place.y)), 0, height)};
  };
  return DotLine{dot(part->from), dot(part->to)};
}

Dot Around(double x, double y) {
  return {static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y))};
}

std::vector<DotLine> CircleOf(double radius) {
  constexpr int kCorners = 24;
  const auto corner = [&](int i) {
    const double angle = 2 * std::numbers::pi * i / kCorners;
    return Around(radius * std::cos(angle), radius * std::sin(angle));
  };
  std::vector<DotLine> circle;
  circle.reserve(kCorners);
  for (int i = 0; i < kCorners; ++i) circle.push_back({corner(i), corner(i + 1)});
  return circle;
}

std::vector<DotLine> CrossOf(double across, double down) {
  constexpr int kParts = 8;
  std::vector<DotLine> cross;
  for (const int turned : {1, -1}) {
    const auto at = [&](int i) {
      const double part = 2.0 * i / kParts - 1;
      return Around(part * across, turned * part * down);
    };
    for (int i = 0; i < kParts; ++i) cross.push_back({at(i), at(i + 1)});
  }
  return cross;
}

}  // namespace

CurvePieces::CurvePieces(int width, int height, const MarkerSizes& markers, int cell)
    : width_(width),
      height_(height),
      reach_(
          static_cast<int>(std::ceil(std::max({markers.circle, markers.cross_across, markers.cross_down})))),
      painted_(Cells(cell)),
      circles_(Cells(cell)),
      crosses_(Cells(cell)),
      circle_(CircleOf(markers.circle)),
      cross_(CrossOf(markers.cross_across, markers.cross_down)) {}

bool CurvePieces::Cover(const DotLine& line) const {
  const auto seen = Clipped(line, width_, height_);
  return !seen || painted_.Contain({Moved(seen->from), Moved(seen->to)});
}

void CurvePieces::AddLine(const DotLine& line, platform::Rgb color) {
  const auto seen = Clipped(line, width_, height_);
  if (!seen) return;
  const DotLine moved{Moved(seen->from), Moved(seen->to)};
  if (painted_.Contain(moved)) return;
  painted_.Add(moved);
  pieces_.push_back({CurvePiece::Kind::kLine, color, *seen});
}

void CurvePieces::AddMarker(Quantity quantity, Dot centre, platform::Rgb color, double least_part) {
  if (centre.x < 0 || centre.x > width_ || centre.y < 0 || centre.y > height_) return;
  const bool circle = quantity == Quantity::Visco;
  PaintedCells& places = circle ? circles_ : crosses_;
  const Dot at = Moved(centre);
  // Where there is one already, another one would not be seen.
  if (places.Contain({at, at})) return;
  places.Add({at, at});
  const std::vector<DotLine>& outline = circle ? circle_ : cross_;
  const auto here = [&](const DotLine& line) { return DotLine{Sum(at, line.from), Sum(at, line.to)}; };
  const auto seen =
      std::ranges::count_if(outline, [&](const DotLine& line) { return !painted_.Contain(here(line)); });
  if (static_cast<double>(seen) <= least_part * static_cast<double>(outline.size())) return;
  for (const DotLine& line : outline) painted_.Add(here(line));
  pieces_.push_back({circle ? CurvePiece::Kind::kCircle : CurvePiece::Kind::kCross, color, {centre, centre}});
}

std::vector<CurvePiece> CurvePieces::Take() {
  std::ranges::reverse(pieces_);
  return std::move(pieces_);
}

// Markers reach over the edges of the plot, and so do the cells.
PaintedCells CurvePieces::Cells(int cell) const {
  const int width = width_ + 2 * reach_;
  const int height = height_ + 2 * reach_;
  // A page of any size has cells enough in two megabytes of each.
  constexpr int kMostCells = 4096;
  return {width, height, std::max({1, cell, std::max(width, height) / kMostCells})};
}

}  // namespace quenlor::graph
