// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/data_file.h"
#include "graph/graph_pane.h"

namespace quenlor::graph {

// A document and its graph on the screen, without a main window around it.
struct PaneBench : GraphView {
  data::SettingsList settings;
  data::Document document{settings};
  LiveGraph live{document, settings, *this};
  ColorSettings colors;

  void Open(const std::string& readings) {
    document.Load(data::ParseDataFile("No.,Time,Viscosity,Unit1,Temp\r\n" + readings), "x.csv", "");
  }
  void Fig() override {}
  void PlotRow(data::Document::Row) override {}
  void CaptionsChanged() override {}
};

}  // namespace quenlor::graph
