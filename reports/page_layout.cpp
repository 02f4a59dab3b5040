// SPDX-License-Identifier: MIT
#include "reports/page_layout.h"

#include <algorithm>
#include <cmath>

#include "data/utf8.h"
#include "graph/fit_text.h"
#include "graph/legend_plan.h"
#include "graph/map_to_position.h"
#include "graph/shown_labels.h"
#include "reports/page_text.h"

namespace quenlor::reports {
namespace {

using graph::Box;
using graph::GraphKind;
using graph::TextSide;

constexpr double kLineHeight = 1.25;  // of the letters'
constexpr double kSmallest = 0.66;    // letters, as a part of the usual ones
constexpr double kHeading = 1.2;      // those of the file name
constexpr double kRounding = 0.01;    // what sums of lengths may lose, in twips
constexpr double kFoot = 13.4;        // where the captions end, in UnitY

class Placing {
 public:
  Placing(const PageGrid& grid, const graph::Captions& captions, const graph::PlotSettings& settings,
          const TextMeasure& measure)
      : grid_(grid),
        captions_(captions),
        kind_(settings.kind),
        measure_(measure),
        text_height_(grid.TextHeight()),
        line_(grid.Line()),
        labels_(settings.colors) {}

  PageLabels Place() {
    CopyTexts();
    PlaceHeader();
    PlaceLeftScale();
    const double below = std::max(Y(11.1), Y(11) + line_ / 2);
    if (kind_ == GraphKind::ViscoTemp) {
      PlaceScaleBelow(labels_.Label5, labels_.Label1[4], labels_.Label1[5], below);
    } else {
      PlaceScaleBelow(labels_.Label3, labels_.Label1[0], labels_.Label1[1], below);
    }
    if (kind_ == GraphKind::ViscoTempTime) PlaceRightScale();
    PlaceTitleBelow(below + line_);
    PlaceLegendAndRemarks(below + 2 * line_ + Y(0.08));
    return std::move(labels_);
  }

 private:
  double X(double units) const { return units * grid_.UnitX(); }
  double Y(double units) const { return units * grid_.UnitY(); }
  double Width(std::string_view text, double height) const {
    // No line of a page has so many bytes; whoever asks about a longer text learns that it is too wide.
    constexpr std::size_t kMostBytes = 2000;
    return measure_(data::Utf8Prefix(text, kMostBytes), height);
  }
  double Smallest() const { return kSmallest * text_height_; }

  void CopyTexts() {
    const auto copy = [](const auto& from, auto& to) {
      for (std::size_t i = 0; i < to.size(); ++i) {
        if constexpr (requires { from[i].text; }) {
          to[i].text = from[i].text;
        } else {
          to[i].text = from[i];
        }
      }
    };
    copy(captions_.Label5, labels_.Label1);
    copy(captions_.Label6, labels_.Label2);
    copy(captions_.Label7, labels_.Label3);
    copy(captions_.Label8, labels_.Label4);
    copy(captions_.Label9, labels_.Label5);
    copy(captions_.Label10, labels_.Label6);
  }

  // Letters of at most that height in which the text is no wider, if they need not be too small for it.
  double HeightToFit(std::string_view text, double width, double height) const {
    return HeightToFit(text, width, height, Smallest());
  }
  double HeightToFit(std::string_view text, double width, double height, double smallest) const {
    return graph::HeightToFit(text, width, height, smallest,
                              [this](std::string_view part, double letters) { return Width(part, letters); });
  }

  // A label of one line, in the middle of the box's height.
  void Write(PageLabel& label, const Box& box, TextSide side, double height) const {
    WriteFitted(label, box, side, HeightToFit(PlainLine(label.text), box.width, height), graph::FitText);
  }
  void Write(PageLabel& label, const Box& box, TextSide side) const { Write(label, box, side, text_height_); }

  // A number of a scale; it is never shown in part.
  void WriteNumber(PageLabel& label, const Box& box, TextSide side, double height) const {
    const double letters = HeightToFit(label.text, box.width, height, Smallest() / 2);
    WriteFitted(label, box, side, letters, graph::FitNumber);
  }

  template <class Fit>
  void WriteFitted(PageLabel& label, const Box& box, TextSide side, double height, const Fit& fit) const {
    label.Move(box);
    label.side = side;
    label.text_height = height;
    label.lines = {
        fit(PlainLine(label.text), box.width, [&](std::string_view part) { return Width(part, height); })};
    label.visible = !label.lines.front().empty();
  }

  // The file name over the date, and the axis titles beside them.
  void PlaceHeader() {
    const double date_top = Y(0.08) + kHeading * line_;
    Write(labels_.Label2[4], {X(0.1), Y(0.08), X(7.8), kHeading * line_}, TextSide::kCentre,
          kHeading * text_height_);
    Write(labels_.Label2[3], {X(3), date_top, X(2), line_}, TextSide::kCentre);
    const double top = grid_.TitleRow() - line_ / 2;
    // On a low page the date stands between the titles, else above them.
    const double middle = date_top + line_ <= top ? X(4) : X(3);
    const auto width_from = [&](double left) { return middle - X(0.1) - left; };
    if (kind_ == GraphKind::ViscoTempTime) {
      // The sample of each curve has its place at the outer end of the title.
      const double width = width_from(X(1.3));
      Write(labels_.Label2[1], {X(1.3), top, width, line_}, TextSide::kLeft);
      Write(labels_.Label2[2], {X(6.7) - width, top, width, line_}, TextSide::kRight);
    } else {
      Write(labels_.Label2[1], {X(0.5), top, width_from(X(0.5)), line_}, TextSide::kLeft);
    }
  }

  // One height for all numbers of a scale, so that none seems to say more than another.
  template <class Ticks>
  double ScaleHeight(const Ticks& ticks, const PageLabel& low, const PageLabel& high, double width) const {
    double height =
        std::min(HeightToFit(low.text, width, text_height_), HeightToFit(high.text, width, text_height_));
    for (const PageLabel& tick : ticks) height = HeightToFit(tick.text, width, height);
    return height;
  }

  // A number beside the plot at that place of the axis.
  Box Beside(double left, double place) const {
    const double middle = graph::MapToPosition(place, 0, 1, grid_.Bottom(), grid_.Top());
    return {left, middle - line_ / 2, X(0.85), line_};
  }

  void PlaceLeftScale() {
    const double left = X(0.05);
    const double height = ScaleHeight(labels_.Label4, labels_.Label1[2], labels_.Label1[3], X(0.85));
    WriteNumber(labels_.Label1[2], Beside(left, 0), TextSide::kRight, height);
    WriteNumber(labels_.Label1[3], Beside(left, 1), TextSide::kRight, height);
    const auto apart = graph::LabelsApart(captions_.Label8, line_ / (grid_.Bottom() - grid_.Top()));
    for (std::size_t i = 1; i < labels_.Label4.size(); ++i) {
      if (apart[i])
        WriteNumber(labels_.Label4[i], Beside(left, captions_.Label8[i].place), TextSide::kRight, height);
    }
  }

  void PlaceRightScale() {
    const double left = X(7.1);
    const double height = ScaleHeight(labels_.Label5, labels_.Label1[4], labels_.Label1[5], X(0.85));
    WriteNumber(labels_.Label1[4], Beside(left, 0), TextSide::kLeft, height);
    WriteNumber(labels_.Label1[5], Beside(left, 1), TextSide::kLeft, height);
    for (std::size_t i = 1; i < labels_.Label5.size(); ++i) {
      WriteNumber(labels_.Label5[i], Beside(left, captions_.Label9[i].place), TextSide::kLeft, height);
    }
  }

  template <class Ticks>
  void PlaceScaleBelow(Ticks& ticks, PageLabel& low, PageLabel& high, double top) {
    const int divisions = static_cast<int>(ticks.size());
    const double division = (grid_.Right() - grid_.Left()) / divisions;
    const double gap = Width("0", text_height_);
    double widest = std::max(Width(low.text, text_height_), Width(high.text, text_height_));
    for (const PageLabel& tick : ticks) widest = std::max(widest, Width(tick.text, text_height_));
    const int stride = graph::LabelStride(widest + gap, division, divisions);
    // The ends stand over the edges of the plot, a unit away from those of the page.
    const double room = std::min(stride * division, X(2)) - gap;
    const double height = ScaleHeight(ticks, low, high, room);
    const auto at = [&](double place) {
      const double middle = graph::MapToPosition(place, 0, 1, grid_.Left(), grid_.Right());
      return Box{middle - room / 2, top, room, line_};
    };
    WriteNumber(low, at(0), TextSide::kCentre, height);
    WriteNumber(high, at(1), TextSide::kCentre, height);
    for (int i = stride; i < divisions; i += stride) {
      WriteNumber(ticks[static_cast<std::size_t>(i)], at(1.0 * i / divisions), TextSide::kCentre, height);
    }
  }

  void PlaceTitleBelow(double top) {
    if (kind_ == GraphKind::ViscoTemp) {
      return Write(labels_.Label2[2], {X(1), top, X(6), line_}, TextSide::kCentre);
    }
    // Title and unit side by side, together in the middle.
    const double gap = Width("0", text_height_);
    const double title = std::min(Width(labels_.Label2[0].text, text_height_), X(3));
    const double unit = std::min(Width(labels_.Label2[5].text, text_height_), X(3));
    const double left = X(4) - (title + gap + unit) / 2;
    // A hundredth more, for what the sums may lose.
    Write(labels_.Label2[0], {left - 0.01 * gap, top, title + 0.01 * gap, line_}, TextSide::kRight);
    Write(labels_.Label2[5], {left + title + gap, top, unit + 0.01 * gap, line_}, TextSide::kLeft);
  }

  // The bar over each entry, as a part of its letters' height, and the two lines below it.
  static constexpr double kBar = 0.4;
  static constexpr double kEntry = kBar + 2 * kLineHeight;

  double HeightOf(const graph::LegendPlan& plan) const {
    return plan.rows * kEntry * plan.text_height + (plan.rows - 1) * RowGap();
  }

  static graph::LegendEntry EntryOf(const PageLabel& label) {
    graph::LegendEntry entry(label.text);
    entry.name = PlainLine(entry.name);
    entry.value = PlainLine(entry.value);
    return entry;
  }

  std::vector<graph::LegendEntry> Runs() const {
    std::vector<graph::LegendEntry> runs;
    for (std::size_t run = 1; run < labels_.Label6.size(); ++run) {
      if (!labels_.Label6[run].text.empty()) runs.push_back(EntryOf(labels_.Label6[run]));
    }
    return runs;
  }

  // `room` is what there is for the legend from top to bottom.
  graph::LegendPlan PlanLegend(const std::vector<graph::LegendEntry>& runs, int rows, double room) const {
    const double highest = (room - (rows - 1) * RowGap()) / (kEntry * rows);
    const double letters = std::clamp(highest, Smallest(), text_height_);
    return graph::PlanLegend(EntryOf(labels_.Label6[0]), runs, rows,
                             {X(7.8), 0.5, 0, letters, Smallest(), Smallest() / 2},
                             [this](std::string_view text, double height) { return Width(text, height); });
  }
  double RemarksGap() const { return Y(0.08); }
  double RowGap() const { return 0.5 * text_height_; }

  void PlaceLegendAndRemarks(double top) {
    const std::vector<graph::LegendEntry> runs = Runs();
    if (runs.empty()) {
      WriteRemarks(top);
      return;
    }
    // A second row lets long names stand in letters that are easy to read. It is there if the remarks leave
    // the room, and if names would be cut without it: runs that cannot be told apart are worse than remarks
    // that end too early. Two lines of remarks have room in any case.
    const double room = Y(kFoot) - RemarksGap() - 2 * kLineHeight * Smallest() - top;
    const graph::LegendPlan one = PlanLegend(runs, 1, room);
    const graph::LegendPlan two = PlanLegend(runs, 2, room);
    const bool better = one.text_height < 0.95 * text_height_ && runs.size() > 1;
    const bool second_row = better && (WriteRemarks(RemarksTop(top, two)) || !one.complete);
    const graph::LegendPlan& plan = second_row ? two : one;
    WriteRemarks(RemarksTop(top, plan));
    WriteLegend(plan, top);
  }

  double RemarksTop(double legend_top, const graph::LegendPlan& plan) const {
    return legend_top + HeightOf(plan) + RemarksGap();
  }

  void WriteLegend(const graph::LegendPlan& plan, double top) {
    const double height = kEntry * plan.text_height;
    const double bar = kBar * plan.text_height;
    const auto write = [&](PageLabel& label, const Box& box, const std::string& name,
                           const std::string& value) {
      label.Move(box);
      label.text_height = plan.text_height;
      label.lines = {name, value};
      label.visible = true;
    };
    const double outer = X(4) - plan.Width() / 2 + plan.gap / 2;
    const graph::LegendEntry heading = EntryOf(labels_.Label6[0]);
    write(labels_.Label6[0], {outer, top + bar, plan.heading - plan.gap, height - bar}, heading.name,
          heading.value);

    const std::vector<graph::LegendEntry> runs = Runs();
    std::vector<std::string> names;
    std::vector<double> widths;
    for (std::size_t i = 0; i < runs.size(); ++i) {
      names.push_back(runs[i].name);
      widths.push_back(std::max(plan.columns[i % plan.columns.size()] - plan.gap, 0.0));
    }
    const auto width_of = [&](std::string_view part) { return Width(part, plan.text_height) - kRounding; };
    const std::vector<std::string> shown = graph::FitNames(names, widths, width_of);
    double left = 0;
    std::size_t place = 0;
    for (std::size_t run = 1; run < labels_.Label6.size(); ++run) {
      PageLabel& label = labels_.Label6[run];
      if (label.text.empty()) continue;
      if (place % plan.columns.size() == 0) {
        left = outer + plan.heading;
        if (place > 0) top += height + RowGap();
      }
      write(label, {left, top, widths[place], height}, shown[place],
            graph::FitNumber(runs[place].value, widths[place], width_of));
      label.bar = bar;
      left += widths[place++] + plan.gap;
    }
  }

  // As many lines as the foot of the page has room for. True when nothing had to be cut.
  bool WriteRemarks(double top) {
    PageLabel& label = labels_.Label2[6];
    const double width = X(7);
    for (double part = 1;; part -= 0.085) {
      const double height = std::max(part, kSmallest) * text_height_;
      const double room = (Y(kFoot) - top) / (kLineHeight * height);
      const auto most =
          room > 0 ? static_cast<std::size_t>(std::min(room, 1000.0)) : 0;  // none on a page of nothing
      const auto [lines, complete] =
          Wrapped(label.text, width, most, [&](std::string_view text) { return Width(text, height); });
      if (!complete && part > kSmallest) continue;
      label.Move({X(0.5), top, width, kLineHeight * height * static_cast<double>(lines.size())});
      label.side = TextSide::kLeft;
      label.text_height = height;
      label.lines = lines;
      label.visible = std::ranges::any_of(lines, [](const std::string& line) { return !line.empty(); });
      return complete;
    }
  }

  const PageGrid& grid_;
  const graph::Captions& captions_;
  const GraphKind kind_;
  const TextMeasure& measure_;
  const double text_height_;
  const double line_;
  PageLabels labels_;
};

}  // namespace

double PageGrid::TextHeight() const {
  return std::min(0.0148 * std::sqrt(std::max(width, 0.0) * std::max(height, 0.0)), 0.24 * UnitY());
}

double PageGrid::Line() const { return kLineHeight * TextHeight(); }

double PageGrid::TitleRow() const { return Top() - 1.1 * Line(); }

PageLabels::PageLabels(const graph::ColorTable& colors) {
  for (std::size_t run = 1; run < Label6.size(); ++run) Label6[run].color = colors[run % colors.size()];
}

void PageLabels::ForEach(const std::function<void(const PageLabel&)>& visit) const {
  const auto all = [&](const auto& labels) {
    for (const PageLabel& label : labels) visit(label);
  };
  all(Label1);
  all(Label2);
  all(Label3);
  all(Label4);
  all(Label5);
  all(Label6);
}

PageLabels PlaceLabels(const PageGrid& grid, const graph::Captions& captions,
                       const graph::PlotSettings& settings, const TextMeasure& measure) {
  return Placing(grid, captions, settings, measure).Place();
}

}  // namespace quenlor::reports
