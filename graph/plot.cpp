// SPDX-License-Identifier: MIT
#include "graph/plot.h"

#include <algorithm>

#include "graph/curve_lines.h"
#include "graph/plot_curves.h"

namespace quenlor::graph {

using platform::DrawingSurface;
using platform::PixelRectangle;

void Plot::Set(const PlotSettings& settings, const data::AxisRanges& ranges) {
  settings_ = settings;
  ranges_ = ranges;
  SetScales();
}

void Plot::Fig(DrawingSurface& surface, const PlotLayout& layout) const {
  const PixelRectangle picture1 = surface.Whole();
  if (picture1.Empty()) return;
  const PixelRectangle picture2 = layout.Picture2Pixels(picture1);
  DrawPicture1(surface, picture1, layout);
  DrawBackground(surface, picture2);
  DrawGrid(surface, picture2);
  if (surface.KeepsLines()) {
    DrawKeptCurves(surface, picture2);
  } else {
    DrawCurves(surface, picture2);
  }
}

void Plot::DrawPicture1(DrawingSurface& surface, const PixelRectangle& area, const PlotLayout& layout) const {
  if (area.Empty()) return;
  surface.SetViewport(layout.Picture1Viewport(area));
  surface.Clear(ToRgb(settings_.BackColor));
  const QuantityColors samples = SampleColors(settings_.colors, settings_.GridColor, values_.SeveralSeries());
  graph::DrawLegend(surface, layout, settings_.kind, samples, settings_.LineWidth);
}

void Plot::DrawBackground(DrawingSurface& surface, const PixelRectangle& area) const {
  if (EnterPlot(surface, area)) surface.Clear(ToRgb(settings_.BackColor));
}

void Plot::DrawGrid(DrawingSurface& surface, const PixelRectangle& area) const {
  if (EnterPlot(surface, area)) graph::DrawGrid(surface, axes_, settings_.GridColor);
}

void Plot::DrawCurves(DrawingSurface& surface, const PixelRectangle& area, Row first_row,
                      Row last_row) const {
  if (!EnterPlot(surface, area)) return;
  CurvePainter(values_, axes_, settings_, surface).PaintRows(first_row - 1, last_row);
}

void Plot::DrawKeptCurves(DrawingSurface& surface, const PixelRectangle& area) const {
  if (area.Empty()) return;
  // A quarter of a pixel, and of the thinnest line's width: what is finer is not seen, and would fill files.
  const int dot = std::max(1, static_cast<int>(surface.PenScale() / 4));
  DrawCurveLines(surface, {area, axes_.PlotUnits()}, dot, values_, values_.Runs(), settings_, axes_);
}

void Plot::PlotRow(DrawingSurface& surface, const PixelRectangle& area, Row row) const {
  if (!EnterPlot(surface, area)) return;
  CurvePainter(values_, axes_, settings_, surface).PaintRow(row - 1);
}

bool Plot::EnterPlot(DrawingSurface& surface, const PixelRectangle& area) const {
  if (area.Empty()) return false;
  surface.SetViewport({area, axes_.PlotUnits()});
  return true;
}

void KeptPlot::Update(DrawingSurface& surface, const PixelRectangle& area) {
  const Inputs now = InputsNow(surface, area);
  const Index settled = Settled(area);
  const bool keep = shown_ == now && settled >= shown_readings_;
  if (keep && settled == shown_readings_) return;
  if (!keep) {
    plot_.DrawBackground(surface, area);
    plot_.DrawGrid(surface, area);
  }
  plot_.DrawCurves(surface, area, keep ? shown_readings_ + 1 : 1, settled);
  shown_ = now;
  shown_readings_ = settled;
}

void KeptPlot::DrawNewest(DrawingSurface& surface, const PixelRectangle& area) const {
  if (LacksNewest()) plot_.DrawCurves(surface, area, shown_readings_ + 1);
}

KeptPlot::Inputs KeptPlot::InputsNow(const DrawingSurface& surface, const PixelRectangle& area) const {
  return {plot_.settings_,
          plot_.axes_,
          area,
          surface.PenScale(),
          plot_.values_.Generation(),
          plot_.values_.SeveralSeries()};
}

Index KeptPlot::Settled(const PixelRectangle& area) const {
  const ValueArrays& values = plot_.values_;
  if (values.Size() == 0) return 0;
  const std::size_t newest = values.RunOf(values.Size() - 1);
  const bool smooth = CurvePainter::IsSmooth(values, newest, plot_.settings_, area);
  return smooth ? values.Runs()[newest].first : values.Size();
}

}  // namespace quenlor::graph
