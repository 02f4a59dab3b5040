// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>

#include "data/document.h"
#include "graph/live_graph.h"
#include "link/measurement.h"

namespace quenlor::app {

// Shows readings in ticks, many at once, since showing one costs as much as showing many.
//
// `show` shows what has come, and draws the whole graph anew if told so; it returns the milliseconds that the
// tables took. It is never called so often that they take more than a small part of the time.
class RefreshTick : public graph::GraphView, public data::DocumentListener, public link::MeasurementListener {
 public:
  RefreshTick(std::function<int(bool whole)> show, std::function<void()> captions_changed, QObject* window);

  void Now();

 private:
  void Ask();
  void Fig() override;
  void PlotRow(Row) override { Ask(); }
  void CaptionsChanged() override { captions_changed_(); }
  void DocumentReplaced() override { Now(); }
  void StateChanged() override { Now(); }

  std::function<int(bool)> show_;
  std::function<void()> captions_changed_;
  QTimer timer_;        // the window's "Refresh"
  bool whole_ = false;  // the graph is to be drawn anew
};

}  // namespace quenlor::app
