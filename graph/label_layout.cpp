// SPDX-License-Identifier: MIT
#include "graph/label_layout.h"

#include <algorithm>
#include <cmath>

#include "graph/shown_labels.h"

namespace quenlor::graph {
namespace {

using platform::kTwipsPerPixel;

constexpr double kSmallestText = 7 * kTwipsPerPixel;
constexpr double kSmallestLegendText = 8 * kTwipsPerPixel;
constexpr double kLargestText = 24 * kTwipsPerPixel;

// The plot's ends in units: its area begins at 0.9 and leaves 1 % of its range free on each side.
constexpr double kPlotLeft = 0.9 + 6.2 / 102;
constexpr double kPlotWidth = 6.2 * 100 / 102;
constexpr double kPlotTop = 0.9 + 10.2 / 102;
constexpr double kPlotHeight = 10.2 * 100 / 102;

// Widths in units: of a label beside the plot, of the date above it, and of a run in the legend.
constexpr double kSideWidth = 0.8;
constexpr double kDateWidth = 3.0;
constexpr double kLegendWidth = 7.8 / 11;
constexpr std::string_view kUsualValue = "0000.0";  // of a run, in the legend
constexpr std::string_view kLongestDate = "2000/00/00 00:00:00";

class Layout {
 public:
  Layout(double width, double height, double text_height)
      : unit_x_(width / 8), unit_y_(height / 13.5), line_(text_height * 1.25) {}

  double Line() const { return line_; }
  double X(double units) const { return units * unit_x_; }
  double Y(double units) const { return units * unit_y_; }
  double PlotX(double place) const { return X(kPlotLeft + place * kPlotWidth); }
  double PlotY(double place) const { return Y(kPlotTop + (1 - place) * kPlotHeight); }

  // A label of the left axis at that place of its range, and one of the right axis.
  PlacedLabel LeftOfPlot(double place) const {
    return {Row(0.05, kSideWidth, PlotY(place)), TextSide::kRight, true};
  }
  PlacedLabel RightOfPlot(double place) const {
    return {Row(7.15, kSideWidth, PlotY(place)), TextSide::kLeft, true};
  }

  // Below the plot, and below the lowest labels beside it.
  double BelowTop() const { return std::max(Y(11.1), PlotY(0) + line_ / 2); }

  // A label below the plot; `width` is what it may take, in twips.
  PlacedLabel BelowPlot(double place, double width) const {
    const double left = std::clamp(PlotX(place) - width / 2, 0.0, std::max(0.0, X(8) - width));
    return {{left, BelowTop(), width, line_}, TextSide::kCentre, true};
  }

 private:
  Box Row(double left, double width, double middle) const {
    return {X(left), middle - line_ / 2, X(width), line_};
  }

  double unit_x_;
  double unit_y_;
  double line_;
};

using TextWidth = std::function<double(std::string_view text, double text_height)>;

// The height at which a text is that wide.
double HeightToFit(std::string_view text, double width, const TextWidth& text_width) {
  constexpr double kMeasured = kLargestText;
  const double measured = text_width(text, kMeasured);
  return measured > 0 ? kMeasured * width / measured : kLargestText;
}

// Five lines stand below the plot, and beside it the longest label of an axis.
double TextHeight(double width, double height, const AxisLabels& labels, const TextWidth& text_width) {
  double text_height = 0.36 * height / 13.5;
  const auto fit = [&](std::string_view text, double units) {
    text_height = std::min(text_height, HeightToFit(text, units * width / 8, text_width));
  };
  for (const std::string& text : labels.Label5) fit(text, kSideWidth);
  for (const TickLabel& label : labels.Label8) fit(label.text, kSideWidth);
  for (const TickLabel& label : labels.Label9) fit(label.text, kSideWidth);
  fit(kLongestDate, kDateWidth);
  return std::clamp(text_height, kSmallestText, kLargestText);
}

double LegendTextHeight(double text_height, double width, const TextWidth& text_width) {
  const double fits = HeightToFit(kUsualValue, 0.97 * kLegendWidth * width / 8, text_width);
  return std::max(std::min(text_height, fits), kSmallestLegendText);
}

template <std::size_t N>
double Widest(const std::array<TickLabel, N>& labels, const std::function<double(std::string_view)>& width) {
  double widest = 0;
  for (const TickLabel& label : labels) widest = std::max(widest, width(label.text));
  return widest;
}

}  // namespace

LabelLayout LayoutLabels(double width, double height, GraphKind kind, const AxisLabels& labels,
                         const std::function<double(std::string_view, double)>& text_width) {
  LabelLayout result;
  result.text_height = TextHeight(width, height, labels, text_width);
  result.legend_text_height = LegendTextHeight(result.text_height, width, text_width);
  const Layout at(width, height, result.text_height);
  const auto measure = [&](std::string_view text) { return text_width(text, result.text_height); };
  const double gap = measure("0");
  // Two labels one above the other, as parts of the axis's length.
  const double least_distance = 1.1 * result.text_height / std::max(at.Y(kPlotHeight), 1.0);
  const bool time_axis = kind != GraphKind::ViscoTemp;

  // The captions above the plot: left title, file name over date, right title.
  const double title_top = at.Y(0.3) - at.Line() / 2;
  result.Label6[1] = {{at.X(1.3), title_top, at.X(1.2), at.Line()}, TextSide::kLeft, true};
  result.Label6[4] = {{at.X(2.5), 0, at.X(kDateWidth), at.Line()}, TextSide::kCentre, true};
  result.Label6[3] = {{at.X(2.5), at.Line(), at.X(kDateWidth), at.Line()}, TextSide::kCentre, true};
  result.Label6[2] = {
      {at.X(5.5), title_top, at.X(1.2), at.Line()}, TextSide::kRight, kind == GraphKind::ViscoTempTime};

  // The viscosity axis.
  result.Label5[2] = at.LeftOfPlot(0);
  result.Label5[3] = at.LeftOfPlot(1);
  const auto apart = LabelsApart(labels.Label8, least_distance);
  for (std::size_t i = 1; i <= static_cast<std::size_t>(labels.Label8Count); ++i) {
    result.Label8[i] = at.LeftOfPlot(labels.Label8[i].place);
    result.Label8[i].visible = apart[i];
  }

  // The axis below: time, or temperature.
  const double below_title = at.BelowTop() + at.Line();
  if (time_axis) {
    const double room = at.X(kPlotWidth / 6);
    const int stride = LabelStride(Widest(labels.Label7, measure) + gap, room, 6);
    for (int i = 1; i <= 5; ++i) {
      result.Label7[static_cast<std::size_t>(i)] = at.BelowPlot(i / 6.0, room * stride);
      result.Label7[static_cast<std::size_t>(i)].visible = i % stride == 0;
    }
    result.Label5[0] = at.BelowPlot(0, room);
    result.Label5[1] = at.BelowPlot(1, room);
    result.Label6[0] = {
        {at.PlotX(0.5) - at.X(1.5), below_title, at.X(1.5) - gap / 2, at.Line()}, TextSide::kRight, true};
    result.Label6[5] = {{at.PlotX(0.5) + gap / 2, below_title, at.X(1.5), at.Line()}, TextSide::kLeft, true};
  }
  if (kind == GraphKind::ViscoTemp) {
    const double room = at.X(kPlotWidth / 10);
    const int stride = LabelStride(Widest(labels.Label9, measure) + gap, room, 10);
    for (int i = 1; i <= 9; ++i) {
      result.Label9[static_cast<std::size_t>(i)] = at.BelowPlot(i / 10.0, room * stride);
      result.Label9[static_cast<std::size_t>(i)].visible = i % stride == 0;
    }
    result.Label5[4] = at.BelowPlot(0, room * std::min(stride, 2));
    result.Label5[5] = at.BelowPlot(1, room * std::min(stride, 2));
    result.Label6[2] = {
        {at.PlotX(0.5) - at.X(1.5), below_title, at.X(3), at.Line()}, TextSide::kCentre, true};
  } else if (kind == GraphKind::ViscoTempTime) {
    const int stride = LabelStride(least_distance, 0.1, 10);
    for (int i = 1; i <= 9; ++i) {
      result.Label9[static_cast<std::size_t>(i)] = at.RightOfPlot(i / 10.0);
      result.Label9[static_cast<std::size_t>(i)].visible = i % stride == 0;
    }
    result.Label5[4] = at.RightOfPlot(0);
    result.Label5[5] = at.RightOfPlot(1);
  }

  // The legend in one row of eleven, two lines each, and the remarks below it.
  const double legend_top = below_title + at.Line();
  for (std::size_t i = 0; i < result.Label10.size(); ++i) {
    const double cell = at.X(kLegendWidth);
    result.Label10[i] = {{at.X(0.1) + static_cast<double>(i) * cell, legend_top, cell, 2 * at.Line()},
                         TextSide::kCentre,
                         true};
  }
  const double remarks_top = std::max(legend_top + 2 * at.Line(), at.Y(13.45) - at.Line());
  result.Label6[6] = {{at.X(0.1), remarks_top, at.X(7.8), at.Line()}, TextSide::kLeft, true};
  return result;
}

}  // namespace quenlor::graph
