// SPDX-License-Identifier: MIT
#include "graph/captions.h"

namespace quenlor::graph {

Captions CaptionsOf(const data::Document& document, const LiveGraph& graph) {
  Captions captions{graph.Labels(), {}, {}};
  const auto title = [&](int column) { return std::string(document.Grid1().TextMatrix(0, column)); };
  captions.Label6 = {"Time",
                     title(document.ViscoColumn()),
                     title(document.TempColumn()),
                     document.Date(),
                     document.FileName(),
                     captions.TimeUnitText,
                     document.Remarks()};
  for (std::size_t run = 1; run < captions.Label10.size(); ++run) {
    const auto text = graph.LegendText(static_cast<int>(run));
    if (!text) continue;
    captions.Label10[0] = LiveGraph::kLegendHeading;
    captions.Label10[run] = *text;
  }
  return captions;
}

}  // namespace quenlor::graph
