// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "graph/plot.h"
#include "platform/memory/recording_surface.h"
#include "tests/graph/plot_readings.h"

namespace quenlor::graph {

// Drawings call by call.

using Call = platform::memory::RecordingSurface::Call;
using Kind = Call::Kind;

inline constexpr platform::Rgb kBlackPen = ToRgb(kBlack);
inline constexpr platform::Rgb kWhitePen = ToRgb(kWhite);

inline platform::Rgb Series(int entry) { return ToRgb(kDefaultColors[static_cast<std::size_t>(entry)]); }

inline PlotSettings SettingsOf(GraphKind kind, ViscoAxis axis = ViscoAxis::Linear, int MarkerEvery = 0,
                               int LineWidth = 2) {
  PlotSettings settings;
  settings.kind = kind;
  settings.visco_axis = axis;
  settings.MarkerEvery = MarkerEvery;
  settings.LineWidth = LineWidth;
  return settings;
}

inline std::vector<platform::Segment> Lines(const std::vector<Call>& calls) {
  std::vector<platform::Segment> lines;
  for (const Call& call : calls) {
    if (call.kind == Kind::kLine) lines.push_back(call.line);
  }
  return lines;
}

inline std::vector<platform::Segment> LinesWith(const std::vector<Call>& calls, platform::LineStyle style) {
  std::vector<platform::Segment> lines;
  for (const Call& call : calls) {
    if (call.kind == Kind::kLine && call.pen.style == style) lines.push_back(call.line);
  }
  return lines;
}

inline std::vector<platform::Point> Positions(const std::vector<Call>& calls, Kind kind) {
  std::vector<platform::Point> points;
  for (const Call& call : calls) {
    if (call.kind == kind) points.push_back(call.line.from);
  }
  return points;
}

// Draws each reading by itself, in turn.
inline std::vector<Call> RowsOf(const std::vector<TestReading>& readings, const PlotSettings& settings,
                                const data::AxisRanges& ranges = {}) {
  const ValueArrays values = ValuesOf(readings);
  Plot plot(values);
  plot.Set(settings, ranges);
  platform::memory::RecordingSurface surface;
  for (std::size_t row = 1; row <= readings.size(); ++row) {
    plot.PlotRow(surface, surface.Whole(), static_cast<Plot::Row>(row));
  }
  return surface.Calls();
}

}  // namespace quenlor::graph
