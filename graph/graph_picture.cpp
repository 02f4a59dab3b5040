// SPDX-License-Identifier: MIT
#include "graph/graph_picture.h"

#include <algorithm>

#include "graph/caption_painter.h"

namespace quenlor::graph {
using platform::DrawingSurface;
using platform::kTwipsPerPixel;

void DrawGraphPicture(DrawingSurface& surface, const Plot& plot, const Captions& captions,
                      double largest_text) {
  const double pixels = std::max(surface.PenScale(), 1e-3);
  const double width = surface.Whole().width / pixels * kTwipsPerPixel;
  const double height = surface.Whole().height / pixels * kTwipsPerPixel;
  const PlotLayout areas(static_cast<float>(width), static_cast<float>(height));
  plot.Fig(surface, areas);
  if (surface.Whole().Empty()) return;
  surface.SetViewport(areas.Picture1Viewport(surface.Whole()));
  const LabelLayout layout = LayoutLabels(
      width, height, plot.Axes().Kind(), captions,
      [&](std::string_view text, double text_height) { return surface.TextWidth(text, text_height); },
      largest_text);

  const PlotSettings& look = plot.Settings();
  const auto draw = [&](const auto& labels) {
    for (const PlacedLabel& placed : labels) DrawCaption(surface, placed, look.GridColor, look.BackColor);
  };
  draw(layout.Label5);
  draw(layout.Label6);
  draw(layout.Label7);
  draw(layout.Label8);
  draw(layout.Label9);
  for (std::size_t run = 0; run < layout.Label10.size(); ++run) {
    const Color color = run == 0 ? look.GridColor : RunColor(look.colors, static_cast<long long>(run));
    DrawCaption(surface, layout.Label10[run], color, look.BackColor);
  }
}

}  // namespace quenlor::graph
