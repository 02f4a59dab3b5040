// SPDX-License-Identifier: MIT
#include "graph/legend_plan.h"

#include <algorithm>
#include <numeric>

namespace quenlor::graph {
namespace {

using Widths = std::vector<double>;

constexpr double kRounding = 1e-6;  // as a part of the room

double Sum(const Widths& widths) { return std::accumulate(widths.begin(), widths.end(), 0.0); }

// Of a text whose digits may become others.
double ValueWidth(std::string value, double text_height, const TextMeasure& text_width) {
  std::ranges::replace_if(
      value, [](char c) { return c >= '0' && c <= '9'; }, '0');
  return text_width(value, text_height);
}

class Planning {
 public:
  Planning(const LegendEntry& heading, std::span<const LegendEntry> runs, int rows, const LegendRoom& room,
           const TextMeasure& text_width)
      : heading_(heading),
        runs_(runs),
        columns_((runs.size() + static_cast<std::size_t>(rows) - 1) / static_cast<std::size_t>(rows)),
        room_(room),
        text_width_(text_width) {
    plan_.rows = rows;
  }

  LegendPlan Plan() {
    if (columns_ == 0) return plan_;
    const auto values = [this](double height) { return ColumnsFor(height, false); };
    const auto all = [this](double height) { return ColumnsFor(height, true); };
    const double height = Shrunk(all, room_.text_height, room_.smallest_name);
    plan_.text_height = Shrunk(values, height, room_.smallest);
    plan_.gap = room_.gap * plan_.text_height;
    plan_.heading = HeadingFor(plan_.text_height);
    const Widths wanted = all(plan_.text_height);
    plan_.complete = Fit(wanted, plan_.heading);
    plan_.columns = Divided(wanted, values(plan_.text_height));
    return plan_;
  }

 private:
  Widths ColumnsFor(double height, bool names) const {
    Widths widths(columns_);
    for (std::size_t i = 0; i < runs_.size(); ++i) {
      double& width = widths[i % columns_];
      width = std::max(width, ValueWidth(runs_[i].value, height, text_width_));
      if (names) width = std::max(width, text_width_(runs_[i].name, height));
    }
    for (double& width : widths) width += room_.gap * height;
    return widths;
  }

  double HeadingFor(double height) const {
    return std::max(text_width_(heading_.name, height), text_width_(heading_.value, height)) +
           room_.gap * height;
  }

  bool Fit(const Widths& widths, double heading) const {
    return Sum(widths) + heading <= room_.width * (1 + kRounding);
  }

  // The largest letters in which those columns fit, or the smallest ones.
  template <class Columns>
  double Shrunk(const Columns& columns, double height, double smallest) const {
    const Widths widths = columns(height);
    if (Fit(widths, HeadingFor(height))) return height;
    const double least = std::min(height, smallest);
    double fits = std::clamp(height * room_.width / (Sum(widths) + HeadingFor(height)), least, height);
    // Letters come in whole dots, so theirs may be a little wider than that.
    while (fits > least && !Fit(columns(fits), HeadingFor(fits))) fits = std::max(0.97 * fits, least);
    return fits;
  }

  Widths Divided(const Widths& wanted, const Widths& least) const {
    const double share = std::max(room_.width - plan_.heading, 0.0) / static_cast<double>(columns_);
    const double widest = *std::max_element(wanted.begin(), wanted.end());
    if (widest <= share) return Widths(columns_, std::max(widest, std::min(room_.usual_column, share)));
    if (!Fit(least, plan_.heading)) return Widths(columns_, share);

    // No column gets more than it wants, and none that wants more gets less than another.
    const auto up_to = [&](double level) {
      Widths widths(columns_);
      for (std::size_t i = 0; i < columns_; ++i) widths[i] = std::max(least[i], std::min(wanted[i], level));
      return widths;
    };
    if (plan_.complete) return up_to(widest);
    double level = 0;
    double too_much = widest;
    for (int halvings = 0; halvings < 50; ++halvings) {
      const double middle = std::midpoint(level, too_much);
      (Fit(up_to(middle), plan_.heading) ? level : too_much) = middle;
    }
    return up_to(level);
  }

  const LegendEntry& heading_;
  std::span<const LegendEntry> runs_;
  std::size_t columns_;
  const LegendRoom& room_;
  const TextMeasure& text_width_;
  LegendPlan plan_;
};

}  // namespace

LegendEntry::LegendEntry(std::string_view caption) {
  const std::size_t end = std::min(caption.rfind('\r'), caption.size());
  name = caption.substr(0, end);
  value = caption.substr(std::min(end + 1, caption.size()));
}

double LegendPlan::Width() const { return heading + Sum(columns); }

LegendPlan PlanLegend(const LegendEntry& heading, std::span<const LegendEntry> runs, int rows,
                      const LegendRoom& room, const TextMeasure& text_width) {
  return Planning(heading, runs, rows, room, text_width).Plan();
}

}  // namespace quenlor::graph
