// SPDX-License-Identifier: MIT
#include "reports/report_curves.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>
#include <vector>

#include "graph/plot_grid.h"
#include "reports/curve_places.h"
#include "reports/page_colors.h"
#include "reports/painted_cells.h"

namespace quenlor::reports {
namespace {

using graph::Index;
using graph::ValueArrays;
using platform::DrawingSurface;
using platform::PixelRectangle;
using platform::Point;
using platform::Segment;

constexpr std::size_t kMostLinesAtOnce = 4096;
// Lines of so many readings are looked at together; enough for the joining of them to be worth while.
constexpr Index kReadingsAtOnce = Index{1} << 16;

// The part of a line within 0 to `width` and 0 to `height`.
std::optional<DotLine> Clipped(const DotLine& line, int width, int height) {
  const auto within = [&](Dot dot) { return dot.x >= 0 && dot.x <= width && dot.y >= 0 && dot.y <= height; };
  if (within(line.from) && within(line.to)) return line;
  const double across = line.to.x - line.from.x;
  const double down = line.to.y - line.from.y;
  // Parts of the line: where it enters and where it leaves the stripe of each side.
  double enters = 0;
  double leaves = 1;
  const auto stripe = [&](double from, double length, double end) {
    if (length == 0) return from >= 0 && from <= end;
    const auto [near, far] = std::minmax({-from / length, (end - from) / length});
    enters = std::max(enters, near);
    leaves = std::min(leaves, far);
    return enters <= leaves;
  };
  if (!stripe(line.from.x, across, width) || !stripe(line.from.y, down, height)) return std::nullopt;
  const auto at = [&](double part) {
    return Dot{std::clamp(static_cast<int>(std::lround(line.from.x + part * across)), 0, width),
               std::clamp(static_cast<int>(std::lround(line.from.y + part * down)), 0, height)};
  };
  return DotLine{at(enters), at(leaves)};
}

// Something that will be drawn. A marker's place is the line's first dot.
struct Piece {
  enum class Kind { kLine, kCircle, kCross };
  Kind kind;
  platform::Rgb color;
  DotLine line;
};

// Chooses what is drawn, from what lies on top down.
//
// A line that runs only where lines above it run would be hidden by them, whatever their colours, but for a
// fringe no wider than a cell, which is a fraction of the pen's width. It is left out, and so is a marker
// whose outline runs there. Each piece that stays paints a cell that none above it has painted, so their
// number is bounded by the plot's size, however many readings and runs lie one over the other.
class Chooser {
 public:
  Chooser(int width, int height, const MarkerSizes& markers, int cell)
      : width_(width),
        height_(height),
        markers_(markers),
        reach_(static_cast<int>(
            std::ceil(std::max({markers.circle, markers.cross_across, markers.cross_down})))),
        painted_(Cells(cell)),
        circles_(Cells(cell)),
        crosses_(Cells(cell)) {
    constexpr int kCorners = 24;
    const auto corner = [&](int i) {
      const double angle = 2 * std::numbers::pi * i / kCorners;
      return Around(markers.circle * std::cos(angle), markers.circle * std::sin(angle));
    };
    for (int i = 0; i < kCorners; ++i) circle_.push_back({corner(i), corner(i + 1)});
    const Dot half = Around(markers.cross_across, markers.cross_down);
    cross_ = {{{-half.x, -half.y}, half}, {{-half.x, half.y}, {half.x, -half.y}}};
  }

  int Reach() const { return reach_; }  // of a marker beyond the plot's edges

  void AddLine(const DotLine& line, platform::Rgb color) {
    const auto seen = Clipped(line, width_, height_);
    if (!seen) return;
    const DotLine moved{Moved(seen->from), Moved(seen->to)};
    if (painted_.Contain(moved)) return;
    painted_.Add(moved);
    pieces_.push_back({Piece::Kind::kLine, color, *seen});
  }

  void AddMarker(Quantity quantity, Dot centre, platform::Rgb color) {
    if (centre.x < 0 || centre.x > width_ || centre.y < 0 || centre.y > height_) return;
    const bool circle = quantity == Quantity::kVisco;
    PaintedCells& places = circle ? circles_ : crosses_;
    const Dot at = Moved(centre);
    // Where there is one already, another one would not be seen.
    if (places.Contain({at, at})) return;
    places.Add({at, at});
    const std::vector<DotLine>& outline = circle ? circle_ : cross_;
    const auto here = [&](const DotLine& line) { return DotLine{Sum(at, line.from), Sum(at, line.to)}; };
    if (std::ranges::all_of(outline, [&](const DotLine& line) { return painted_.Contain(here(line)); }))
      return;
    for (const DotLine& line : outline) painted_.Add(here(line));
    pieces_.push_back({circle ? Piece::Kind::kCircle : Piece::Kind::kCross, color, {centre, centre}});
  }

  // From below upwards.
  std::vector<Piece> Take() {
    std::ranges::reverse(pieces_);
    return std::move(pieces_);
  }

 private:
  // Markers reach over the edges of the plot, and so do the cells.
  PaintedCells Cells(int cell) const {
    const int width = width_ + 2 * reach_;
    const int height = height_ + 2 * reach_;
    // A page of any size has cells enough in two megabytes of each.
    constexpr int kMostCells = 4096;
    return {width, height, std::max({1, cell, std::max(width, height) / kMostCells})};
  }

  static Dot Around(double x, double y) {
    return {static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y))};
  }
  static Dot Sum(Dot one, Dot other) { return {one.x + other.x, one.y + other.y}; }
  Dot Moved(Dot dot) const { return Sum(dot, {reach_, reach_}); }

  int width_;
  int height_;
  MarkerSizes markers_;
  int reach_;
  PaintedCells painted_;
  PaintedCells circles_;  // their middles
  PaintedCells crosses_;
  std::vector<DotLine> circle_;  // outlines around 0, 0
  std::vector<DotLine> cross_;
  std::vector<Piece> pieces_;
};

// Walks through the runs from the newest back.
class CurveReader {
 public:
  CurveReader(const ValueArrays& values, const graph::PlotSettings& settings, const CurvePlaces& places,
              Chooser& chooser)
      : values_(values), settings_(settings), places_(places), chooser_(chooser) {}

  void ReadAll() {
    if (values_.Size() == 0) return;
    for (std::size_t run = values_.RunOf(values_.Size() - 1) + 1; run-- > 0;) {
      const graph::QuantityColors colors =
          graph::CurveColors(settings_.colors, values_.Runs()[run].number, values_.SeveralSeries());
      ReadCurve(run, Quantity::kTemp, graph::ToRgb(InkOf(colors.temp)));
      ReadCurve(run, Quantity::kVisco, graph::ToRgb(InkOf(colors.visco)));
    }
  }

 private:
  // Lines and markers of a curve have one colour, so it does not matter which of them lies on top; lines
  // first, for they hide more markers than the other way round.
  void ReadCurve(std::size_t run, Quantity quantity, platform::Rgb color) {
    if (!places_.Has(quantity)) return;
    const Index begin = values_.Runs()[run].first;
    const Index end = values_.RunEnd(run);
    for (Index to = end; to > begin;) {
      const Index from = std::max(begin, to - kReadingsAtOnce);
      lines_.clear();
      places_.LinesOf(quantity, from, to, from > begin, lines_);
      for (std::size_t i = lines_.size(); i-- > 0;) chooser_.AddLine(lines_[i], color);
      to = from;
    }
    const Index step = graph::MarkerStep(settings_.MarkerEvery);
    Index marked = step == 0 ? begin : begin + (end - 1 - begin) / step * step;
    while (marked > begin) {
      chooser_.AddMarker(quantity, places_.Of(quantity, marked), color);
      marked -= step;
    }
    if (begin < end) chooser_.AddMarker(quantity, places_.Of(quantity, begin), color);
  }

  const ValueArrays& values_;
  const graph::PlotSettings& settings_;
  const CurvePlaces& places_;
  Chooser& chooser_;
  std::vector<DotLine> lines_;
};

Point PointOf(Dot dot) { return {1.0 * dot.x, 1.0 * dot.y}; }

void DrawPieces(DrawingSurface& surface, const std::vector<Piece>& pieces, const MarkerSizes& markers,
                platform::Pen pen) {
  std::vector<Segment> lines;
  const auto flush = [&] {
    if (!lines.empty()) surface.DrawLines(lines);
    lines.clear();
  };
  bool pen_set = false;
  for (const Piece& piece : pieces) {
    if (!pen_set || piece.color != pen.color) {
      flush();
      pen.color = piece.color;
      surface.SetPen(pen);
      pen_set = true;
    }
    const Point from = PointOf(piece.line.from);
    if (piece.kind == Piece::Kind::kLine) {
      lines.push_back({from, PointOf(piece.line.to)});
      if (lines.size() >= kMostLinesAtOnce) flush();
    } else if (piece.kind == Piece::Kind::kCircle) {
      surface.DrawCircle(from, markers.circle);
    } else {
      surface.DrawCross(from, markers.cross_across, markers.cross_down);
    }
  }
  flush();
}

// The plot with room for markers around it, as far as the page reaches.
platform::Viewport ViewportOf(const PixelRectangle& plot, int reach, const PixelRectangle& page) {
  const int left = std::max(plot.left - reach, page.left);
  const int top = std::max(plot.top - reach, page.top);
  const int right = std::min(plot.left + plot.width + reach, page.left + page.width);
  const int bottom = std::min(plot.top + plot.height + reach, page.top + page.height);
  const PixelRectangle area{left, top, right - left, bottom - top};
  return {area, {1.0 * left - plot.left, 1.0 * top - plot.top, 1.0 * area.width, 1.0 * area.height}};
}

}  // namespace

MarkerSizes MarkersOn(double plot_width, double plot_height, graph::GraphKind kind) {
  // Of a plot of 10000 units down, and 6000 across over time or 10000 over temperature.
  const double unit_across = plot_width / (kind == graph::GraphKind::ViscoTemp ? 10000 : 6000);
  const double unit_down = plot_height / 10000;
  return {50 * std::sqrt(unit_across * unit_down), 40 * unit_across, 80 * unit_down};
}

void DrawCurves(DrawingSurface& surface, const PixelRectangle& plot, const ValueArrays& values,
                const graph::PlotSettings& settings, const data::AxisRanges& ranges) {
  if (plot.Empty()) return;
  const MarkerSizes markers = MarkersOn(plot.width, plot.height, settings.kind);
  const CurvePlaces places(plot.width, plot.height, values, settings, ranges);
  platform::Pen pen;
  pen.width = settings.LineWidth;
  pen.smooth = true;
  // A quarter of the thick pen, a third of the thin one: about a tenth of a millimetre.
  const double cell = surface.PenScale() * std::max(pen.width / 4, 1 / 3.0);
  Chooser chooser(plot.width, plot.height, markers, static_cast<int>(cell));
  CurveReader(values, settings, places, chooser).ReadAll();
  surface.SetViewport(ViewportOf(plot, chooser.Reach(), surface.Whole()));
  DrawPieces(surface, chooser.Take(), markers, pen);
}

}  // namespace quenlor::reports
