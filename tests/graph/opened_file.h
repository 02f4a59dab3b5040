// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/data_file.h"
#include "data/document.h"
#include "data/settings_list.h"
#include "graph/live_graph.h"

namespace quenlor::graph {

// A document read from the text of a data file, with its graph, and nobody who looks at it.
struct OpenedFile : GraphView {
  data::SettingsList settings;
  data::Document document{settings};
  LiveGraph graph{document, settings, *this};

  OpenedFile(const std::string& bytes, const std::string& name) {
    document.Load(data::ParseDataFile(bytes), name, "");
  }
  void Fig() override {}
  void PlotRow(data::Document::Row) override {}
  void CaptionsChanged() override {}
};

}  // namespace quenlor::graph
