// SPDX-License-Identifier: MIT
#include "graph/caption_painter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "graph/plot_grid.h"
#include "graph/readable_color.h"

namespace quenlor::graph {
namespace {

using platform::Across;
using platform::DrawingSurface;
using platform::PixelRectangle;
using platform::Viewport;

std::pair<double, Across> Anchor(const PlacedLabel& placed) {
  const Box& box = placed.box;
  switch (placed.side) {
    case TextSide::kLeft:
      return {box.left, Across::kLeft};
    case TextSide::kRight:
      return {box.left + box.width, Across::kRight};
    case TextSide::kCentre:
      break;
  }
  return {box.left + box.width / 2, Across::kCentre};
}

void Fill(DrawingSurface& surface, const PixelRectangle& area, Color color) {
  if (area.Empty()) return;
  const Viewport before = surface.CurrentViewport();
  surface.SetViewport({area, {0, 0, 1, 1}});
  surface.Clear(ToRgb(color));
  surface.SetViewport(before);
}

}  // namespace

platform::Pen LetterPen(Color color, Color ground) {
  platform::Pen pen{ToRgb(color)};
  if (!CanBeRead(color, ground)) pen.outline = ToRgb(EdgeOf(color, ground));
  return pen;
}

void DrawBar(DrawingSurface& surface, const Box& box, Color color, Color ground) {
  const Viewport& at = surface.CurrentViewport();
  const PixelRectangle whole = surface.Whole();
  const auto column = [&](double x) { return std::clamp(at.Column(x), 0, whole.width); };
  const auto row = [&](double y) { return std::clamp(at.Row(y), 0, whole.height); };
  const int left = column(box.left);
  const int top = row(box.top);
  const PixelRectangle bar{left, top, column(box.left + box.width) - left, row(box.top + box.height) - top};
  if (bar.Empty()) return;
  const int hairline =
      std::min({static_cast<int>(std::max(1L, std::lround(surface.PenScale() / 2))), bar.width, bar.height});
  // The hairline over the fill: whoever shows a page in few dots would lose it under one.
  Fill(surface, bar, color);
  const Color edge = EdgeOf(color, ground);
  Fill(surface, {bar.left, bar.top, bar.width, hairline}, edge);
  Fill(surface, {bar.left, bar.top + bar.height - hairline, bar.width, hairline}, edge);
  Fill(surface, {bar.left, bar.top, hairline, bar.height}, edge);
  Fill(surface, {bar.left + bar.width - hairline, bar.top, hairline, bar.height}, edge);
}

// The lines stand one below the other, about the middle of what the bar leaves of the box.
void DrawCaption(DrawingSurface& surface, const PlacedLabel& placed, Color color, Color ground) {
  if (!placed.visible) return;
  const Box& box = placed.box;
  if (placed.bar > 0) DrawBar(surface, {box.left, box.top, box.width, placed.bar}, color, ground);
  surface.SetPen(LetterPen(color, ground));
  const auto [x, across] = Anchor(placed);
  const double line = placed.text_height * 1.2;
  double middle =
      box.top + (placed.bar + box.height) / 2 - line * (static_cast<double>(placed.lines.size()) - 1) / 2;
  for (const std::string& text : placed.lines) {
    if (!text.empty())
      surface.DrawText({x, middle}, across, platform::Down::kCentre, text, placed.text_height);
    middle += line;
  }
}

}  // namespace quenlor::graph
