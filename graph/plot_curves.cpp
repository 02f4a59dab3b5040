// SPDX-License-Identifier: MIT
#include "graph/plot_curves.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "graph/plot_grid.h"

namespace quenlor::graph {
namespace {

using platform::DrawingSurface;
using platform::Point;
using platform::Segment;
using platform::Viewport;

constexpr MarkerSizes kMarkers;
constexpr std::size_t kMostLinesAtOnce = 4096;
constexpr double kNotPainted = 0.45;  // of a pixel; what sticks out so far

// How far to the left and above of its points a line is painted: a square end that leans reaches as far as
// half of its diagonal, and a pixel counts from its middle on. To the right and below it is one pixel less.
int LineReachOf(double pen) {
  constexpr double kHalfDiagonal = 0.70711;
  return std::max(1, static_cast<int>(kHalfDiagonal * std::min(pen, 1e6) + 0.55));
}

int ReachOf(const Viewport& viewport, double pen) {
  const double marker = std::max({viewport.Round(kMarkers.circle), viewport.Across(kMarkers.cross_across),
                                  viewport.Down(kMarkers.cross_down)});
  // Two more for what rounding adds on either side.
  return static_cast<int>(std::clamp(marker + pen + 2, 0.0, 1e6));
}

}  // namespace

CurvePainter::CurvePainter(const ValueArrays& values, const PlotAxes& axes, const PlotSettings& settings,
                           DrawingSurface& surface)
    : values_(values),
      axes_(axes),
      settings_(settings),
      surface_(surface),
      viewport_(surface.CurrentViewport()),
      pen_pixels_(settings.LineWidth * surface.PenScale()),
      line_reach_(LineReachOf(pen_pixels_)),
      reach_(ReachOf(viewport_, pen_pixels_)),
      painted_(viewport_.Area().top - reach_, viewport_.Area().top + viewport_.Area().height + reach_) {
  pen_.width = settings.LineWidth;
}

bool CurvePainter::IsSmooth(const ValueArrays& values, std::size_t run, const PlotSettings& settings,
                            const platform::PixelRectangle& area) {
  return settings.smooth_sparse_runs && values.RunEnd(run) - values.Runs()[run].first < area.width;
}

void CurvePainter::PaintRow(Index index) {
  if (index < 0 || index >= values_.Size()) return;
  EnterRun(values_.RunOf(index));
  PaintReading(index);
  Flush();
}

void CurvePainter::PaintRows(Index begin, Index end) {
  end = std::min(end, values_.Size());
  Index at = std::max<Index>(begin, 0);
  while (at < end) {
    const std::size_t run = values_.RunOf(at);
    const Index stop = std::min(end, values_.RunEnd(run));
    EnterRun(run);
    if (pen_.smooth) {
      PaintSmoothRun(stop);
    } else if (IsTangle(at, stop)) {
      PaintTangle(at, stop);
    } else {
      PaintColumns(at, stop);
    }
    at = stop;
  }
  Flush();
}

void CurvePainter::EnterRun(std::size_t run) {
  const ValueArrays::Run& entered = values_.Runs()[run];
  run_begin_ = entered.first;
  const QuantityColors colors = CurveColors(settings_.colors, entered.number, values_.SeveralSeries());
  curves_.clear();
  if (axes_.ShowsVisco()) curves_.push_back({Quantity::Visco, ToRgb(colors.visco)});
  if (axes_.ShowsTemp()) curves_.push_back({Quantity::Temp, ToRgb(colors.temp)});

  const bool smooth = IsSmooth(values_, run, settings_, viewport_.Area());
  if (smooth != pen_.smooth) {
    Flush();
    pen_.smooth = smooth;
    pen_set_ = false;
  }
}

void CurvePainter::PaintMarkersOf(Index index) {
  if (!HasMarker(settings_.MarkerEvery, index - run_begin_)) return;
  for (const Curve& curve : curves_) {
    UseColor(curve.color);
    PaintMarker(curve, PointOf(curve, index));
  }
}

// One reading as it is: marker and line from the reading before, of one curve after the other.
void CurvePainter::PaintReading(Index index) {
  for (const Curve& curve : curves_) {
    UseColor(curve.color);
    const Point here = PointOf(curve, index);
    if (HasMarker(settings_.MarkerEvery, index - run_begin_)) PaintMarker(curve, here);
    if (index > run_begin_) Line({PointOf(curve, index - 1), here});
  }
}

// The readings of the run up to, not including, `end`.
void CurvePainter::PaintSmoothRun(Index end) {
  for (const Curve& curve : curves_) {
    UseColor(curve.color);
    Flush();
    for (Index index = run_begin_ + 1; index < end; ++index)
      lines_.push_back({PointOf(curve, index - 1), PointOf(curve, index)});
    Flush();
    for (Index index = run_begin_; index < end; ++index) {
      if (HasMarker(settings_.MarkerEvery, index - run_begin_)) PaintMarker(curve, PointOf(curve, index));
    }
  }
}

void CurvePainter::PaintColumns(Index begin, Index end) {
  const ValueColumn& xs = XValues();
  // All that lies out of sight on one side is one column.
  const int leftmost = viewport_.Area().left - reach_;
  const int rightmost = viewport_.Area().left + viewport_.Area().width + reach_;
  const auto column_of = [&](double x) {
    return std::clamp(viewport_.Column(axes_.X(x)), leftmost, rightmost);
  };

  std::optional<Filled> before;
  while (begin < end) {
    const int column = column_of(xs[begin]);
    // Whatever lies between two values of a column lies in it, too: its edges are guessed and tried, so that
    // most readings are told by a comparison.
    double low = xs[begin];
    double high = low;
    for (const double inset : {0.001, 0.999}) {
      const double edge = axes_.XValue(viewport_.XAt(column + inset));
      if (column_of(edge) != column) continue;
      if (edge < low) low = edge;
      if (edge > high) high = edge;
    }
    const Index stop = xs.StretchEnd(begin + 1, end, [&](const ValueColumn::Extremes& block) {
      return (block.min >= low && block.max <= high) ||
             (column_of(block.min) == column && column_of(block.max) == column);
    });
    std::optional<Filled> here;
    if (stop - begin > 1 && column > leftmost && column < rightmost) {
      here.emplace().column = column;
      for (std::size_t i = 0; i < curves_.size(); ++i) here->lines[i] = Upright(curves_[i], begin, stop);
    }
    if (before && here && HideTheWay(*before, *here, begin)) {
      PaintMarkersOf(begin);
    } else {
      PaintReading(begin);
    }
    if (here) PaintInColumn(*here, begin, stop);
    before = here;
    begin = stop;
  }
}

// Whether the upright lines of two columns hide the line from the last reading of the one to the first of the
// other.
bool CurvePainter::HideTheWay(const Filled& before, const Filled& here, Index first) const {
  // Around wider pens of odd or broken widths, painters round in other ways.
  const bool told = pen_pixels_ == 1 || std::fmod(pen_pixels_, 2) == 0;
  if (here.column != before.column + 1 || TwoColors() || !told) return false;
  const auto in = [](int row, PixelRows rows) { return rows.first <= row && row <= rows.last; };
  for (std::size_t i = 0; i < curves_.size(); ++i) {
    const int from = viewport_.Row(PointOf(curves_[i], first - 1).y);
    const int to = viewport_.Row(PointOf(curves_[i], first).y);
    if (!in(to, RowsOf(before.lines[i])) || !in(from, RowsOf(here.lines[i]))) return false;
    // The corners of a line that leans stick out, and a pixel that is reached to its middle is painted.
    const double down = std::abs(to - from);
    const double sticks_out = pen_pixels_ / 2 * ((1 + down) / std::hypot(1, down) - 1);
    if (sticks_out > kNotPainted) return false;
  }
  return true;
}

// What the readings after the first add in their common pixel column.
void CurvePainter::PaintInColumn(const Filled& here, Index begin, Index end) {
  if (TwoColors() && !Apart(RowsOf(here.lines[0]), RowsOf(here.lines[1]))) {
    PaintTwoColors(begin, end);
    return;
  }
  for (std::size_t i = 0; i < curves_.size(); ++i) {
    UseColor(curves_[i].color);
    Line(here.lines[i]);
    if (AnyMarker(begin + 1, end)) PaintMarkers(curves_[i], begin + 1, end);
  }
}

bool CurvePainter::TwoColors() const { return curves_.size() == 2 && curves_[0].color != curves_[1].color; }

// Markers at the same pixel are the same, so a block whose pixels all have theirs is passed over.
void CurvePainter::PaintMarkers(const Curve& curve, Index begin, Index end) {
  painted_.Reset();
  VisitBackwards(begin, end, ValueColumn::kLevels - 1, [&](Index block, Index block_end) {
    if (!AnyMarker(block, block_end)) return true;
    const PixelRows rows = RowsOf(Upright(curve, block, block_end));
    if (painted_.Contain(rows)) return true;
    if (block_end - block > 1) return false;
    PaintMarker(curve, PointOf(curve, block));
    painted_.Add(rows);
    return true;
  });
}

// Two curves of different colours over each other in one column: the newer reading lies on top, and of one
// reading the temperature. From the newest back, what newer lines hide is left out; the rest is drawn from
// the oldest on.
void CurvePainter::PaintTwoColors(Index begin, Index end) {
  if (AnyMarker(begin + 1, end)) {
    while (++begin < end) PaintReading(begin);
    return;
  }
  struct Piece {
    platform::Rgb color;
    Segment line;
  };
  std::vector<Piece> pieces;
  painted_.Reset();
  VisitBackwards(begin + 1, end, ValueColumn::kLevels - 1, [&](Index block, Index block_end) {
    // The lines of the block begin at the reading before it.
    const Segment visco = Upright(curves_[0], block - 1, block_end);
    const Segment temp = Upright(curves_[1], block - 1, block_end);
    const PixelRows visco_rows = RowsOf(visco);
    const PixelRows temp_rows = RowsOf(temp);
    if (painted_.Contain(visco_rows) && painted_.Contain(temp_rows)) return true;
    if (block_end - block > 1 && !Apart(visco_rows, temp_rows)) return false;
    pieces.push_back({curves_[1].color, temp});
    pieces.push_back({curves_[0].color, visco});
    painted_.Add(visco_rows);
    painted_.Add(temp_rows);
    return true;
  });
  std::ranges::reverse(pieces);
  for (const Piece& piece : pieces) {
    UseColor(piece.color);
    Line(piece.line);
  }
}

void CurvePainter::PaintMarker(const Curve& curve, Point centre) {
  if (curve.quantity == Quantity::Visco) {
    surface_.DrawCircle(centre, kMarkers.circle);
  } else {
    surface_.DrawCross(centre, kMarkers.cross_across, kMarkers.cross_down);
  }
}

const ValueColumn& CurvePainter::XValues() const {
  return axes_.Kind() == GraphKind::ViscoTemp ? values_.Temp() : values_.Time();
}

Point CurvePainter::PointOf(const Curve& curve, Index index) const {
  const double y = curve.quantity == Quantity::Visco ? axes_.ViscoY(values_.Visco()[index])
                                                     : axes_.TempY(values_.Temp()[index]);
  return {axes_.X(XValues()[index]), y};
}

// All lines among these readings, which share a pixel column, in one.
Segment CurvePainter::Upright(const Curve& curve, Index begin, Index end) const {
  const double x = axes_.X(XValues()[begin]);
  const PlotAxes::Span span = curve.quantity == Quantity::Visco
                                  ? axes_.ViscoSpan(values_.Visco().ExtremesOf(begin, end))
                                  : axes_.TempSpan(values_.Temp().ExtremesOf(begin, end));
  return {{x, span.from}, {x, span.to}};
}

PixelRows CurvePainter::RowsOf(const Segment& upright) const {
  const auto [first, last] = std::minmax({viewport_.Row(upright.from.y), viewport_.Row(upright.to.y)});
  return {first, last};
}

bool CurvePainter::AnyMarker(Index begin, Index end) const {
  return graph::AnyMarker(settings_.MarkerEvery, begin - run_begin_, end - run_begin_);
}

bool CurvePainter::Apart(PixelRows one, PixelRows other) const {
  return one.last + 2 * reach_ < other.first || other.last + 2 * reach_ < one.first;
}

void CurvePainter::UseColor(platform::Rgb color) {
  if (pen_set_ && color == pen_.color) return;
  Flush();
  pen_.color = color;
  surface_.SetPen(pen_);
  pen_set_ = true;
}

void CurvePainter::Line(const Segment& line) {
  lines_.push_back(line);
  if (lines_.size() >= kMostLinesAtOnce) Flush();
}

void CurvePainter::Flush() {
  if (!lines_.empty()) surface_.DrawLines(lines_);
  lines_.clear();
}

}  // namespace quenlor::graph
