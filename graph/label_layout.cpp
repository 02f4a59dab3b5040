// SPDX-License-Identifier: MIT
#include "graph/label_layout.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "data/utf8.h"
#include "graph/legend_plan.h"
#include "graph/shown_labels.h"

namespace quenlor::graph {
namespace {

using platform::kTwipsPerPixel;

constexpr double kSmallestText = 7 * kTwipsPerPixel;
constexpr double kSmallestNumber = 5 * kTwipsPerPixel;  // that has no room in other letters
constexpr double kSmallestLegendText = 8 * kTwipsPerPixel;
constexpr double kShrunkText = 0.66;   // letters of a text before it is cut, as a part of the others
constexpr double kAboveLegend = 0.2;   // free, in letters
constexpr double kBar = 0.4;           // of a run, in letters
constexpr double kLegendLines = 2.4;   // the two below it
constexpr double kRowGap = 0.3;        // between two rows
constexpr double kWithOneRow = 0.336;  // letters, in units down, where the legend has one row
constexpr double kWithTwoRows = 0.236;
constexpr double kRounding = 0.01;  // what sums of lengths may lose

// The plot's ends in units: its area begins at 0.9 and leaves 1 % of its range free on each side.
constexpr double kPlotLeft = 0.9 + 6.2 / 102;
constexpr double kPlotWidth = 6.2 * 100 / 102;
constexpr double kPlotTop = 0.9 + 10.2 / 102;
constexpr double kPlotHeight = 10.2 * 100 / 102;

// Widths in units: of a label beside the plot, of the captions above it, and of a run in the legend.
constexpr double kSideWidth = 0.86;
constexpr double kTitleLeft = 1.3;
constexpr double kTitleWidth = 1.2;
constexpr double kDateWidth = 3.0;
constexpr double kUsualRun = 1.0;
constexpr std::string_view kLongestDate = "2000/00/00 00:00:00";

class Layout {
 public:
  Layout(double width, double height, GraphKind kind, const Captions& texts, const TextMeasure& text_width,
         double largest_text)
      : unit_x_(width / 8),
        unit_y_(height / 13.5),
        kind_(kind),
        texts_(texts),
        text_width_(text_width),
        largest_text_(std::max(largest_text, kSmallestText)),
        heading_(texts.Label10[0]) {}

  LabelLayout Place() {
    DivideLegend();
    line_ = 1.25 * result_.text_height;
    gap_ = Width("0");
    PlaceTitles();
    PlaceViscosity();
    const double title_below = BelowTop() + line_;
    if (kind_ == GraphKind::ViscoTemp) {
      PlaceBelow(result_.Label9, texts_.Label9, 4);
      Write(result_.Label6[2], texts_.Label6[2],
            {PlotX(0.5) - X(kPlotWidth / 2), title_below, X(kPlotWidth), line_}, TextSide::kCentre);
    } else {
      PlaceBelow(result_.Label7, texts_.Label7, 0);
      Write(result_.Label6[0], texts_.Label6[0], {PlotX(0.5) - X(1.5), title_below, X(1.5) - gap_ / 2, line_},
            TextSide::kRight);
      Write(result_.Label6[5], texts_.Label6[5], {PlotX(0.5) + gap_ / 2, title_below, X(1.5), line_},
            TextSide::kLeft);
    }
    if (kind_ == GraphKind::ViscoTempTime) PlaceTemperature();
    const double legend_bottom = PlaceLegend(title_below + line_ + kAboveLegend * result_.text_height);
    Write(result_.Label6[6], texts_.Label6[6],
          {X(0.1), std::max(legend_bottom, Y(13.48) - line_), X(7.8), line_}, TextSide::kLeft);
    for (PlacedLabel& label : result_.Label10) KeepWithin(label);
    KeepWithin(result_.Label6[6]);
    return std::move(result_);
  }

 private:
  double X(double units) const { return units * unit_x_; }
  double Y(double units) const { return units * unit_y_; }
  // A graph can be too low for what stands below its axis; that is away then, instead of cut.
  void KeepWithin(PlacedLabel& label) const {
    const double below = label.box.top + label.box.height - Y(13.5);
    if (below > 0.2 * label.text_height) label.visible = false;
  }
  double PlotX(double place) const { return X(kPlotLeft + place * kPlotWidth); }
  double PlotY(double place) const { return Y(kPlotTop + (1 - place) * kPlotHeight); }
  // Below the plot, and below the lowest labels beside it.
  double BelowTop() const { return std::max(Y(11.1), PlotY(0) + line_ / 2); }

  double Width(std::string_view text) const { return Width(text, result_.text_height); }
  double Width(std::string_view text, double text_height) const {
    // No graph has room for so many bytes; whoever asks about a longer text learns that it is too wide.
    constexpr std::size_t kMostBytes = 2000;
    return text_width_(data::Utf8Prefix(text, kMostBytes), text_height);
  }
  std::function<double(std::string_view)> WidthIn(double text_height) const {
    return [this, text_height](std::string_view text) { return Width(text, text_height) - kRounding; };
  }

  // Below the plot stand the numbers of its axis, the title, the legend and the remarks, and beside it the
  // longest label of an axis. `of_unit` are the letters that leave room for the former, as a part of a unit.
  double TextHeight(double of_unit) const {
    double text_height = std::clamp(of_unit * unit_y_, kSmallestText, largest_text_);
    const auto fit = [&](std::string_view text, double units) {
      text_height =
          HeightToFit(text, X(units), text_height, kSmallestText,
                      [this](std::string_view measured, double height) { return Width(measured, height); });
    };
    for (const std::string& text : texts_.Label5) fit(text, kSideWidth);
    for (const TickLabel& label : texts_.Label8) fit(label.text, kSideWidth);
    for (const TickLabel& label : texts_.Label9) fit(label.text, kSideWidth);
    fit(kLongestDate, kDateWidth);
    return text_height;
  }

  // In letters that are no smaller than those of the legend may be.
  void Write(PlacedLabel& label, std::string_view text, const Box& box, TextSide side) const {
    label = {box, side, true, LettersFor(text, box.width, Shrunk(kSmallestText)), {}, true};
    label.lines = {FitText(text, box.width, WidthIn(label.text_height))};
    label.whole = label.lines.front() == text;
  }

  void WriteNumber(PlacedLabel& label, std::string_view text, const Box& box, TextSide side) const {
    label = {box, side, true, LettersFor(text, box.width, kSmallestNumber), {}, true};
    label.lines = {FitNumber(text, box.width, WidthIn(label.text_height))};
    label.whole = label.lines.front() == text;
  }

  double LettersFor(std::string_view text, double width, double smallest) const {
    return HeightToFit(
        text, width, result_.text_height, smallest,
        [this](std::string_view part, double height) { return Width(part, height) - kRounding; });
  }
  double Shrunk(double smallest) const { return std::max(smallest, kShrunkText * result_.text_height); }

  // Above the plot: left title, file name over date, right title. Each takes what the others leave free.
  void PlaceTitles() {
    // With two curves, the sample of each stands at the outer end of its title.
    const bool samples = kind_ == GraphKind::ViscoTempTime;
    const double room = X(4 - (samples ? kTitleLeft : 0.1));
    const double centre = std::max(Width(texts_.Label6[4]), Width(texts_.Label6[3])) / 2;
    const double longest = std::max(Width(texts_.Label6[1]), samples ? Width(texts_.Label6[2]) : 0);
    const double title = std::min(longest, std::max(X(kTitleWidth), room - centre) - gap_);
    const double left = std::clamp(X(4) - centre - gap_ - title, X(4) - room, X(kTitleLeft));
    const double side = X(4) - left - title - gap_;
    const double top = Y(0.3) - line_ / 2;
    Write(result_.Label6[1], texts_.Label6[1], {left, top, title, line_}, TextSide::kLeft);
    if (samples) {
      Write(result_.Label6[2], texts_.Label6[2], {X(8 - kTitleLeft) - title, top, title, line_},
            TextSide::kRight);
    }
    Write(result_.Label6[4], texts_.Label6[4], {X(4) - side, 0, 2 * side, line_}, TextSide::kCentre);
    // The room above and below its letters may be shared where the plot comes close.
    const double date = std::clamp(Y(1) - line_, 0.8 * line_, line_);
    if (date + line_ <= Y(1) + 0.2 * result_.text_height)
      Write(result_.Label6[3], texts_.Label6[3], {X(4) - side, date, 2 * side, line_}, TextSide::kCentre);
  }

  // A label of the left axis at that place of its range, and one of the right axis.
  Box LeftOfPlot(double place) const {
    return {X(0.89 - kSideWidth), PlotY(place) - line_ / 2, X(kSideWidth), line_};
  }
  Box RightOfPlot(double place) const { return {X(7.11), PlotY(place) - line_ / 2, X(kSideWidth), line_}; }
  // Two labels one above the other, as parts of the axis's length.
  double LeastDistance() const { return 1.1 * result_.text_height / std::max(Y(kPlotHeight), 1.0); }

  void PlaceViscosity() {
    WriteNumber(result_.Label5[2], texts_.Label5[2], LeftOfPlot(0), TextSide::kRight);
    WriteNumber(result_.Label5[3], texts_.Label5[3], LeftOfPlot(1), TextSide::kRight);
    const auto apart = LabelsApart(texts_.Label8, LeastDistance());
    for (std::size_t i = 1; i <= static_cast<std::size_t>(texts_.Label8Count); ++i) {
      if (!apart[i]) continue;
      WriteNumber(result_.Label8[i], texts_.Label8[i].text, LeftOfPlot(texts_.Label8[i].place),
                  TextSide::kRight);
    }
  }

  void PlaceTemperature() {
    const auto stride = static_cast<std::size_t>(LabelStride(LeastDistance(), 0.1, 10));
    for (std::size_t i = stride; i <= 9; i += stride) {
      WriteNumber(result_.Label9[i], texts_.Label9[i].text, RightOfPlot(static_cast<double>(i) / 10),
                  TextSide::kLeft);
    }
    WriteNumber(result_.Label5[4], texts_.Label5[4], RightOfPlot(0), TextSide::kLeft);
    WriteNumber(result_.Label5[5], texts_.Label5[5], RightOfPlot(1), TextSide::kLeft);
  }

  // The numbers of the axis below the plot, whose ends are those range ends.
  template <std::size_t N>
  void PlaceBelow(std::array<PlacedLabel, N>& labels, const std::array<TickLabel, N>& ticks,
                  std::size_t low_end) {
    constexpr int kDivisions = static_cast<int>(N);
    const double division = X(kPlotWidth / kDivisions);
    double widest = std::max(Width(texts_.Label5[low_end]), Width(texts_.Label5[low_end + 1]));
    for (const TickLabel& tick : ticks) widest = std::max(widest, Width(tick.text));
    const int stride = LabelStride(widest + gap_, division, kDivisions);
    const auto write = [&](PlacedLabel& label, std::string_view text, double place, double room) {
      const double left = std::clamp(PlotX(place) - room / 2, 0.0, std::max(0.0, X(8) - room));
      WriteNumber(label, text, {left, BelowTop(), room, line_}, TextSide::kCentre);
    };
    for (auto i = static_cast<std::size_t>(stride); i < N; i += static_cast<std::size_t>(stride))
      write(labels[i], ticks[i].text, static_cast<double>(i) / kDivisions, division * stride - gap_);
    // The ends stand at the plot's edges, a unit away from those of the area.
    const double room_of_end = division * std::min(stride, kDivisions / 3) - gap_;
    write(result_.Label5[low_end], texts_.Label5[low_end], 0, room_of_end);
    write(result_.Label5[low_end + 1], texts_.Label5[low_end + 1], 1, room_of_end);
  }

  // How large all letters are depends on how many rows the legend has. It has a second one where that leaves
  // its names whole, or in letters that are easier to read, or cuts less off them.
  void DivideLegend() {
    for (std::size_t run = 1; run < texts_.Label10.size(); ++run) {
      if (texts_.Label10[run].empty()) continue;
      runs_.emplace_back(texts_.Label10[run]);
      run_labels_.push_back(&result_.Label10[run]);
    }
    result_.text_height = TextHeight(kWithOneRow);
    legend_ = LegendOf(1);
    if (runs_.size() < 2 || kWithTwoRows * unit_y_ < kSmallestText) return;

    const double usual = std::exchange(result_.text_height, TextHeight(kWithTwoRows));
    const LegendPlan two = LegendOf(2);
    const bool better = !legend_.complete || (two.complete && two.text_height > 1.1 * legend_.text_height);
    if (better) {
      legend_ = two;
    } else {
      result_.text_height = usual;
    }
  }

  LegendPlan LegendOf(int rows) const {
    const LegendRoom room{
        X(7.8), 0.4, X(kUsualRun), result_.text_height, Shrunk(kSmallestLegendText), kSmallestLegendText};
    return PlanLegend(heading_, runs_, rows, room,
                      [this](std::string_view text, double letters) { return Width(text, letters); });
  }

  // The heading left of the plot's edge and the runs from there on. Returns where the legend ends.
  double PlaceLegend(double top) {
    const double bar = kBar * result_.text_height;
    const double height = bar + kLegendLines * result_.text_height;
    if (runs_.empty()) return top + height;

    // From the plot's edge on, where that leaves the room.
    const double first = std::min(X(kPlotLeft), X(7.9) - legend_.Width() + legend_.heading);
    result_.Label10[0] = {
        {first - legend_.heading, top + bar, legend_.heading - legend_.gap / 2, height - bar},
        TextSide::kRight,
        true,
        legend_.text_height,
        {heading_.name, heading_.value},
        true,
        0};
    std::vector<std::string> names;
    std::vector<double> widths;
    double left = first;
    for (std::size_t i = 0; i < runs_.size(); ++i) {
      const std::size_t column = i % legend_.columns.size();
      if (column == 0) left = first;
      if (column == 0 && i > 0) top += height + kRowGap * result_.text_height;
      const double width = std::max(legend_.columns[column] - legend_.gap, 0.0);
      *run_labels_[i] = {{left + legend_.gap / 2, top, width, height},
                         TextSide::kCentre,
                         true,
                         legend_.text_height,
                         {},
                         true,
                         bar};
      left += legend_.columns[column];
      names.push_back(runs_[i].name);
      widths.push_back(width);
    }
    const auto width_of = WidthIn(legend_.text_height);
    const std::vector<std::string> shown = FitNames(names, widths, width_of);
    for (std::size_t i = 0; i < runs_.size(); ++i) {
      run_labels_[i]->lines = {shown[i], FitNumber(runs_[i].value, widths[i], width_of)};
      run_labels_[i]->whole = run_labels_[i]->lines == std::vector{runs_[i].name, runs_[i].value};
    }
    return top + height;
  }

  const double unit_x_;
  const double unit_y_;
  const GraphKind kind_;
  const Captions& texts_;
  const TextMeasure& text_width_;
  const double largest_text_;
  double line_ = 0;
  double gap_ = 0;
  LabelLayout result_;

  const LegendEntry heading_;
  std::vector<LegendEntry> runs_;         // that have readings
  std::vector<PlacedLabel*> run_labels_;  // theirs
  LegendPlan legend_;
};

}  // namespace

LabelLayout LayoutLabels(double width, double height, GraphKind kind, const Captions& captions,
                         const TextMeasure& text_width, double largest_text) {
  return Layout(std::max(width, 0.0), std::max(height, 0.0), kind, captions, text_width, largest_text)
      .Place();
}

}  // namespace quenlor::graph
