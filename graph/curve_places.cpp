// SPDX-License-Identifier: MIT
#include "graph/curve_places.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace quenlor::graph {
namespace {

// Joins dots into few lines. A line goes on as long as some straight one from its first dot passes all its
// dots within 1.5 dots, and none lies behind another. Less would not do: whole dots are off by up to 0.7 of
// one, and so is the first.
class LineJoiner {
 public:
  explicit LineJoiner(std::vector<DotLine>& lines) : lines_(lines) {}
  ~LineJoiner() { End(); }
  LineJoiner(const LineJoiner&) = delete;
  LineJoiner& operator=(const LineJoiner&) = delete;

  void Add(Dot dot) {
    if (!begun_) {
      first_ = last_ = dot;
      begun_ = true;
    } else if (dot != last_ && !GoOn(dot)) {
      lines_.push_back({first_, last_});
      first_ = last_;
      Aim(dot);
    }
  }

  // The next dot begins a new polyline.
  void End() {
    if (begun_ && first_ != last_) lines_.push_back({first_, last_});
    begun_ = false;
  }

 private:
  struct Direction {
    double x;
    double y;
  };

  static double Cross(Direction one, Direction other) { return one.x * other.y - one.y * other.x; }
  static Direction From(Dot from, Dot to) { return {1.0 * to.x - from.x, 1.0 * to.y - from.y}; }

  // The directions that pass a dot in that direction on its one and its other side.
  static std::pair<Direction, Direction> Sides(Direction to) {
    // A direction is known only where it is longer than what it may be off.
    const double sine = std::min(1.5 / std::hypot(to.x, to.y), 0.9);
    const double cosine = std::sqrt(1 - sine * sine);
    return {{to.x * cosine + to.y * sine, to.y * cosine - to.x * sine},
            {to.x * cosine - to.y * sine, to.y * cosine + to.x * sine}};
  }

  void Aim(Dot dot) {
    std::tie(one_side_, other_side_) = Sides(From(first_, dot));
    last_ = dot;
  }

  bool GoOn(Dot dot) {
    if (first_ == last_) {
      Aim(dot);
      return true;
    }
    const Direction to = From(first_, dot);
    const Direction so_far = From(first_, last_);
    const Direction step = From(last_, dot);
    if (so_far.x * step.x + so_far.y * step.y < 0) return false;
    if (Cross(one_side_, to) < 0 || Cross(to, other_side_) < 0) return false;
    const auto [one, other] = Sides(to);
    if (Cross(one_side_, one) > 0) one_side_ = one;
    if (Cross(other, other_side_) > 0) other_side_ = other;
    last_ = dot;
    return true;
  }

  std::vector<DotLine>& lines_;
  bool begun_ = false;
  Dot first_;
  Dot last_;
  Direction one_side_{};
  Direction other_side_{};
};

}  // namespace

std::pair<int, int> CurvePlaces::Columns(Index begin, Index end) const {
  const ValueColumn::Extremes all = Xs().ExtremesOf(begin, end);
  return std::minmax({SeenColumn(all.min), SeenColumn(all.max)});
}

DotLine CurvePlaces::Upright(Quantity quantity, int column, Index begin, Index end) const {
  const PlotAxes::Span span = quantity == Quantity::Visco
                                  ? axes_.ViscoSpan(values_.Visco().ExtremesOf(begin, end))
                                  : axes_.TempSpan(values_.Temp().ExtremesOf(begin, end));
  const auto [high, low] = std::minmax({Row(span.from), Row(span.to)});
  return {{column, high}, {column, low}};
}

void CurvePlaces::LinesOf(Quantity quantity, Index begin, Index end, bool joined,
                          std::vector<DotLine>& lines) const {
  const ValueColumn& xs = Xs();
  LineJoiner joiner(lines);
  if (joined) joiner.Add(Of(quantity, begin - 1));
  while (begin < end) {
    const int column = SeenColumn(xs[begin]);
    const Index stop = xs.StretchEnd(begin + 1, end, [&](const ValueColumn::Extremes& block) {
      return SeenColumn(block.min) == column && SeenColumn(block.max) == column;
    });
    const Dot first = Of(quantity, begin);
    joiner.Add(first);
    if (stop - begin > 1) {
      const Dot last = Of(quantity, stop - 1);
      if (column >= 0 && column <= width_) {
        const DotLine all = Upright(quantity, column, begin, stop);
        const auto [high, low] = std::minmax(first.y, last.y);
        if (all.from.y < high || all.to.y > low) {
          joiner.End();
          lines.push_back(all);
        }
      }
      joiner.Add(last);
    }
    begin = stop;
  }
}

}  // namespace quenlor::graph
