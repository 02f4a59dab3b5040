// SPDX-License-Identifier: MIT
// The part of CurvePainter that paints readings which jump from pixel column to pixel column.

#include <algorithm>
#include <limits>

#include "graph/plot_curves.h"

namespace quenlor::graph {
namespace {

using platform::PixelRectangle;

constexpr Index kTangle = 4096;       // lines from column to column that make one
constexpr Index kTried = 128;         // readings that tell how many there are
constexpr Index kSpread = 2048;       // blocks of which some are painted first
constexpr Index kPixelsLooked = 250;  // at in the time that a line takes
constexpr int kFar = 10'000;          // pixels; of longer lines painters need not be that exact

}  // namespace

bool CurvePainter::IsTangle(Index begin, Index end) const {
  if (curves_.size() != 1 || end - begin <= kTangle || surface_.PixelsOf(viewport_.Area().top).empty())
    return false;
  const ValueColumn& xs = XValues();
  Index jumps = 0;
  for (Index i = 0; i < kTried; ++i) {
    const Index at = begin + i * (end - begin - 1) / kTried;
    jumps += viewport_.Column(axes_.X(xs[at])) == viewport_.Column(axes_.X(xs[at + 1])) ? 0 : 1;
  }
  return jumps * ((end - begin) / kTried) > kTangle;
}

void CurvePainter::PaintTangle(Index begin, Index end) {
  PaintOutermost(begin, end);
  touched_ = {viewport_.Area().top, viewport_.Area().top + viewport_.Area().height};
  Look();
  PaintBlocks(begin, end, ValueColumn::kLevels - 1, {});
}

// The blocks of that size whose lines might be seen.
void CurvePainter::PaintBlocks(Index begin, Index end, int level, Between painted) {
  const Index size = ValueColumn::BlockSize(level);
  for (Index block = begin; block < end;) {
    const Index next = std::min(end, (block / size + 1) * size);
    // Memory is slow to find numbers that lie far apart, unless it is told of them beforehand.
    for (const ValueColumn* column : {&XValues(), &values_.Visco()}) column->Expect(next - 1 + size);
    const ValueColumn::Extremes xs = XValues().ExtremesOf(std::max(block - 1, run_begin_), next);
    if (!painted.Has(xs.min) || !painted.Has(xs.max)) {
      const PixelRectangle box = BoxOf(block, next, xs);
      if (!IsPainted(box)) {
        const Between inner = PaintedWithin(box, AnyMarker(block, next));
        if (level > 0) {
          PaintBlocks(block, next, level - 1, inner);
        } else {
          PaintReadings(block, next, inner);
        }
      }
    }
    block = next;
  }
}

void CurvePainter::PaintReadings(Index begin, Index end, Between painted) {
  const ValueColumn& xs = XValues();
  double from = xs[std::max(begin - 1, run_begin_)];
  for (Index index = begin; index < end; ++index) {
    const auto [low, high] = std::minmax({from, xs[index]});
    from = xs[index];
    if (painted.Has(low) && painted.Has(high)) continue;
    const PixelRectangle box = BoxOf(index, index + 1, {low, high});
    if (IsPainted(box)) continue;
    PaintReading(index);
    Touch({box.top, box.top + box.height});
  }
}

// A line has been painted in those rows. Now and then the picture is looked at.
void CurvePainter::Touch(PixelRows rows) {
  touched_ = {std::min(touched_.first, rows.first), std::max(touched_.last, rows.last)};
  const PixelRectangle& area = viewport_.Area();
  const Index seen = std::min(touched_.last, area.top + area.height) - std::max(touched_.first, area.top);
  if (++lines_since_look_ * kPixelsLooked > seen * area.width) Look();
}

void CurvePainter::Look() {
  UseColor(curves_[0].color);
  Flush();
  painted_area_.Look(surface_, curves_[0].color, touched_);
  touched_ = {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
  lines_since_look_ = 0;
}

bool CurvePainter::IsPainted(const PixelRectangle& box) const {
  return box.width < kFar && box.height < kFar && painted_area_.Contains(box);
}

// Whatever of that box's readings stands between two of these has its lines in what is painted.
CurvePainter::Between CurvePainter::PaintedWithin(const PixelRectangle& box, bool markers) const {
  if (box.width >= kFar || box.height >= kFar) return {};
  for (int inset = 1; inset * 2 < box.width; inset *= 2) {
    const PixelRectangle inner{box.left + inset, box.top, box.width - 2 * inset, box.height};
    if (!painted_area_.Contains(inner)) continue;
    const int first = inner.left + ReachBefore(markers);
    const int last = inner.left + inner.width - 1 - ReachAfter(markers);
    // The values are guessed and tried.
    const double low = axes_.XValue(viewport_.XAt(first + 0.001));
    const double high = axes_.XValue(viewport_.XAt(last + 0.999));
    const auto inside = [&](double value) {
      const int column = viewport_.Column(axes_.X(value));
      return first <= column && column <= last;
    };
    return inside(low) && inside(high) ? Between{std::min(low, high), std::max(low, high)} : Between{};
  }
  return {};
}

// The readings farthest to the left and to the right of some blocks.
void CurvePainter::PaintOutermost(Index begin, Index end) {
  const ValueColumn& xs = XValues();
  constexpr Index kBlock = ValueColumn::BlockSize(0);
  const Index step = std::max(kBlock, (end - begin) / kSpread);
  for (Index at = begin; at < end; at += step) {
    Index leftmost = at;
    Index rightmost = at;
    for (Index index = at; index < std::min(at + kBlock, end); ++index) {
      if (xs[index] < xs[leftmost]) leftmost = index;
      if (xs[index] > xs[rightmost]) rightmost = index;
    }
    PaintReading(leftmost);
    if (rightmost != leftmost) PaintReading(rightmost);
  }
}

// Where those readings paint, whose lines lead from the one to the other value across.
PixelRectangle CurvePainter::BoxOf(Index begin, Index end, const ValueColumn::Extremes& xs) const {
  const auto [left, right] =
      std::minmax({viewport_.Column(axes_.X(xs.min)), viewport_.Column(axes_.X(xs.max))});
  const PixelRows rows = RowsOf(Upright(curves_[0], std::max(begin - 1, run_begin_), end));
  const bool markers = AnyMarker(begin, end);
  const int before = ReachBefore(markers);
  const int after = ReachAfter(markers);
  return {left - before, rows.first - before, right - left + 1 + before + after,
          rows.last - rows.first + 1 + before + after};
}

}  // namespace quenlor::graph
