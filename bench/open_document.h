// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "data/document.h"
#include "data/settings_list.h"
#include "graph/live_graph.h"

namespace quenlor::bench {

// A graph that nobody looks at.
struct NoView : graph::GraphView {
  void Fig() override {}
  void PlotRow(data::Document::Row) override {}
  void CaptionsChanged() override {}
};

// A document with its graph, ready to be shown, as the program holds them.
struct OpenDocument {
  void Open(std::string bytes) { document.Load(data::ParseDataFile(std::move(bytes)), "readings.csv", ""); }

  data::SettingsList settings;
  data::Document document{settings};
  NoView view;
  graph::LiveGraph graph{document, settings, view};
};

}  // namespace quenlor::bench
