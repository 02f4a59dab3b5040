// SPDX-License-Identifier: MIT
#include "graph/readout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <queue>
#include <string_view>

#include "data/text_number.h"
#include "data/unit_beside.h"
#include "data/utf8.h"

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
  NearestSearch(const ValueArrays& values, const PlotPixels& pixels, PlotPixels::Point pointer)
      : values_(values),
        pixels_(pixels),
        axes_(pixels.Axes()),
        pointer_(pointer),
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
    if (distance >= nearest_ || !InView(index, quantity)) return;
    nearest_ = distance;
    const double seen = std::max(0.0, std::sqrt(distance) - kSeen);
    worth_ = seen * seen;
    found_ = {index, quantity, at};
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
  const ValueColumn& xs_;
  std::priority_queue<Block> blocks_;
  double nearest_ = std::numeric_limits<double>::infinity();  // squared, as all distances are
  double worth_ = std::numeric_limits<double>::infinity();    // nearer than that is worth a look
  std::optional<NearReading> found_;
  int looks_ = 0;
};

std::optional<NearReading> NearestReading(const ValueArrays& values, const PlotPixels& pixels,
                                          PlotPixels::Point pointer) {
  return NearestSearch(values, pixels, pointer).Run();
}

namespace {

constexpr std::size_t kLongestName = 60;  // bytes of a text on the plate

std::string Short(std::string_view text) {
  const std::string_view start = data::Utf8Prefix(text, kLongestName);
  return std::string(start) + (start.size() < text.size() ? "…" : "");
}

// Four digits are more than an eye reads off a curve.
std::string Rounded(double value) {
  if (value == 0 || !std::isfinite(value)) return "0";
  const int digits = 3 - static_cast<int>(std::floor(std::log10(std::fabs(value))));
  const double scale = std::pow(10.0, std::abs(digits));
  if (!std::isfinite(scale)) return data::GeneralText(value);
  const double rounded =
      digits < 0 ? std::nearbyint(value / scale) * scale : std::nearbyint(value * scale) / scale;
  return data::GeneralText(rounded);
}

std::string Signed(double value) { return (value > 0 ? "+" : "") + data::GeneralText(data::Bounded(value)); }

// As exact as the two numbers were: the difference of 1000.3 and 1000.1 is 0.2.
double Difference(double a, double b) {
  const double largest = std::max(std::fabs(a), std::fabs(b));
  const double unit = std::pow(10.0, std::ceil(std::log10(largest)) - 13);
  const double difference = std::nearbyint((b - a) / unit) * unit;
  return largest > 0 && std::isfinite(difference) ? difference : data::Bounded(b - a);
}

}  // namespace

std::vector<std::string> ReadingTold(const data::Document& document, const ValueArrays& values, Index index) {
  const data::MeasurementTable& table = document.Grid1();
  const data::MeasurementTable::Row row = index + 1;
  const int run = values.Runs()[values.RunOf(index)].number;
  std::vector<std::string> lines;
  const std::string number = "No." + Short(table.TextMatrix(row, 0));
  const std::string name = run > 0 ? Short(document.Grid4().TextMatrix(run, 1)) : "";
  lines.push_back(name.empty() || name == number ? number : number + "  " + name);
  lines.push_back("Time  " + Short(table.TextMatrix(row, 1)));
  const auto add = [&](int column) {
    const std::string value = Short(table.TextMatrix(row, column));
    if (value.empty()) return;
    const std::string unit = Short(data::UnitBeside(document, row, column));
    lines.push_back(Short(table.TextMatrix(0, column)) + "  " + value + (unit.empty() ? "" : " " + unit));
  };
  add(document.ViscoColumn());
  if (document.TempColumn() != document.ViscoColumn()) add(document.TempColumn());
  const std::string date = run > 0 ? Short(document.Grid4().TextMatrix(run, 3)) : "";
  if (!date.empty()) lines.push_back(date);
  return lines;
}

std::vector<std::string> BetweenTold(const ValueArrays& values, Index a, Index b, const AxisView& view,
                                     GraphKind kind) {
  constexpr std::string_view kUnits[] = {"s", "min", "h"};
  const std::string_view time_unit = kUnits[static_cast<std::size_t>(view.time_unit)];
  const double time = Difference(values.Time()[a], values.Time()[b]);
  const double visco = Difference(values.Visco()[a], values.Visco()[b]);
  const double temp = Difference(values.Temp()[a], values.Temp()[b]);
  const bool over_temp = kind == GraphKind::ViscoTemp;
  const double way = over_temp ? temp : time / SecondsOf(view.time_unit);
  std::vector<std::string> lines;
  lines.push_back("A to B");
  lines.push_back("Time  " + Signed(data::C_Val(Rounded(time / SecondsOf(view.time_unit)))) + " " +
                  std::string(time_unit));
  lines.push_back("Viscosity  " + Signed(visco));
  lines.push_back("Temp  " + Signed(temp));
  if (way != 0)
    lines.push_back("Slope  " + Signed(data::C_Val(Rounded(visco / way))) + " / " +
                    (over_temp ? "degree" : std::string(time_unit)));
  return lines;
}

}  // namespace quenlor::graph
