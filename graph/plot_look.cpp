// SPDX-License-Identifier: MIT
#include "graph/plot_look.h"

namespace quenlor::graph {
namespace {

// Antialiasing costs a line at a time; with more readings than this for each pixel column it would be felt.
constexpr Index kSmoothReadingsPerColumn = 2;

}  // namespace

PlotSettings PlotLook(const LiveGraph& graph, const data::SettingsList& settings, const ColorSettings& colors,
                      int plot_width) {
  PlotSettings look;
  look.kind = graph.Kind();
  look.visco_axis = graph.View().visco_axis;
  look.LineWidth = settings.Index(data::setting::kLW) == 1 ? 1 : 2;
  look.MarkerEvery = settings.Index(data::setting::kMK);
  look.colors = colors.Colors();
  look.BackColor = colors.BackColor();
  look.GridColor = colors.GridColor();
  look.smooth_sparse_runs = graph.Values().Size() <= kSmoothReadingsPerColumn * plot_width;
  return look;
}

}  // namespace quenlor::graph
