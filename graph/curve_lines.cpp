// SPDX-License-Identifier: MIT
#include "graph/curve_lines.h"

#include <algorithm>
#include <vector>

#include "graph/curve_pieces.h"
#include "graph/curve_places.h"
#include "graph/plot_grid.h"

namespace quenlor::graph {
namespace {

using platform::DrawingSurface;
using platform::PixelRectangle;
using platform::Point;
using platform::Rgb;
using platform::Segment;
using platform::Viewport;

constexpr std::size_t kMostLinesAtOnce = 4096;
// Lines of so many readings are looked at together; enough for the joining of them to be worth while.
constexpr Index kReadingsAtOnce = Index{1} << 16;

// Walks through the runs from the newest back.
class CurveReader {
 public:
  CurveReader(const ValueArrays& values, const PlotSettings& settings, const CurvePlaces& places,
              CurvePieces& pieces)
      : values_(values), settings_(settings), places_(places), pieces_(pieces) {}

  void ReadAll() {
    if (values_.Size() == 0) return;
    for (std::size_t run = values_.RunOf(values_.Size() - 1) + 1; run-- > 0;) {
      const QuantityColors colors =
          CurveColors(settings_.colors, values_.Runs()[run].number, values_.SeveralSeries());
      ReadCurve(run, Quantity::Temp, ToRgb(colors.temp));
      ReadCurve(run, Quantity::Visco, ToRgb(colors.visco));
    }
  }

 private:
  // Lines and markers of a curve have one colour, so it does not matter which of them lies on top; lines
  // first, for they hide more markers than the other way round.
  void ReadCurve(std::size_t run, Quantity quantity, Rgb color) {
    if (!places_.Has(quantity)) return;
    const Index begin = values_.Runs()[run].first;
    const Index end = values_.RunEnd(run);
    for (Index to = end; to > begin;) {
      const Index from = std::max(begin, to - kReadingsAtOnce);
      lines_.clear();
      places_.LinesOf(quantity, from, to, from > begin, lines_);
      for (std::size_t i = lines_.size(); i-- > 0;) pieces_.AddLine(lines_[i], color);
      to = from;
    }
    const Index step = MarkerStep(settings_.MarkerEvery);
    Index marked = step == 0 ? begin : begin + (end - 1 - begin) / step * step;
    while (marked > begin) {
      pieces_.AddMarker(quantity, places_.Of(quantity, marked), color);
      marked -= step;
    }
    if (begin < end) pieces_.AddMarker(quantity, places_.Of(quantity, begin), color);
  }

  const ValueArrays& values_;
  const PlotSettings& settings_;
  const CurvePlaces& places_;
  CurvePieces& pieces_;
  std::vector<DotLine> lines_;
};

Point PointOf(Dot dot) { return {1.0 * dot.x, 1.0 * dot.y}; }

void DrawPieces(DrawingSurface& surface, const std::vector<CurvePiece>& pieces, const MarkerSizes& markers,
                platform::Pen pen) {
  std::vector<Segment> lines;
  const auto flush = [&] {
    if (!lines.empty()) surface.DrawLines(lines);
    lines.clear();
  };
  bool pen_set = false;
  for (const CurvePiece& piece : pieces) {
    if (!pen_set || piece.color != pen.color) {
      flush();
      pen.color = piece.color;
      surface.SetPen(pen);
      pen_set = true;
    }
    const Point from = PointOf(piece.line.from);
    if (piece.kind == CurvePiece::Kind::kLine) {
      lines.push_back({from, PointOf(piece.line.to)});
      if (lines.size() >= kMostLinesAtOnce) flush();
    } else if (piece.kind == CurvePiece::Kind::kCircle) {
      surface.DrawCircle(from, markers.circle);
    } else {
      surface.DrawCross(from, markers.cross_across, markers.cross_down);
    }
  }
  flush();
}

// The dots of a plot and so many around it, as far as the device reaches.
Viewport ViewportOf(const PixelRectangle& plot, int dot, int reach, const PixelRectangle& whole) {
  const int width = plot.width / dot;
  const int height = plot.height / dot;
  const auto room = [&](int device) { return std::clamp(device / dot, 0, reach); };
  const int left = room(plot.left - whole.left);
  const int top = room(plot.top - whole.top);
  const int across = left + width + room(whole.left + whole.width - plot.left - width * dot);
  const int down = top + height + room(whole.top + whole.height - plot.top - height * dot);
  return {{plot.left - left * dot, plot.top - top * dot, across * dot, down * dot},
          {-1.0 * left, -1.0 * top, 1.0 * across, 1.0 * down}};
}

}  // namespace

void DrawCurveLines(DrawingSurface& surface, const Viewport& plot, int dot, const ValueArrays& values,
                    const PlotSettings& settings, const PlotAxes& axes) {
  const PixelRectangle& area = plot.Area();
  const int width = area.width / dot;
  const int height = area.height / dot;
  if (width <= 0 || height <= 0) return;
  const MarkerSizes markers = MarkersOn(plot.Across(1) / dot, plot.Down(1) / dot);
  platform::Pen pen;
  pen.width = settings.LineWidth;
  pen.smooth = true;
  // A quarter of the thick pen, a third of the thin one: about a tenth of a millimetre.
  const double cell = surface.PenScale() / dot * std::max(pen.width / 4, 1 / 3.0);
  CurvePieces pieces(width, height, markers, static_cast<int>(cell));
  const CurvePlaces places(values, axes, plot.CoordinateSystem(), 1.0 * area.width / dot,
                           1.0 * area.height / dot);
  CurveReader(values, settings, places, pieces).ReadAll();
  surface.SetViewport(ViewportOf(area, dot, pieces.Reach(), surface.Whole()));
  DrawPieces(surface, pieces.Take(), markers, pen);
}

}  // namespace quenlor::graph
