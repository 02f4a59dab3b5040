// SPDX-License-Identifier: MIT
#include "graph/readout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <queue>

namespace quenlor::graph {

PlotPixels::PlotPixels(const PlotAxes& axes, double width, double height) : axes_(axes) {
  const platform::Units units = axes.PlotUnits();
  left_ = units.left;
  top_ = units.top;
  across_ = width / units.width;
  down_ = height / units.height;
}

PlotPixels::Point PlotPixels::Of(const ValueArrays& values, Index index, Quantity quantity) const {
  const double x = axes_.Kind() == GraphKind::ViscoTemp ? values.Temp()[index] : values.Time()[index];
  const double y =
      quantity == Quantity::Visco ? axes_.ViscoY(values.Visco()[index]) : axes_.TempY(values.Temp()[index]);
  return {Across(axes_.X(x)), Down(y)};
}

// Goes on with the block that may hold the nearest point, until none can hold one that is nearer.
class NearestSearch {
 public:
  NearestSearch(const ValueArrays& values, const PlotPixels& pixels, PlotPixels::Point pointer, int only)
      : values_(values),
        pixels_(pixels),
        axes_(pixels.Axes()),
        pointer_(pointer),
        only_(only),
        xs_(axes_.Kind() == GraphKind::ViscoTemp ? values.Temp() : values.Time()) {}

  std::optional<NearReading> Run() {
    if (axes_.XScale() == 0) return std::nullopt;
    Add(0, values_.Size(), ValueColumn::kLevels);
    while (!blocks_.empty() && looks_ < kMostLooks) {
      const Block block = blocks_.top();
      blocks_.pop();
      if (block.distance >= worth_) break;
      Divide(block);
    }
    return found_;
  }

 private:
  static constexpr double kSeen = 0.5;  // pixels; what is nearer by less looks as near

  struct Block {
    double distance = 0;  // of its nearest corner or side, squared
    Index begin = 0;
    Index end = 0;
    int level = 0;
    // The nearest one first; of such as are alike the newest, which lies on top.
    bool operator<(const Block& other) const {
      return distance != other.distance ? distance > other.distance : begin < other.begin;
    }
  };

  void Divide(const Block& block) {
    const int level = block.level - 1;
    if (level < 0) {
      for (Index index = block.end - 1; index >= block.begin; --index) Look(index);
      return;
    }
    const Index size = ValueColumn::BlockSize(level);
    for (Index begin = block.begin; begin < block.end; begin += size)
      Add(begin, std::min(begin + size, block.end), level);
  }

  void Add(Index begin, Index end, int level) {
    ++looks_;
    if (begin >= end) return;
    if (level == ValueColumn::kLevels) return blocks_.push({0, begin, end, level});
    if (HasNone(begin, end)) return;
    const ValueColumn::Extremes xs = xs_.ExtremesOf(begin, end);
    if (axes_.X(xs.max) < 0 || axes_.X(xs.min) > axes_.XExtent()) return;
    const double across = Beside(pointer_.x, pixels_.XOf(xs.min), pixels_.XOf(xs.max));
    double down = std::numeric_limits<double>::infinity();
    const auto curve = [&](PlotAxes::Span span) {
      const auto [top, bottom] = std::minmax(span.from, span.to);
      if (bottom < 0 || top > PlotAxes::kHeight) return;
      down = std::min(down, Beside(pointer_.y, pixels_.Down(top), pixels_.Down(bottom)));
    };
    if (axes_.ShowsVisco()) curve(axes_.ViscoSpan(values_.Visco().ExtremesOf(begin, end)));
    if (axes_.ShowsTemp()) curve(axes_.TempSpan(values_.Temp().ExtremesOf(begin, end)));
    const double distance = across * across + down * down;
    if (distance < worth_) blocks_.push({distance, begin, end, level});
  }

  void Look(Index index) {
    ++looks_;
    if (axes_.ShowsVisco()) Look(index, Quantity::Visco);
    if (axes_.ShowsTemp()) Look(index, Quantity::Temp);
  }

  void Look(Index index, Quantity quantity) {
    const PlotPixels::Point at = pixels_.Of(values_, index, quantity);
    const double across = at.x - pointer_.x;
    const double down = at.y - pointer_.y;
    const double distance = across * across + down * down;
    if (distance >= nearest_ || !InView(index, quantity) || HasNone(index, index + 1)) return;
    nearest_ = distance;
    const double seen = std::max(0.0, std::sqrt(distance) - kSeen);
    worth_ = seen * seen;
    found_ = {index, quantity, at};
  }

  // Whether they are all of one run that is not asked for.
  bool HasNone(Index begin, Index end) const {
    if (only_ == 0) return false;
    const std::size_t run = values_.RunOf(begin);
    return values_.Runs()[run].number != only_ && end <= values_.RunEnd(run);
  }

  bool InView(Index index, Quantity quantity) const {
    const double x = axes_.X(xs_[index]);
    const double y = quantity == Quantity::Visco ? axes_.ViscoY(values_.Visco()[index])
                                                 : axes_.TempY(values_.Temp()[index]);
    return x >= 0 && x <= axes_.XExtent() && y >= 0 && y <= PlotAxes::kHeight;
  }

  // How far a place is from a stretch.
  static double Beside(double place, double from, double to) {
    return std::max({0.0, from - place, place - to});
  }

  const ValueArrays& values_;
  const PlotPixels& pixels_;
  const PlotAxes& axes_;
  const PlotPixels::Point pointer_;
  const int only_;  // readings of runs of that number; 0: of all
  const ValueColumn& xs_;
  std::priority_queue<Block> blocks_;
  double nearest_ = std::numeric_limits<double>::infinity();  // squared, as all distances are
  double worth_ = std::numeric_limits<double>::infinity();    // nearer than that is worth a look
  std::optional<NearReading> found_;
  int looks_ = 0;
};

std::optional<NearReading> NearestReading(const ValueArrays& values, const PlotPixels& pixels,
                                          PlotPixels::Point pointer, int only) {
  return NearestSearch(values, pixels, pointer, only).Run();
}

}  // namespace quenlor::graph
