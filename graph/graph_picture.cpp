// SPDX-License-Identifier: MIT
#include "graph/graph_picture.h"

#include <algorithm>

#include "graph/fit_text.h"
#include "graph/label_layout.h"

namespace quenlor::graph {
namespace {

using platform::Across;
using platform::Down;
using platform::DrawingSurface;
using platform::kTwipsPerPixel;

class CaptionPainter {
 public:
  explicit CaptionPainter(DrawingSurface& surface) : surface_(surface) {}

  // The lines of a caption stand one below the other, about the middle of its box.
  void Draw(const PlacedLabel& placed, std::string_view text, double text_height, Color color) {
    if (!placed.visible || text.empty()) return;
    surface_.SetPen({ToRgb(color)});
    const double line = text_height * 1.2;
    const auto lines = 1 + std::ranges::count(text, '\r');
    double middle = placed.box.top + placed.box.height / 2 - line * static_cast<double>(lines - 1) / 2;
    for (bool more = true; more; middle += line) {
      const std::size_t end = text.find('\r');
      more = end != text.npos;
      DrawLine(placed, text.substr(0, end), middle, text_height);
      if (more) text.remove_prefix(end + 1);
    }
  }

 private:
  void DrawLine(const PlacedLabel& placed, std::string_view text, double middle, double text_height) {
    const auto width = [&](std::string_view part) { return surface_.TextWidth(part, text_height); };
    const Box& box = placed.box;
    // A pixel is lost to rounding.
    const std::string shown = FitText(text, box.width + kTwipsPerPixel, width);
    switch (placed.side) {
      case TextSide::kLeft:
        return surface_.DrawText({box.left, middle}, Across::kLeft, Down::kCentre, shown, text_height);
      case TextSide::kCentre:
        return surface_.DrawText({box.left + box.width / 2, middle}, Across::kCentre, Down::kCentre, shown,
                                 text_height);
      case TextSide::kRight:
        return surface_.DrawText({box.left + box.width, middle}, Across::kRight, Down::kCentre, shown,
                                 text_height);
    }
  }

  DrawingSurface& surface_;
};

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

  CaptionPainter painter(surface);
  const PlotSettings& look = plot.Settings();
  const auto draw_ticks = [&](const auto& placed, const auto& labels) {
    for (std::size_t i = 1; i < placed.size(); ++i)
      painter.Draw(placed[i], labels[i].text, layout.text_height, look.GridColor);
  };
  for (std::size_t i = 0; i < layout.Label5.size(); ++i)
    painter.Draw(layout.Label5[i], captions.Label5[i], layout.text_height, look.GridColor);
  for (std::size_t i = 0; i < layout.Label6.size(); ++i)
    painter.Draw(layout.Label6[i], captions.Label6[i], layout.text_height, look.GridColor);
  draw_ticks(layout.Label7, captions.Label7);
  draw_ticks(layout.Label8, captions.Label8);
  draw_ticks(layout.Label9, captions.Label9);
  for (std::size_t run = 0; run < layout.Label10.size(); ++run) {
    const Color color = run == 0 ? look.GridColor : RunColor(look.colors, static_cast<long long>(run));
    painter.Draw(layout.Label10[run], captions.Label10[run], layout.legend_text_height, color);
  }
}

}  // namespace quenlor::graph
