// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/data_file.h"
#include "graph/live_graph.h"

namespace quenlor::graph {

// Readings of a file, and the axes that show them.
struct Plotted : GraphView {
  data::SettingsList settings;
  data::Document document{settings};
  LiveGraph graph{document, settings, *this};
  PlotAxes axes;

  explicit Plotted(const std::string& readings, GraphKind kind = GraphKind::ViscoTime) {
    document.Load(data::ParseDataFile("No.,Time,Viscosity,Unit1,Temp,Unit2\n" + readings), "x.csv", "");
    graph.SetKind(kind);
    axes.SetScales(document.Ranges(), kind, graph.View().visco_axis);
  }
};

}  // namespace quenlor::graph
