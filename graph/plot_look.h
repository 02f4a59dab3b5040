// SPDX-License-Identifier: MIT
#pragma once

#include "data/settings_list.h"
#include "graph/color_settings.h"
#include "graph/live_graph.h"
#include "graph/plot_settings.h"

namespace quenlor::graph {

// How the graph looks now, as menus, options and colours have it, in a plot of so many pixels across: the
// curves of few readings are smooth.
PlotSettings PlotLook(const LiveGraph& graph, const data::SettingsList& settings, const ColorSettings& colors,
                      int plot_width);

}  // namespace quenlor::graph
