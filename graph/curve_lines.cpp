// SPDX-License-Identifier: MIT
#include "graph/curve_lines.h"

#include <algorithm>
#include <utility>
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

// Walks through the readings from the newest back.
class CurveReader {
 public:
  CurveReader(const ValueArrays& values, const PlotSettings& settings, const CurvePlaces& places,
              CurvePieces& pieces)
      : values_(values), settings_(settings), places_(places), pieces_(pieces) {}

  void ReadAll(const std::vector<ValueArrays::Run>& runs) {
    end_ = values_.Size();
    for (std::size_t i = runs.size(); i-- > 0; end_ = std::min(end_, begin_)) {
      const ValueArrays::Run& run = runs[i];
      begin_ = run.first;
      if (begin_ >= end_) continue;
      const QuantityColors colors = CurveColors(settings_.colors, run.number, values_.SeveralSeries());
      ReadRun({Quantity::Visco, ToRgb(colors.visco)}, {Quantity::Temp, ToRgb(colors.temp)});
    }
  }

 private:
  struct Curve {
    Quantity quantity;
    Rgb color;
  };

  // Where lines and markers have one colour, it does not matter which of them lies on top; lines first, for
  // they hide more markers than the other way round.
  void ReadRun(const Curve& visco, const Curve& temp) {
    const bool both = places_.Has(Quantity::Visco) && places_.Has(Quantity::Temp);
    if (both && visco.color != temp.color) return ReadTogether(visco, temp);
    for (const Curve& curve : {temp, visco}) {
      if (!places_.Has(curve.quantity)) continue;
      ReadLines(curve, begin_, end_);
      ReadMarkers(curve, begin_, end_, 0);
    }
  }

  // Two curves of different colours: the newer reading lies on top, and of one reading the temperature. That
  // shows where they meet; there they are cut into blocks, the newest first, until the curves of a block lie
  // apart or newer ones hide it.
  void ReadTogether(const Curve& visco, const Curve& temp) {
    // Newer readings hide no more than the right half of a marker. One of which no more than the left half
    // would be seen is lost among older ones.
    constexpr double kHalf = 0.5;
    std::vector<std::pair<Index, Index>> apart;
    VisitBackwards(begin_, end_, ValueColumn::kLevels - 1, [&](Index block, Index block_end) {
      const bool one = block_end - block == 1;
      if (!one && Covered(block, block_end)) return true;
      if (!one && !Apart(block, block_end)) return false;
      for (const Curve& curve : {temp, visco}) {
        ReadLines(curve, block, block_end);
        if (one) ReadMarkers(curve, block, block_end, kHalf);
      }
      if (!one) apart.emplace_back(block, block_end);
      return true;
    });
    for (const auto& [begin, end] : apart) {
      for (const Curve& curve : {temp, visco}) ReadMarkers(curve, begin, end, 0);
    }
  }

  void ReadLines(const Curve& curve, Index begin, Index end) {
    for (Index to = end; to > begin;) {
      const Index from = std::max(begin, to - kReadingsAtOnce);
      lines_.clear();
      places_.LinesOf(curve.quantity, from, to, from > begin_, lines_);
      for (std::size_t i = lines_.size(); i-- > 0;) pieces_.AddLine(lines_[i], curve.color);
      to = from;
    }
  }

  void ReadMarkers(const Curve& curve, Index begin, Index end, double least_part) {
    if (!AnyMarker(begin, end)) return;
    const Index every = MarkerStep(settings_.MarkerEvery);
    const Index step = std::max<Index>(every, 1);
    Index marked = every == 0 ? begin_ : end - 1 - (end - 1 - begin_) % step;
    for (; marked >= begin; marked -= step) {
      const Dot centre = places_.Of(curve.quantity, marked);
      pieces_.AddMarker(curve.quantity, centre, curve.color, marked == begin_ ? 0 : least_part);
    }
  }

  bool AnyMarker(Index begin, Index end) const {
    return graph::AnyMarker(settings_.MarkerEvery, begin - begin_, end - begin_);
  }

  // The lines of a block begin at the reading before it.
  DotLine UprightOf(Quantity quantity, int column, Index begin, Index end) const {
    return places_.Upright(quantity, column, std::max(begin - 1, begin_), end);
  }

  // Whether newer readings hide all lines of both curves and, of their markers, the right halves and more. It
  // is known of readings in one column.
  bool Covered(Index begin, Index end) const {
    const auto [first, last] = places_.Columns(std::max(begin - 1, begin_), end);
    if (first != last) return false;
    const int reach = AnyMarker(begin, end) ? pieces_.Reach() : 0;
    for (const Quantity quantity : {Quantity::Visco, Quantity::Temp}) {
      const DotLine lines = UprightOf(quantity, first, begin, end);
      const DotLine markers{{first - reach / 2, lines.from.y - reach},
                            {first - reach / 2, lines.to.y + reach}};
      if (!pieces_.Cover(lines) || !pieces_.Cover(markers)) return false;
    }
    return true;
  }

  // Whether neither lines nor markers of the two curves touch.
  bool Apart(Index begin, Index end) const {
    const DotLine one = UprightOf(Quantity::Visco, 0, begin, end);
    const DotLine other = UprightOf(Quantity::Temp, 0, begin, end);
    const int reach = 2 * pieces_.Reach();
    return one.to.y + reach < other.from.y || other.to.y + reach < one.from.y;
  }

  const ValueArrays& values_;
  const PlotSettings& settings_;
  const CurvePlaces& places_;
  CurvePieces& pieces_;
  Index begin_ = 0;  // of the run
  Index end_ = 0;
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
                    const std::vector<ValueArrays::Run>& runs, const PlotSettings& settings,
                    const PlotAxes& axes) {
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
  CurveReader(values, settings, places, pieces).ReadAll(runs);
  surface.SetViewport(ViewportOf(area, dot, pieces.Reach(), surface.Whole()));
  DrawPieces(surface, pieces.Take(), markers, pen);
}

}  // namespace quenlor::graph
