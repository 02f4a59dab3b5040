// SPDX-License-Identifier: MIT
#include "graph/graph_picture.h"

#include <algorithm>
#include <utility>

#include "graph/label_layout.h"

namespace quenlor::graph {
namespace {

using platform::Across;
using platform::Down;
using platform::DrawingSurface;
using platform::kTwipsPerPixel;

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

// The lines of a caption stand one below the other, about the middle of its box.
void DrawCaption(DrawingSurface& surface, const PlacedLabel& placed, Color color) {
  if (!placed.visible) return;
  surface.SetPen({ToRgb(color)});
  const auto [x, across] = Anchor(placed);
  const double line = placed.text_height * 1.2;
  double middle =
      placed.box.top + placed.box.height / 2 - line * (static_cast<double>(placed.lines.size()) - 1) / 2;
  for (const std::string& text : placed.lines) {
    if (!text.empty()) surface.DrawText({x, middle}, across, Down::kCentre, text, placed.text_height);
    middle += line;
  }
}

}  // namespace

void DrawGraphPicture(DrawingSurface& surface, const Plot& plot, const Captions& captions) {
  const double pixels = std::max(surface.PenScale(), 1e-3);
  const double width = surface.Whole().width / pixels * kTwipsPerPixel;
  const double height = surface.Whole().height / pixels * kTwipsPerPixel;
  const PlotLayout areas(static_cast<float>(width), static_cast<float>(height));
  plot.Fig(surface, areas);
  if (surface.Whole().Empty()) return;
  surface.SetViewport(areas.Picture1Viewport(surface.Whole()));
  const LabelLayout layout = LayoutLabels(
      width, height, plot.Axes().Kind(), captions,
      [&](std::string_view text, double text_height) { return surface.TextWidth(text, text_height); });

  const PlotSettings& look = plot.Settings();
  const auto draw = [&](const auto& labels) {
    for (const PlacedLabel& placed : labels) DrawCaption(surface, placed, look.GridColor);
  };
  draw(layout.Label5);
  draw(layout.Label6);
  draw(layout.Label7);
  draw(layout.Label8);
  draw(layout.Label9);
  for (std::size_t run = 0; run < layout.Label10.size(); ++run) {
    const Color color = run == 0 ? look.GridColor : RunColor(look.colors, static_cast<long long>(run));
    DrawCaption(surface, layout.Label10[run], color);
  }
}

}  // namespace quenlor::graph
