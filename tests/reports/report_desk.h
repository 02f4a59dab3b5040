// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "graph/captions.h"
#include "graph/live_graph.h"
#include "reports/report_page.h"

namespace quenlor::reports {

// A document with its graph, and what a report of it shows.
struct ReportDesk : graph::GraphView {
  data::SettingsList settings;
  data::Document document{settings};
  graph::LiveGraph graph{document, settings, *this};
  graph::PlotSettings look;
  graph::Captions captions;

  ReportDesk() { Open(""); }
  void Fig() override {}
  void PlotRow(data::Document::Row /*row*/) override {}
  void CaptionsChanged() override {}

  // `rows` are lines of run, time, viscosity and temperature.
  void Open(const std::string& rows) {
    document.Load(data::ParseDataFile("No.,Time,Viscosity,Temp\n" + rows), "polymer.csv",
                  "2026/11/21 09:30:00");
  }

  void SetKind(graph::GraphKind kind) { graph.SetKind(kind); }
  void SetLogAxis() {
    settings.Set(data::setting::kLog, 1);
    graph.ViscoAxisChanged();
  }

  const graph::Captions& Captions() {
    captions = graph::CaptionsOf(document, graph);
    return captions;
  }

  ReportContent Content() {
    Captions();
    look.kind = graph.Kind();
    look.visco_axis = graph.View().visco_axis;
    return {captions, graph.Values(), look, document.Ranges()};
  }
};

inline std::string Rows(int runs, int readings) {
  std::string rows;
  for (int run = 1; run <= runs; ++run) {
    for (int i = 0; i < readings; ++i) {
      rows += std::to_string(run) + "," + std::to_string(i) + "," + std::to_string(10 * run + i % 7) + ",2" +
              std::to_string(i % 10) + "\n";
    }
  }
  return rows;
}

}  // namespace quenlor::reports
