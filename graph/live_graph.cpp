// SPDX-License-Identifier: MIT
#include "graph/live_graph.h"

#include <tuple>

#include "data/text_number.h"

namespace quenlor::graph {

namespace setting = data::setting;

LiveGraph::LiveGraph(data::Document& document, const data::SettingsList& settings, GraphView& view)
    : document_(document), settings_(settings), view_(view) {
  document_.AddListener(*this);
}

LiveGraph::~LiveGraph() { document_.RemoveListener(*this); }

AxisView LiveGraph::View() const {
  return {TimeUnitOfItem(settings_.Index(setting::kTimeS)), ViscoAxisOfItem(settings_.Index(setting::kLog))};
}

std::optional<std::string> LiveGraph::LegendText(int run) const {
  const Row row = values_.LastRow(run);
  if (row == 0) return std::nullopt;
  std::string text(document_.Grid4().TextMatrix(run, 1));
  return text.append("\r").append(document_.Grid1().TextMatrix(row, document_.ViscoColumn()));
}

bool& LiveGraph::BoxOf(Axis axis) {
  return axis == Axis::Time ? scaling_.Check2 : axis == Axis::Visco ? scaling_.Check3 : scaling_.Check4;
}

void LiveGraph::SetAutoScaling(Axis axis, bool on) {
  LeaveView();
  BoxOf(axis) = on;
  RunAutoScale(axis);
  view_.Fig();
}

void LiveGraph::SetFine(bool fine) {
  scaling_.fine = fine;
  if (!scaling_.Check3) return;
  RunAutoScale(Axis::Visco);
  view_.Fig();
}

void LiveGraph::SetKind(GraphKind kind) {
  kind_ = kind;
  view_.Fig();
}

void LiveGraph::TimeScaleChanged() { view_.Fig(); }

void LiveGraph::ViscoAxisChanged() {
  RunAutoScale(Axis::Visco);
  view_.Fig();
}

bool LiveGraph::EnterLimit(Limit limit, std::string_view text) {
  data::AxisRanges ranges = document_.Ranges();
  const auto axis = ApplyLimit(limit, text, View(), ranges);
  if (!axis) return false;
  LeaveView();
  document_.SetRanges(ranges);
  BoxOf(*axis) = false;
  view_.Fig();
  return true;
}

void LiveGraph::EnterRanges(const data::AxisRanges& ranges, const std::vector<Axis>& axes) {
  data::AxisRanges entered = Ranges();
  for (const Axis axis : axes) {
    BoxOf(axis) = false;
    if (axis == Axis::Time)
      std::tie(entered.TimeMin, entered.TimeMax) = std::tie(ranges.TimeMin, ranges.TimeMax);
    if (axis == Axis::Temp)
      std::tie(entered.TempMin, entered.TempMax) = std::tie(ranges.TempMin, ranges.TempMax);
    if (axis != Axis::Visco) continue;
    std::tie(entered.ViscoMin, entered.ViscoMax) = std::tie(ranges.ViscoMin, ranges.ViscoMax);
    std::tie(entered.ViscoLogMin, entered.ViscoLogMax) = std::tie(ranges.ViscoLogMin, ranges.ViscoLogMax);
  }
  document_.SetRanges(entered);
  view_.Fig();
}

void LiveGraph::ShowWhole() {
  LeaveView();
  scaling_.Check2 = scaling_.Check3 = scaling_.Check4 = true;
  RunEveryAutoScale();
  view_.Fig();
}

bool LiveGraph::ShowAgain(const std::optional<ShownView>& view) {
  if (!view) return false;
  document_.SetRanges(view->ranges);
  std::tie(scaling_.Check2, scaling_.Check3, scaling_.Check4) =
      std::tie(view->Check2, view->Check3, view->Check4);
  RunEveryAutoScale();
  view_.Fig();
  return true;
}

// What another document showed says nothing about this one.
void LiveGraph::DocumentReplaced() {
  history_.Clear();
  RefreshSeries();
}

// Chooses one axis's range afresh, if its box is ticked; true when it has become another one.
bool LiveGraph::RunAutoScale(Axis axis) {
  data::AxisRanges ranges = document_.Ranges();
  const DataExtremes& extremes = values_.Extremes();
  bool changed = false;
  if (axis == Axis::Time) changed = AutoScale_Time(ranges, extremes, scaling_);
  if (axis == Axis::Temp) changed = AutoScale_Temp(ranges, extremes, scaling_, FirstReading().temp);
  if (axis == Axis::Visco && View().visco_axis == ViscoAxis::Log) {
    changed = AutoScale_ViscoLog(ranges, extremes, scaling_);
  } else if (axis == Axis::Visco) {
    changed = AutoScale_Visco(ranges, extremes, scaling_, FirstReading().visco);
  }
  if (changed) document_.SetRanges(ranges);
  return changed;
}

bool LiveGraph::RunEveryAutoScale() {
  bool changed = false;
  for (const Axis axis : {Axis::Time, Axis::Visco, Axis::Temp}) changed |= RunAutoScale(axis);
  return changed;
}

// Chooses those ranges afresh that this reading leaves; true when one has become another.
bool LiveGraph::Widen(Index newest) {
  const Reading reading{values_.Time()[newest], values_.Visco()[newest], values_.Temp()[newest]};
  data::AxisRanges ranges = document_.Ranges();
  const bool changed =
      AutoScale_Reading(ranges, reading, values_.Extremes(), scaling_, FirstReading(), View().visco_axis);
  if (changed) document_.SetRanges(ranges);
  return changed;
}

ResolutionTexts LiveGraph::FirstReading() const {
  const data::MeasurementTable& table = document_.Grid1();
  return {table.TextMatrix(1, document_.ViscoColumn()), table.TextMatrix(1, document_.TempColumn())};
}

void LiveGraph::CopyAll_Visco() {
  shown_visco_ = document_.ViscoColumn();
  values_.CopyAll_Visco(document_.Grid1(), shown_visco_);
  RunAutoScale(Axis::Visco);
}

void LiveGraph::CopyAll_Temp() {
  shown_temp_ = document_.TempColumn();
  values_.CopyAll_Temp(document_.Grid1(), shown_temp_);
  RunAutoScale(Axis::Temp);
}

void LiveGraph::RefreshSeries() {
  shown_visco_ = document_.ViscoColumn();
  shown_temp_ = document_.TempColumn();
  values_.CopyAll(document_.Grid1(), shown_visco_, shown_temp_, progress_);
  RunEveryAutoScale();
  view_.Fig();
}

void LiveGraph::RowsRestored(Row first, Row /*last*/) {
  if (first != values_.Size() + 1) return RefreshSeries();
  values_.CopyNew(document_.Grid1(), shown_visco_, shown_temp_);
  RunEveryAutoScale();
  view_.Fig();
}

void LiveGraph::ReadingAppended(Row row) {
  const data::MeasurementTable& table = document_.Grid1();
  const int series_before = values_.SeriesCount();
  values_.Copy_Time(table, row);
  values_.Copy_Visco(table, row, shown_visco_);
  values_.Copy_Temp(table, row, shown_temp_);

  // The ranges of an empty document suit nothing in particular, so the first reading chooses all of them.
  const Index newest = values_.Size() - 1;
  const bool RedrawPending = newest == 0 ? RunEveryAutoScale() : Widen(newest);
  // A second series changes the colours of the first.
  if (RedrawPending || values_.SeriesCount() != series_before) {
    view_.Fig();
  } else {
    view_.PlotRow(row);
  }
}

// Titles are captions; another column chosen is another series.
void LiveGraph::ColumnsChanged() {
  if (document_.ViscoColumn() != shown_visco_) {
    CopyAll_Visco();
    view_.Fig();
  }
  if (document_.TempColumn() != shown_temp_) {
    CopyAll_Temp();
    view_.Fig();
  }
  view_.CaptionsChanged();
}

}  // namespace quenlor::graph
