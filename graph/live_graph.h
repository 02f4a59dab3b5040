// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/document.h"
#include "graph/axis_labels.h"
#include "graph/axis_limits.h"
#include "graph/axis_ranges.h"
#include "graph/missing_readings.h"
#include "graph/plot_axes.h"
#include "graph/value_arrays.h"
#include "graph/view_history.h"

namespace quenlor::graph {

// What has to be shown anew. One that answers nothing is a graph that nobody looks at.
class GraphView {
 public:
  virtual ~GraphView() = default;
  virtual void Fig() {}                                 // everything
  virtual void PlotRow(data::Document::Row /*row*/) {}  // the newest reading, upon what is there
  virtual void CaptionsChanged() {}                     // texts around the plot
};

// The graph of the open document while it changes: its values, its automatic ranges, its captions.
//
// It follows the document, keeps the document's ranges, and tells the view what to draw. The view draws when
// it has time; what it then reads here is always the present state.
class LiveGraph : private data::DocumentListener {
 public:
  LiveGraph(data::Document& document, const data::SettingsList& settings, GraphView& view);
  ~LiveGraph() override;
  LiveGraph(const LiveGraph&) = delete;
  LiveGraph& operator=(const LiveGraph&) = delete;

  const ValueArrays& Values() const { return values_; }
  // As of now; looked for when asked, in time that goes with what has come since.
  const MissingReadings& Missing() const {
    missing_.Follow(values_);
    return missing_;
  }
  const AutoScaling& Scaling() const { return scaling_; }
  GraphKind Kind() const { return kind_; }
  AxisView View() const;
  AxisLabels Labels() const { return LabelsOf(document_.Ranges(), View()); }

  // The legend's text of run 1 to 10: sample name, carriage return, newest viscosity. Nothing
  // without a reading.
  std::optional<std::string> LegendText(int run) const;
  static constexpr std::string_view kLegendHeading = "Final\rValue";

  // The boxes and options beside the graph.
  void SetAutoScaling(Axis axis, bool on);  // Check2 "Time", Check3 "Viscosity", Check4 "Temp"
  void SetFine(bool fine);                  // Option2
  void SetKind(GraphKind kind);             // Option1

  void TimeScaleChanged();  // the settings list holds the new item by then, here and below
  void ViscoAxisChanged();
  void LookChanged() { view_.Fig(); }  // line width, markers, colours

  // A limit typed by hand; false when it is refused. Its axis is no longer scaled automatically.
  bool EnterLimit(Limit limit, std::string_view text);

  // The limits of those axes as a hand on the plot has them, which are such as could be typed.
  void EnterRanges(const data::AxisRanges& ranges, const std::vector<Axis>& axes);
  void ShowWhole();  // all three boxes are ticked
  const data::AxisRanges& Ranges() const { return document_.Ranges(); }

  // The way through the views that were left by hand; of an axis that follows the data the range is the
  // present one. False at the end of the way. A gesture of several steps leaves its view once, by LeaveView.
  void LeaveView() { history_.Leave(Shown()); }
  bool ShowEarlier() { return ShowAgain(history_.Earlier(Shown())); }
  bool ShowLater() { return ShowAgain(history_.Later(Shown())); }

  // Reads the whole table again.
  void RefreshSeries();

  // Told while a document that is opened is copied; nothing else may be done then.
  void OnProgress(data::Progress progress) { progress_ = std::move(progress); }

 private:
  using Row = data::Document::Row;
  void CopyAll_Visco();
  void CopyAll_Temp();
  bool& BoxOf(Axis axis);
  ShownView Shown() const { return {Ranges(), scaling_.Check2, scaling_.Check3, scaling_.Check4}; }
  bool ShowAgain(const std::optional<ShownView>& view);
  bool RunAutoScale(Axis axis);
  bool RunEveryAutoScale();
  bool Widen(Index newest);
  ResolutionTexts FirstReading() const;

  void ReadingAppended(Row row) override;
  void RowsRemoved(Row, Row) override { RefreshSeries(); }
  void RowsRestored(Row first, Row last) override;
  void CellChanged(Row, int) override { RefreshSeries(); }
  void ColumnsChanged() override;
  void RunsChanged() override { view_.CaptionsChanged(); }
  void HeaderChanged() override { view_.CaptionsChanged(); }
  void DocumentReplaced() override;

  data::Document& document_;
  const data::SettingsList& settings_;
  GraphView& view_;
  ValueArrays values_;
  mutable MissingReadings missing_;
  AutoScaling scaling_;
  ViewHistory history_;
  GraphKind kind_ = GraphKind::ViscoTime;
  data::Progress progress_;
  int shown_visco_ = 0;  // the columns that the values were read from
  int shown_temp_ = 0;
};

}  // namespace quenlor::graph
