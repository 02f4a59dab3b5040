// SPDX-License-Identifier: MIT
#include "graph/selected_marks.h"

#include <algorithm>
#include <vector>

#include "graph/curve_places.h"
#include "graph/readout.h"

namespace quenlor::graph {
namespace {

constexpr Index kMostRings = 200;      // more readings are marked by a stroke
constexpr Index kMostDrawn = 200'000;  // of more readings than these, as many spread among them tell the rest
constexpr double kStroke = 9;          // pixels wide
constexpr double kStrokeOpacity = 0.3;

}  // namespace

void SelectedMarks::Mark(Index first, Index last) {
  first_ = std::max<Index>(first, 0);
  last_ = first < 0 ? -1 : last;
  drawn_.reset();
}

void SelectedMarks::Paint(QPainter& painter, const PlotAxes& axes, QSizeF size, double ratio,
                          const QColor& ink) {
  const Index end = std::min(last_ + 1, values_.Size());
  if (end <= first_ || size.isEmpty()) return;
  if (end - first_ <= kMostRings) {
    QColor pale = ink;
    pale.setAlphaF(0.7F);
    painter.setPen(QPen(pale, 1.5));
    return PaintRings(painter, axes, size, end);
  }
  const Inputs inputs{axes, size, ratio, values_.Generation(), end};
  if (drawn_ != inputs) DrawStroke(inputs, ink);
  painter.setOpacity(kStrokeOpacity);
  painter.drawImage(0, 0, stroke_);
  painter.setOpacity(1);
}

void SelectedMarks::PaintRings(QPainter& painter, const PlotAxes& axes, QSizeF size, Index end) const {
  const PlotPixels pixels(axes, size.width(), size.height());
  const CurvePlaces places(values_, axes, axes.PlotUnits(), size.width(), size.height());
  painter.setBrush(Qt::NoBrush);
  for (const Quantity quantity : {Quantity::Visco, Quantity::Temp}) {
    if (!places.Has(quantity)) continue;
    for (Index index = first_; index < end; ++index) {
      const PlotPixels::Point at = pixels.Of(values_, index, quantity);
      painter.drawEllipse(QPointF(at.x, at.y), kRing, kRing);
    }
  }
}

// Opaque, so that a stroke that crosses itself is not darker there.
void SelectedMarks::DrawStroke(const Inputs& inputs, const QColor& ink) {
  drawn_ = inputs;
  stroke_ = QImage((inputs.size * inputs.ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
  stroke_.setDevicePixelRatio(inputs.ratio);
  stroke_.fill(Qt::transparent);
  QPainter painter(&stroke_);
  painter.setPen(QPen(ink, kStroke));
  const CurvePlaces places(values_, inputs.axes, inputs.axes.PlotUnits(), inputs.size.width(),
                           inputs.size.height());
  const bool over_time = inputs.axes.Kind() != GraphKind::ViscoTemp;
  std::vector<DotLine> lines;
  std::vector<QLine> drawn;
  for (const Quantity quantity : {Quantity::Visco, Quantity::Temp}) {
    if (!places.Has(quantity)) continue;
    lines.clear();
    drawn.clear();
    std::size_t run = values_.RunOf(first_);
    for (Index begin = first_; begin < inputs.end; ++run) {
      const Index end = std::min(inputs.end, values_.RunEnd(run));
      // Over time, pixel columns are as few as the plot is wide; over temperature nothing bounds the lines.
      if (over_time || inputs.end - first_ <= kMostDrawn) {
        places.LinesOf(quantity, begin, end, false, lines);
      } else {
        const Index step = (inputs.end - first_) / kMostDrawn + 1;
        for (Index at = begin; at + step < end; at += step)
          lines.push_back({places.Of(quantity, at), places.Of(quantity, at + step)});
      }
      begin = end;
    }
    for (const DotLine& line : lines) drawn.emplace_back(line.from.x, line.from.y, line.to.x, line.to.y);
    painter.drawLines(drawn.data(), static_cast<int>(drawn.size()));
  }
}

}  // namespace quenlor::graph
